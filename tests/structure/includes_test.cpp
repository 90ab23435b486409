#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <map>
#include <regex>
#include <set>
#include <string>

#include "support/scripted_host.h"

namespace {

namespace fs = std::filesystem;
/// The rooms that each room may include, beside itself, with all that those may.
const std::map<std::string, std::set<std::string>>& allowedRooms() {
    static const std::map<std::string, std::set<std::string>> allowed = [] {
        std::map<std::string, std::set<std::string>> rooms;
        const auto above = [&rooms](const char* room, const std::set<std::string>& used) {
            for (const std::string& other : used)
                rooms[room].insert(rooms[other].begin(), rooms[other].end());
            rooms[room].insert(used.begin(), used.end());
        };
        above("base", {});
        above("host", {"base"});
        above("shared", {"host"});
        above("music", {"shared"});
        above("centre", {"music"});
        for (const char* tool : {"check", "edit", "bars", "input"}) above(tool, {"centre"});
        for (const char* tool : {"renumber", "extract"}) above(tool, {"bars"});
        above("panels", {"check", "edit", "bars", "input", "renumber", "extract"});
        for (const char* face : {"desktop", "command"}) above(face, {"panels"});
        above("companions", {"music"});
        return rooms;
    }();
    return allowed;
}

std::string roomOf(const std::string& path) { return path.substr(0, path.find('/')); }

/// What is wrong with the includes of one file, a line each.
std::string wrongIncludes(const fs::path& file, const std::string& room) {
    static const std::regex ours(R"(^\s*#\s*include\s*"([^"]+)\")");
    static const std::regex toolkit(R"(^\s*#\s*include\s*<(Q[A-Za-z/]+)>)");
    std::string wrong;
    std::ifstream text(file);
    std::smatch match;
    for (std::string line; std::getline(text, line);) {
        if (std::regex_search(line, match, ours)) {
            const std::string used = roomOf(match[1]);
            const bool madeFromForm = used.starts_with("ui_");
            if (used != room && !madeFromForm && !allowedRooms().at(room).contains(used))
                wrong += file.string() + " includes " + match[1].str() + "\n";
        }
        if (room != "desktop" && room != "companions" && std::regex_search(line, match, toolkit))
            wrong += file.string() + " includes the toolkit: " + match[1].str() + "\n";
    }
    return wrong;
}

TEST(Includes, GoUpwardFromRoomToRoomOnly) {
    const fs::path source = TUL_SOURCE_FOLDER;
    int files = 0;
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(source)) {
        const std::string extension = entry.path().extension().string();
        if (extension != ".h" && extension != ".cpp") continue;
        const std::string room = roomOf(fs::relative(entry.path(), source).generic_string());
        ASSERT_TRUE(allowedRooms().contains(room)) << entry.path() << " lies in no known room";
        EXPECT_EQ(wrongIncludes(entry.path(), room), "");
        ++files;
    }
    EXPECT_GT(files, 30) << "the source folder was not found";
}

TEST(Includes, AWrongArrowIsSeen) {
    tul::testing::ScriptedHost host;
    const fs::path file = host.nativeFolder() / "arrow.cpp";
    std::ofstream(file) << "#include \"centre/start_up.h\"\n#include <QString>\n#include \"base/text.h\"\n";
    const std::string wrong = wrongIncludes(file, "music");
    EXPECT_NE(wrong.find("centre/start_up.h"), std::string::npos);
    EXPECT_NE(wrong.find("QString"), std::string::npos);
    EXPECT_EQ(wrong.find("base/text.h"), std::string::npos);
}

}  // namespace
