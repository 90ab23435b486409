#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <map>
#include <regex>
#include <set>
#include <string>
#include <vector>

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

/// What the lines of a file include in one form, without its marks.
std::vector<std::string> includesOf(const fs::path& file, const char* form) {
    const std::regex line(std::string(R"(^\s*#\s*include\s*)") + form);
    std::vector<std::string> used;
    std::ifstream stream(file);
    std::smatch match;
    for (std::string text; std::getline(stream, text);)
        if (std::regex_search(text, match, line)) used.push_back(match[1]);
    return used;
}

std::vector<std::string> ourIncludesOf(const fs::path& file) { return includesOf(file, "\"([^\"]+)\""); }

/// What is wrong with the includes of one file, a line each.
std::string wrongIncludes(const fs::path& file, const std::string& room) {
    std::string wrong;
    for (const std::string& used : ourIncludesOf(file)) {
        const bool madeFromForm = used.starts_with("ui_");
        if (roomOf(used) != room && !madeFromForm && !allowedRooms().at(room).contains(roomOf(used)))
            wrong += file.string() + " includes " + used + "\n";
    }
    if (room == "desktop" || room == "companions") return wrong;
    for (const std::string& used : includesOf(file, "<(Q[A-Za-z/]+)>"))
        wrong += file.string() + " includes the toolkit: " + used + "\n";
    return wrong;
}

/// Which modules of its room each module includes; a header and a source of one name are one module.
using Modules = std::map<std::string, std::set<std::string>>;

std::string moduleOf(const fs::path& path) { return fs::path(path).replace_extension().generic_string(); }

void addTo(Modules& modules, const fs::path& file, const std::string& path) {
    std::set<std::string>& uses = modules[moduleOf(path)];
    for (const std::string& used : ourIncludesOf(file))
        if (roomOf(used) == roomOf(path) && moduleOf(used) != moduleOf(path)) uses.insert(moduleOf(used));
}

/// The modules that stand in a circle, and those that include them.
std::set<std::string> circles(Modules modules) {
    const auto isFree = [&modules](const auto& module) {
        return std::none_of(module.second.begin(), module.second.end(),
                            [&modules](const std::string& used) { return modules.contains(used); });
    };
    while (std::erase_if(modules, isFree) > 0) continue;
    std::set<std::string> left;
    for (const auto& [module, uses] : modules) left.insert(module);
    return left;
}

TEST(Includes, GoUpwardFromRoomToRoomAndInNoCircleWithinOne) {
    const fs::path source = TUL_SOURCE_FOLDER;
    Modules modules;
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(source)) {
        const std::string extension = entry.path().extension().string();
        if (extension != ".h" && extension != ".cpp") continue;
        const std::string path = fs::relative(entry.path(), source).generic_string();
        ASSERT_TRUE(allowedRooms().contains(roomOf(path))) << path << " lies in no known room";
        EXPECT_EQ(wrongIncludes(entry.path(), roomOf(path)), "");
        addTo(modules, entry.path(), path);
    }
    EXPECT_EQ(circles(modules), std::set<std::string>());
    EXPECT_GT(modules.size(), 30U) << "the source folder was not found";
}

TEST(Includes, AWrongArrowAndACircleAreSeen) {
    tul::testing::ScriptedHost host;
    const fs::path file = host.nativeFolder() / "arrow.cpp";
    std::ofstream(file) << "#include \"centre/start_up.h\"\n#include <QString>\n#include \"base/text.h\"\n";
    const std::string wrong = wrongIncludes(file, "music");
    EXPECT_NE(wrong.find("centre/start_up.h"), std::string::npos);
    EXPECT_NE(wrong.find("QString"), std::string::npos);
    EXPECT_EQ(wrong.find("base/text.h"), std::string::npos);

    Modules modules = {{"centre/start_up", {"centre/launching"}}, {"centre/launching", {}}};
    addTo(modules, file, "centre/viewing.cpp");
    EXPECT_EQ(circles(modules).size(), 0U);
    modules["centre/launching"] = {"centre/viewing"};
    EXPECT_EQ(circles(modules).size(), 3U);
}

}  // namespace
