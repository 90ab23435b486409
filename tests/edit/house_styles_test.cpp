#include <cmath>

#include "edit/edit_run.h"
#include "music/mus_writer.h"
#include "support/test.h"

namespace tul::edit {
namespace {

ItemRow textRow(const std::string& text, float height = 1) {
    return itemRow({16, 1, 10, height, 5, 1, 7, 8, 0, 0, 0, static_cast<float>(text.size())}, text);
}

class HouseStyles : public PanelTest {
  protected:
    /// The first line of the report on a page of these items, and the counter's.
    Texts press(const char* command, const std::vector<ItemRow>& rows) {
        PageBytes page;
        page.begin();
        for (const ItemRow& row : rows) page.item(row);
        page.end(false);
        host.write("a.mus", page.bytes);
        writeNames({"a.mus"});
        identity.DeveloperMode = true;
        open("frmEdit");
        EXPECT_EQ(panel.press(command), PanelAnswer::done);
        const Texts report = linesIn(host.shown.back());
        return {report[0], report[6]};
    }
    static Texts report(const char* style, const std::string& counter) {
        return {std::string("TUL Edit run (") + style + ")11-21-2026 09:05:07", counter};
    }
    static float par(std::size_t item, int number) {
        return musItemTable[static_cast<int>(item)].pars[number];
    }
};

TEST_F(HouseStyles, BeamsEndOnWholeSteps) {
    std::vector<ItemRow> rows = {itemRow({5, 1, 10, 2.5F, 2.5F, 20})};
    for (const float height : {-2.5F, 3.0F, -0.5F, infinity, notANumber})
        rows.push_back(itemRow({6, 1, 10, height, 4.25F, 20}));
    EXPECT_EQ(press("cmdDorvel", rows),
              report("Dorvel", "Number of beams ends adapted. . . . . . . . . . . . . . . . . 7"));
    EXPECT_EQ(par(1, 4), 2.5F) << "a slur";
    EXPECT_EQ(par(2, 4), -2);
    EXPECT_FALSE(std::signbit(par(4, 4)));
    EXPECT_EQ(par(6, 5), 4);
}

TEST_F(HouseStyles, FingersBecomeNumbersOnLines) {
    std::vector<ItemRow> rows;
    for (const char* text : {"_0512", "_017", "_05", "_05a", "_00 "}) rows.push_back(textRow(text));
    const std::vector<float> heights = {-3.7F, -3, -2.5F, -1, -0.5F, 1.5F, 3, 4.9F};
    const std::vector<float> lines = {-2, -2, -2, 0, 0, 0, 2, 4};
    for (const float height : heights) rows.insert(rows.begin(), textRow("_059", height));
    EXPECT_EQ(press("cmdNewMeters", rows),
              report("NewMeters", "Number fingerings adapted . . . . . . . . . . . . . . . . . . 8"));
    EXPECT_TRUE(contains(host.read("a.mus"), words({6, 10, 1, 10, 2, 9, 0.8F}))) << "nothing behind Par 6";
    for (std::size_t i = 0; i < lines.size(); ++i) {
        EXPECT_EQ(par(8 - i, 4), lines[i]) << heights[i];
        EXPECT_EQ(std::signbit(par(8 - i, 4)), lines[i] < 0) << heights[i];
    }
}

TEST_F(HouseStyles, TextsAreChanged) {
    const auto changed = [&](const char* command, const Texts& texts, const Texts& told) {
        std::vector<ItemRow> rows;
        for (const std::string& text : texts) rows.push_back(textRow(text));
        EXPECT_EQ(press(command, rows), told);
        Texts all;
        for (int item = 1; item <= musItemTable.itemCount; ++item) all.push_back(musItemTable[item].text);
        return all;
    };
    EXPECT_EQ(changed("cmdQuintal", {"_05LECCION 7", "_00Leccion", "_0 LECCION", "LECCION", "_0"},
                      report("NewMeters", "Number texts adapted . . . . . . . . . . . . . . . . . . 2")),
              (Texts{"_00LECCI<<ON", "_00Leccion", "_00LECCI<<ON", "LECCION", "_0"}));
    host.answers = {Answer::no, Answer::yes};
    EXPECT_EQ(
        changed("cmdMarlo",
                {"_02a 12345 b", "_02a 1234 b", "_02a 1234", "12345", "_02a 123456789", "_02a 1234512345",
                 "_0212a", "_47a 12345", "a 12345_03"},
                report("Marlo", "Number of items in which 47 fonts included  . . . . . . . . . 8")),
        (Texts{"_02a _4712345_02 b", "_02a _471234_02 b", "_02a 1234", "_4712345", "_02a _4712345_026789",
               "_02a _4712345_02_4712345", "__470212_02a", "_47a 12345", "a _4712345"}));
    EXPECT_EQ(host.messages, (Texts{"Augmentation dot to lower voice?",
                                    "Set font to 47 for groups of 4/5 digits in text items?"}));
    panel.press("cmdMarlo");
    EXPECT_EQ(runResults.back().end, RunEnd::refused);
}

TEST_F(HouseStyles, DotsOfTheLowerVoiceTurnDown) {
    const auto note = [](float height, float stem, float flags, float position = 10) {
        return itemRow({1, 1, position, height, stem, 0, 1, 0, flags});
    };
    const std::vector<ItemRow> rows = {
        note(3, 20, 10),    note(3, 120.5F, 1010), note(3, -25, 10012),     note(2.6F, 20, 10),
        note(103, 20, 10),  note(3, infinity, 10), note(3, 5, 10, 10.009F), note(3, 0, 10, 30),
        note(3, 10, 10),    note(4, 20, 10),       note(-3, 20, 10),        note(3, 20, 110),
        note(3, 20, 20),    note(3, 20, 10.5F),    note(3, 20, notANumber), note(7, 5, 10),
        note(3, 5, 10, 20), note(103, 5, 10),      note(8, 20, 0, 30),      note(4, 25, 0, 30),
        note(5, 0, 10, 30), note(-107, 20, 0)};
    host.answers = {Answer::yes};
    EXPECT_EQ(press("cmdMarlo", rows),
              report("Marlo", "Number of augmentation directions changed . . . . . . . . . . 8"));
    for (std::size_t item = 1; item <= 8; ++item)
        EXPECT_EQ(par(item, 9), rows[item - 1].pars[9] + 100) << item;
}

}  // namespace
}  // namespace tul::edit
