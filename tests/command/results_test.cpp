#include <fstream>
#include <nlohmann/json.hpp>

#include "base/numbers.h"
#include "host/interrupt.h"
#include "support/command_line.h"

namespace tul::command {
namespace {

using Results = testing::TulcmdTest;

const Texts resizing = {"resiz", "--set", "tabResiz=staves", "--set", "txtResizeStaffSize=0.65"};

TEST_F(Results, TellHowACallEndedByItsStatus) {
    const auto resize = [this](const Texts& names) {
        Texts words = resizing;
        for (const std::string& name : names) words.push_back(page(name));
        return words;
    };
    const std::string whole = host.read("good.mus");
    host.faultyFiles().refusals = {{"ODD.MUS", FileError::readOnly}, {"GOOD.BKU", FileError::diskFull}};
    host.write("TULRECOV.EXE", "x");
    host.mayRun("TULRECOV.EXE", [] { setInterrupted(true); });
    const std::string good = page("good.mus");
    const std::string damaged = page("bad.mus");
    for (const auto& [status, words] :
         std::vector<std::pair<int, Texts>>{{0, {"valid", good}},
                                            {0, resize({"same.mus"})},
                                            {1, resize({"odd.mus"})},
                                            {1, resize({"long.mus", "good.mus", "odd.mus"})},
                                            {2, {"valid", "--set", "txtNone=1"}},
                                            {3, {"--no", "valid", good, damaged}},
                                            {3, resize({"long.mus", "good.mus"})},
                                            {3, {"pmx", page("good.pmx"), damaged}},
                                            {4, {"pmx", page("same.mus"), page("same.old.mus")}},
                                            {4, {"edit", "--set", "tabEdit=clef", good}},
                                            {5, resize({"good.mus"})},
                                            {5, {"pmx", page("good.pmx"), good}},
                                            {130, {"--answer", "OK", "valid", damaged, good}}}) {
        for (const char* name : {"good.mus", "good.pmx", "same.mus", "same.old.mus"}) host.write(name, whole);
        host.write("long.mus", whole + "more than it says");
        const testing::Outcome outcome = run(words);
        EXPECT_EQ(outcome.status, status) << ::testing::PrintToString(words) << outcome.err;
    }
    host.remove("NAMES.TUL");
    EXPECT_EQ(run({"valid"}).status, 4) << "nothing is selected";
}

TEST_F(Results, HaveTheirStatusesInTheHelpAndInTheGuide) {
    std::ifstream file(TUL_SOURCE_FOLDER "/../docs/command-line.md");
    const std::string guide{std::istreambuf_iterator<char>(file), {}};
    const std::string help = run({"--help"}).err;
    for (const ExitStatusEntry& entry : exitStatuses()) {
        const std::string number = plain(static_cast<int>(entry.status));
        EXPECT_TRUE(contains(guide, "\n| " + number + " | " + entry.meaning + " |\n"));
        EXPECT_TRUE(contains(help, "\n  " + padRight(number, 5) + entry.meaning));
    }
}

TEST_F(Results, AreWrittenPageByPageAsData) {
    host.faultyFiles().refusals = {{"ODD.MUS", FileError::readOnly}, {"GOOD.BKU", FileError::diskFull}};
    host.write("long.mus", host.read("odd.mus") + "more than it says");
    samples::PageBuilder other;
    host.write("other.mus", other.item({14, 1, 20}).bytes());
    Texts words = resizing;
    words.insert(words.begin(), {"--json", page("results.json")});
    for (const char* name : {"good.mus", "long.mus", "other.mus", "bad.mus", "odd.mus"})
        words.push_back(page(name));
    EXPECT_EQ(run(words).status, 1);
    const auto json = nlohmann::json::parse(host.read("results.json"));
    EXPECT_EQ(json.at("exitStatus"), 1);
    const auto& result = json.at("runs").at(0);
    EXPECT_EQ(result.at("tool"), "resiz");
    EXPECT_EQ(result.at("end"), "broken");
    std::string pages;
    for (const auto& page : result.at("pages"))
        pages += fs::path(std::string(page.at("path"))).filename().string() + ": " +
                 std::string(page.at("outcome")) +
                 (page.contains("withoutBackup") ? ", without backup" : "") +
                 (page.contains("reason") ? ", " + std::string(page.at("reason")) : "") + " " +
                 page.at("changes").dump() + "|";
    EXPECT_EQ(pages,
              "good.mus: changed, without backup 1|long.mus: damaged 1|other.mus: unchanged 0|"
              "bad.mus: damaged 0|odd.mus: not done, read-only 1|");
}

}  // namespace
}  // namespace tul::command
