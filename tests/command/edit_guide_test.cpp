#include <gtest/gtest.h>

#include <fstream>
#include <iomanip>
#include <map>
#include <sstream>

#include "base/text.h"
#include "command/arguments.h"
#include "command/command_run.h"
#include "samples/page_builder.h"
#include "support/scripted_host.h"

namespace tul::command {
namespace {

using samples::PageBuilder;
using testing::ScriptedHost;

using Words = std::vector<std::string>;

/// The words of a command line, those in quotation marks without them.
Words wordsOf(const std::string& line) {
    std::istringstream rest(line);
    Words words;
    for (std::string word; rest >> std::quoted(word);) words.push_back(word);
    return words;
}

/// The command lines of the guide, by the bold words that the example begins with.
std::map<std::string, Words> examplesOfGuide() {
    std::ifstream guide(TUL_SOURCE_FOLDER "/../docs/edit.md");
    std::map<std::string, Words> examples;
    std::string title;
    for (std::string line; std::getline(guide, line);) {
        if (line.starts_with("**")) title = line.substr(2, line.find("**", 2) - 2);
        if (!line.starts_with("    tulcmd ")) continue;
        for (std::string next; line.ends_with('\\') && std::getline(guide, next);)
            line = line.substr(0, line.size() - 1) + next;
        Words words = wordsOf(line);
        words.erase(words.begin());
        examples[title] = words;
    }
    return examples;
}

class EditGuide : public ::testing::Test {
  protected:
    EditGuide() { host.install(); }

    /// What an example prints, on two pages of these items.
    std::string run(const std::string& title, const PageBuilder& items) {
        for (const char* name : {"page1.mus", "page2.mus"}) host.write(name, items.bytes());
        Words words = examples[title];
        EXPECT_FALSE(words.empty()) << title;
        for (std::string& word : words)
            if (word.starts_with("page")) word = (host.nativeFolder() / word).string();
        Arguments arguments;
        EXPECT_TRUE(parseArguments(words, arguments).goOn) << title;
        arguments.restAnswer = RestAnswer::no;  // to the questions of first use
        std::ostringstream out;
        std::ostringstream err;
        std::istringstream in;
        const Host machine{.files = &files(),
                           .processes = &processes(),
                           .profile = &profile(),
                           .clock = &clock(),
                           .platform = &platform(),
                           .face = nullptr};
        EXPECT_EQ(runCommand(arguments, machine, host.folder(),
                             {.out = out, .err = err, .in = in, .canAsk = false, .showsProgress = false}),
                  0)
            << err.str();
        return out.str();
    }
    /// True when both pages are now these, stamp included.
    void expectPages(PageBuilder items) {
        items.stamp(80200);
        for (const char* name : {"page1.mus", "page2.mus"}) EXPECT_EQ(host.read(name), items.bytes()) << name;
    }

    ScriptedHost host;
    std::map<std::string, Words> examples = examplesOfGuide();
};

PageBuilder lyrics(const char* first, const char* second, double font) {
    PageBuilder page;
    return page.text(16, {1, 20, 5, 0, 1}, first)
        .text(16, {1, 40, 5, 0, 1}, second)
        .item({10, 1, 0, 0, 12, 201, font});
}

TEST_F(EditGuide, ReplacesASyllable) {
    const std::string report =
        run("Replace a lyric syllable on all pages.", lyrics("_05dwell,", "_05dweller", 5));
    expectPages(lyrics("_05live,", "_05dweller", 5));
    EXPECT_NE(report.find("Number of replaces . . . . . . 2 (Find string: dwell Replace string: live)"),
              std::string::npos)
        << report;
    EXPECT_TRUE(host.exists("PAGE1.BKU"));
}

TEST_F(EditGuide, ChangesAFont) {
    run("Change a font.", lyrics("_05dwell_05,", "_00dwell", 1005));
    expectPages(lyrics("_07dwell_07,", "_00dwell", 1007));
}

PageBuilder staves(double first, double second) {
    PageBuilder page;
    return page.item({8, 1, 0, 0, 1, 200, 0, 0, first})
        .item({8, 2, 0, 0, 1, 200, 0, 0, second})
        .item({1, 1, 20, 5, 0, 0, 1, 0, 3});
}

TEST_F(EditGuide, SetsParametersOfStaves) {
    run("Set Par 9 of all staves of instrument 3.", staves(3, 4));
    expectPages(staves(12, 4));
}

TEST_F(EditGuide, ListsThinSlurs) {
    PageBuilder page;
    for (const double thickness : {0.0, 0.5, 0.8, 0.802, 1.0})
        page.item({5, 1, 10 * thickness, 5, 5, 20, 1, 0, 0, 0, 0, 0, thickness, 1});
    const std::string report = run("List all slurs thinner than .8.", page);
    std::string listed;
    for (const std::string_view line : linesOf(report))
        if (const auto at = line.find("Item="); at != line.npos) listed += line[at + 5];
    EXPECT_EQ(listed, "2323") << report;
    EXPECT_EQ(host.read("page1.mus"), page.bytes());
    EXPECT_FALSE(host.exists("PAGE1.BKU"));
}

}  // namespace
}  // namespace tul::command
