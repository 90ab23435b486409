#include <fstream>
#include <iomanip>
#include <ranges>

#include "support/command_line.h"
#include "support/edit_test.h"

namespace tul::command {
namespace {

/// The words of a command line, those in quotation marks without them.
Texts wordsOf(const std::string& line) {
    std::istringstream rest(line);
    Texts words;
    for (std::string word; rest >> std::quoted(word);) words.push_back(word);
    return words;
}

/// The calls of an example, one after the other.
using Calls = std::vector<Texts>;

/// The examples of a page, by the bold words that each begins with.
void readExamples(std::istream& guide, std::map<std::string, Calls>& examples) {
    std::string title;
    for (std::string line; std::getline(guide, line);) {
        if (line.starts_with("**")) title = line.substr(2, line.find("**", 2) - 2);
        if (!line.starts_with("    tulcmd ")) continue;
        for (std::string next; line.ends_with('\\') && std::getline(guide, next);)
            line = line.substr(0, line.size() - 1) + next;
        Texts words = wordsOf(line);
        words.erase(words.begin());
        examples[title].push_back(words);
    }
}

std::map<std::string, Calls> examplesOfGuide() {
    std::map<std::string, Calls> examples;
    for (const auto& page : fs::directory_iterator(TUL_SOURCE_FOLDER "/../docs")) {
        const std::string name = page.path().filename().string();
        if (!name.starts_with("edit") && name != "renumber.md") continue;
        std::ifstream guide(page.path());
        readExamples(guide, examples);
    }
    return examples;
}

/// What the files of an example hold, a line each in the order of their names in it; the last line stands for
/// all that follow.
struct Example {
    std::string before;
    std::string after;
    const char* said = "";  // in the report
    Texts renamed = {};     // what they are called in the end, where that is something else
};

const std::string lowStaff = "8 1 0 0 1 200 9=24";

/// A string quartet whose cello has a barline through so many staves.
std::string quartet(const char* up) {
    return lowStaff + "|8 2 0 0 1 200 9=23|8 3 0 0 1 200 9=22|8 4 0 0 1 200 9=21|14 1 50 " + up;
}

/// Four pages that cannot be taken for each other.
const std::string unlike = "8 1\n8 2\n8 3\n8 4";
const std::string slurs = "5 1 10 5 5 20 1 13=.5 1|5 1 10 5 5 20 1 13=1 1";
const std::string twoVoices = lowStaff + "|14 1 5 1|14 1 199 1|1 1 100 5 10 0 1|1 1 100 4 20 0 1";

const std::map<std::string, Example> examples = {
    {"Replace a lyric syllable on all pages.",
     {"16 1 20 5 0 1'_05dwell_05,|16 1 40 5 0 1'_05dweller",
      "16 1 20 5 0 1'_05live_05,|16 1 40 5 0 1'_05dweller"}},
    {"Change a font.",
     {"16 1 20 5 0 1'_05dwell_05,|10 1 5=12 201 1005", "16 1 20 5 0 1'_07dwell_07,|10 1 5=12 201 1007"}},
    {"Put the plate number on all pages, centred.", {lowStaff, lowStaff + "|16 1 92 -12 1 .8'_001234"}},
    {"Set Par 9 of the lyrics to -360.",
     {"16 1 20 -5 0 1'_00glo|16 1 20 -5 0 1'_01dolce",
      "16 1 20 -5 0 1 9=-360'_00glo|16 1 20 -5 0 1'_01dolce"}},
    {"Replace the old font numbers in Par 8 by font prefixes.",
     {"16 1 20 5 0 1 8=1005'_00do", "16 1 20 5 0 1'_05do"}},
    {"Remove the second item of a page.",
     {quartet("1"), lowStaff + "|8 3 0 0 1 200 9=22|8 4 0 0 1 200 9=21|14 1 50 1"}},
    {"Set Par 9 of all staves of instrument 3.", {"8 1 9=3|8 2 9=4", "8 1 9=12|8 2 9=4"}},
    {"List all slurs thinner than .8.", {slurs, slurs, "Item=1 "}},
    {"Give the violins' staves instrument id 21 on all pages.",
     {lowStaff + "|8 4 0 0 1 200", lowStaff + "|8 4 0 0 1 200 9=21"}},
    {"Give all staves of a quartet their ids, system by system.",
     {"8 5|8 2|8 8", "8 5 9=24|8 2 9=23|8 8 9=21"}},
    {"Make a page of the violins alone.", {quartet("4"), "8 3 0 0 1 200 9=22|8 4 0 0 1 200 9=21"}},
    {"Change the tenors' treble clefs to choral clefs.",
     {quartet("4") + "|3 2 1.5|3 4 1.5", quartet("4") + "|3 2 1.5 0 .8|3 4 1.5"}},
    {"Put barlines through all string staves of every system.",
     {quartet("1") + "|14 3 60 1", quartet("4") + "|14 2 50 1|14 3 50 1|14 4 50 1"}},
    {"Look whether the barlines fit.", {quartet("4"), quartet("4"), "Number of errors:  0 "}},
    {"List the instruments of a page and its barlines.",
     {quartet("4"), quartet("4"), "Staff 1   Instr = 24"}},
    {"Take the fractions off the ends of beams.", {"6 1 20 5.5 -2.5 30 11", "6 1 20 5 -2 30 11"}},
    {"Halve all durations.", {"1 1 20 5 10 7=1|2 1 30 7=1", "1 1 20 5 10 7=.5 9=1|2 1 30 5=1 7=.5"}},
    {"Take out barlines that others contain.", {quartet("4") + "|14 3 50 1", quartet("4")}},
    {"Move notes apart where two voices collide.", {twoVoices, twoVoices + " 10=10"}},
    {"Number the whole rests of the parts.", {"2 1 50 0 -2 7=4|2 1 90 7=1", "2 1 50 0 -2 7=4 1|2 1 90 7=1"}},
    {"Put slurs at whole staff steps.",
     {"5 1 10 5.5 6.2 20|5 1 10 5.5 6.2 20 8=-2", "5 1 10 6 6 20|5 1 10 5.5 6.2 20 8=-2"}},
    {"Move the fingers 3 and 4 off the staff lines.",
     {"10 1 20 -4 3 .75|10 1 20 -4 2 .75", "10 1 20 -4.2 3 .75|10 1 20 -4 2 .75"}},
    {"Put vocal brackets where the notes are.",
     {"1 1 31 5 10|1 1 58 5 10|4 1 30 14 14 60 11=-2 -2",
      "1 1 31 5 10|1 1 58 5 10|4 1 30.5 14 14 60.5 11=-1 -1"}},
    {"Number the pages of a suite from 17, right pages right, left pages left.",
     {lowStaff + "|10 1 100 15 3 201.1|8 4|10 4 9 14 2 201 1",
      lowStaff + "|8 4|10 4 9 14 2 201 1|10 4 196 15 17 201.1\n" + lowStaff +
          "|8 4|10 4 9 14 2 201 1|10 4 4 15 18 201.1"}},
    {"Call all files of this opera OPER001 and following.",
     {unlike, unlike, "", {"OPER001.MUS", "OPER002.MUS", "OPER003.MUS"}}},
    {"Take all bar numbers off.",
     {lowStaff + "|10 1 9 14 2 201 1|10 1 196 15 17 201.1", lowStaff + "|10 1 196 15 17 201.1",
      "removed . . . 2"}},
    {"Close the gaps in the staff numbers.",
     {"8 9 0 5|8 2|8 5|1 9 20|1 3 20|1 300 20", "8 3|8 1|8 2|1 3 20|1 300 20"}},
    {"Number the instrument ids from top to bottom.", {"8 1|8 2 9=7|1 2 9", "8 1 9=2|8 2 9=1|1 2 9"}},
    {"Restore pages from their backups by renaming.",
     {unlike, unlike, "", {"SONGOL01.MUS", "SONGOL02.MUS", "SONG01.MUS", "SONG02.MUS"}}},
};

/// By its title.
class GuideExample : public HostTest, public ::testing::WithParamInterface<std::string> {
  protected:
    GuideExample() {
        host.install();
        host.write("TULXREF5.ASM", "");  // the developer's buttons
        testing::runTulcmd(host, {"--no", "--set", "txtPlateText=1234", "options"});
    }

    /// A word that ends in the name of a file, with the folder before that. The file is made when it is
    /// named first.
    std::string placed(std::string word) {
        if (!word.ends_with(".mus") && !word.ends_with(".bku")) return word;
        const std::size_t place = word.find('=') + 1;
        const std::string name = word.substr(place);
        if (std::find(names_.begin(), names_.end(), name) == names_.end()) {
            host.write(name, bytesIn(example_.before, names_.size()));
            names_.push_back(name);
        }
        return word.insert(place, host.nativeFolder().string() + "/");
    }
    static std::string bytesIn(const std::string& files, std::size_t number) {
        const Texts lines = linesIn(files);
        return bytesOf(lines[std::min(number, lines.size() - 1)]);
    }
    /// The pages of the folder, whatever the case of their names.
    std::map<std::string, std::string> pages() const {
        std::map<std::string, std::string> found;
        for (const auto& file : fs::directory_iterator(host.nativeFolder())) {
            const std::string name = file.path().filename().string();
            if (upperCase(name).ends_with(".MUS")) found[upperCase(name)] = host.read(name);
        }
        return found;
    }
    std::map<std::string, std::string> pagesInTheEnd() const {
        std::map<std::string, std::string> expected;
        for (std::size_t i = 0; i < names_.size(); ++i)
            expected[upperCase((example_.renamed.empty() ? names_ : example_.renamed).at(i))] =
                bytesIn(example_.after, i);
        return expected;
    }

    const Example& example_ = examples.at(GetParam());
    Texts names_;
};

TEST_P(GuideExample, DoesWhatItSays) {
    const Calls calls = examplesOfGuide()[GetParam()];
    std::string out;
    for (Texts words : calls) {
        for (std::string& word : words) word = placed(word);
        const testing::Outcome outcome = testing::runTulcmd(host, words);
        EXPECT_EQ(outcome.status, 0) << outcome.err;
        out += outcome.out;
    }
    EXPECT_TRUE(contains(out, example_.said));
    EXPECT_TRUE(!pages().empty() && pages() == pagesInTheEnd());
}
const auto titles = std::views::keys(examples);
INSTANTIATE_TEST_SUITE_P(Guide, GuideExample, ::testing::ValuesIn(Texts(titles.begin(), titles.end())));

TEST(GuideExamples, AreAllRun) {
    for (const auto& [title, calls] : examplesOfGuide()) EXPECT_TRUE(examples.contains(title)) << title;
}

}  // namespace
}  // namespace tul::command
