#include "support/edit_test.h"

namespace tul::edit {
namespace {

class HouseStyles : public EditTest {
  protected:
    void expectStyled(const char* button, const std::string& page, const std::string& changed,
                      const std::string& title, const std::string& counter) {
        press(button, page);
        EXPECT_TRUE(isWritten(changed)) << "to the sign of a zero";
        const Texts report = linesIn(host.shown.back());
        EXPECT_EQ(report[0], "TUL Edit run (" + title + ")11-21-2026 09:05:07");
        EXPECT_EQ(report[6], counter);
    }
};

TEST_F(HouseStyles, BeamsEndOnWholeSteps) {
    expectStyled("cmdDorvel",
                 "5 1 10 2.5 2.5 20|6 1 10 -2.5 4.25 20|6 1 10 3 4.25|6 1 10 -.5 4.25|6 1 10 INF 4.25|"
                 "6 1 10 NAN 4.25",
                 "5 1 10 2.5 2.5 20|6 1 10 -2 4 20|6 1 10 3 4|6 1 10 0 4|6 1 10 INF 4|6 1 10 NAN 4", "Dorvel",
                 "Number of beams ends adapted. . . . . . . . . . . . . . . . . 7");
}

TEST_F(HouseStyles, FingersBecomeNumbersOnLines) {
    std::string page;
    std::string changed;
    const Texts heights = {"-3.7", "-3", "-2.5", "-1", "-.5", "1.5", "3", "4.9"};
    const Texts lines = {"-2", "-2", "-2", "0", "0", "0", "2", "4"};
    for (std::size_t i = 0; i < lines.size(); ++i) {
        page += "16 1 10 " + heights[i] + " 5 1 7 8'_059|";
        changed += "10 1 10 " + lines[i] + " 9 .8|";
    }
    const std::string others = "16 1 10'_0512|16 1 10'_017|16 1 10'_05|16 1 10'_05a|16 1 10'_00 ";
    expectStyled("cmdNewMeters", page + others, changed + others, "NewMeters",
                 "Number fingerings adapted . . . . . . . . . . . . . . . . . . 8");
}

TEST_F(HouseStyles, TextsAreChanged) {
    expectStyled("cmdQuintal", "16 1'_05LECCION 7|16 1'_00Leccion|16 1'_0 LECCION|16 1'LECCION|16 1'_0",
                 "16 1'_00LECCI<<ON|16 1'_00Leccion|16 1'_00LECCI<<ON|16 1'LECCION|16 1'_0", "NewMeters",
                 "Number texts adapted . . . . . . . . . . . . . . . . . . 2");
    host.answers = {Answer::no, Answer::yes};
    expectStyled("cmdMarlo",
                 "16 1'_02a 12345 b|16 1'_02a 1234 b|16 1'_02a 1234|16 1'12345|16 1'_02a 123456789|"
                 "16 1'_02a 1234512345|16 1'_0212a|16 1'_47a 12345|16 1'a 12345_03",
                 "16 1'_02a _4712345_02 b|16 1'_02a _471234_02 b|16 1'_02a 1234|16 1'_4712345|"
                 "16 1'_02a _4712345_026789|16 1'_02a _4712345_02_4712345|16 1'__470212_02a|"
                 "16 1'_47a 12345|16 1'a _4712345",
                 "Marlo", "Number of items in which 47 fonts included  . . . . . . . . . 8");
    EXPECT_EQ(host.messages, (Texts{"Augmentation dot to lower voice?",
                                    "Set font to 47 for groups of 4/5 digits in text items?"}));
    panel.press("cmdMarlo");
    EXPECT_EQ(runResults.back().end, RunEnd::refused);
}

TEST_F(HouseStyles, DotsOfTheLowerVoiceTurnDown) {
    const std::string others =
        "1 1 10 3 10 9=10|1 1 10 4 20 9=10|1 1 10 -3 20 9=10|1 1 10 3 20 9=110|1 1 10 3 20 9=20|"
        "1 1 10 3 20 9=10.5|1 1 10 3 20 9=NAN|1 1 10 7 5 9=10|1 1 20 3 5 9=10|1 1 10 103 5 9=10|"
        "1 1 30 8 20|1 1 30 4 25|1 1 30 5 9=10|1 1 10 -107 20";
    host.answers = {Answer::yes};
    expectStyled("cmdMarlo",
                 "1 1 10 3 20 9=10|1 1 10 3 120.5 9=1010|1 1 10 3 -25 9=10012|1 1 10 2.6 20 9=10|"
                 "1 1 10 103 20 9=10|1 1 10 3 INF 9=10|1 1 10.009 3 5 9=10|1 1 30 3 9=10|" +
                     others,
                 "1 1 10 3 20 9=110|1 1 10 3 120.5 9=1110|1 1 10 3 -25 9=10112|1 1 10 2.6 20 9=110|"
                 "1 1 10 103 20 9=110|1 1 10 3 INF 9=110|1 1 10.009 3 5 9=110|1 1 30 3 9=110|" +
                     others,
                 "Marlo", "Number of augmentation directions changed . . . . . . . . . . 8");
}

}  // namespace
}  // namespace tul::edit
