
#include <fstream>
#include <iomanip>

#include "samples/page_builder.h"
#include "support/command_line.h"

namespace tul::command {
namespace {

using samples::PageBuilder;

/// The words of a command line, those in quotation marks without them.
Texts wordsOf(const std::string& line) {
    std::istringstream rest(line);
    Texts words;
    for (std::string word; rest >> std::quoted(word);) words.push_back(word);
    return words;
}

/// The command lines of the guide, by the bold words that the example begins with.
std::map<std::string, Texts> examplesOfGuide() {
    std::ifstream guide(TUL_SOURCE_FOLDER "/../docs/edit.md");
    std::map<std::string, Texts> examples;
    std::string title;
    for (std::string line; std::getline(guide, line);) {
        if (line.starts_with("**")) title = line.substr(2, line.find("**", 2) - 2);
        if (!line.starts_with("    tulcmd ")) continue;
        for (std::string next; line.ends_with('\\') && std::getline(guide, next);)
            line = line.substr(0, line.size() - 1) + next;
        Texts words = wordsOf(line);
        words.erase(words.begin());
        examples[title] = words;
    }
    return examples;
}

using EditGuide = HostTest;

TEST_F(EditGuide, HasExamplesThatDoWhatTheySay) {
    host.install();
    const auto lyrics = [](const char* first, const char* second, double font, double instrument) {
        PageBuilder page;
        page.text(16, {1, 20, 5, 0, 1}, first)
            .text(16, {1, 40, 5, 0, 1}, second)
            .item({10, 1, 0, 0, 12, 201, font});
        page.item({8, 1, 0, 0, 1, 200, 0, 0, instrument}).item({8, 2, 0, 0, 1, 200, 0, 0, 4});
        return page.item({5, 1, 10, 5, 5, 20, 1, 0, 0, 0, 0, 0, 0.5, 1})
            .item({5, 1, 10, 5, 5, 20, 1, 0, 0, 0, 0, 0, 1, 1})
            .stamp(80200)
            .bytes();
    };
    const std::string page = lyrics("_05dwell_05,", "_05dweller", 1005, 3);
    const std::map<std::string, std::string> results = {
        {"Replace a lyric syllable on all pages.", lyrics("_05live_05,", "_05dweller", 1005, 3)},
        {"Change a font.", lyrics("_07dwell_07,", "_07dweller", 1007, 3)},
        {"Set Par 9 of all staves of instrument 3.", lyrics("_05dwell_05,", "_05dweller", 1005, 12)},
        {"List all slurs thinner than .8.", page}};
    for (const auto& [title, words] : examplesOfGuide()) {
        for (const char* name : {"page1.mus", "page2.mus"}) host.write(name, page);
        Texts call = {"--no"};  // to the questions of first use
        for (const std::string& word : words)
            call.push_back(word.starts_with("page") ? (host.nativeFolder() / word).string() : word);
        const testing::Outcome outcome = testing::runTulcmd(host, call);
        EXPECT_EQ(outcome.status, 0) << title << outcome.err;
        for (const char* name : {"page1.mus", "page2.mus"})
            EXPECT_EQ(host.read(name), results.at(title)) << title;
        EXPECT_EQ(contains(outcome.out, "Item=6 "), title.starts_with("List")) << title;
        EXPECT_FALSE(contains(outcome.out, "Item=7 ")) << title;
    }
}

}  // namespace
}  // namespace tul::command
