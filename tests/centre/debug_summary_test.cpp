#include "centre/debug_summary.h"

#include "support/test.h"

namespace tul {
namespace {

class DebugSummary : public HostTest {
  protected:
    DebugSummary() {
        identity.VersionText = "v8.0.0.200";
        identity.BuildDateText = "May 1, 2026";
        projectSettings.MusDirectory = "C:\\MUSIC";
    }

    Texts summary() {
        host.answers = {Answer::yes};
        WriteDebugSummary();
        return linesIn(host.read("TULDEBUG.TXT"));
    }
    /// The lines behind the heading of a section.
    Texts section(const std::string& title) {
        Texts lines;
        bool inside = false;
        for (const std::string& line : summary()) {
            if (inside && !line.empty() && !line.starts_with(" ---")) lines.push_back(line);
            if (line.starts_with(" ---") || line.empty())
                inside = line.find("- " + title + " -") < line.size();
        }
        return lines;
    }
    std::string tested(const std::string& path) {
        Report report("LINE.TXT");
        FileTest(report, path);
        EXPECT_TRUE(report.close());
        return host.read("LINE.TXT");
    }
};

TEST_F(DebugSummary, IsWrittenOnlyWhenAskedFor) {
    const std::string question = "Do you want to generate file TULDEBUG.TXT for a support request?";
    WriteDebugSummary();
    EXPECT_EQ(host.messages, Texts{question});
    EXPECT_FALSE(host.exists("TULDEBUG.TXT"));

    host.write("TULDEBUG.TXT", std::string(100000, 'x'));
    const Texts lines = summary();
    EXPECT_EQ(host.messages.back(), "Created file TULDEBUG.TXT in directory \r\n" + host.folder());
    EXPECT_EQ(host.shown, Texts{crlf(lines)});
    EXPECT_TRUE(host.shown[0].starts_with(
        crlf({"Debug summary for Support . . . . . . . . . . . . . . v8.0.0.200 Stamp = 11-21-2026 09:05:07",
              "", "Current directory . . . . . . . . . . . . . . . . . . " + host.folder(), "",
              " --------------------------------------------- General ----------------------------------"})));

    host.messages.clear();
    host.faultyFiles().refusals["TULDEBUG.TXT"] = FileError::diskFull;
    summary();
    EXPECT_EQ(host.messages, (Texts{question, "TULDEBUG.TXT could not be written. The disk may be full."}));
    EXPECT_EQ(host.shown.size(), 1U);
}

TEST_F(DebugSummary, ListsEveryModuleUnderItsHeading) {
    const Texts lines = summary();
    EXPECT_EQ(lines.size(), 4U + 28U + 2U + 156U + 3U) << "28 headings, a line for each of 156 modules";
    EXPECT_EQ(section("Check Part").size(), 2U);
    EXPECT_EQ(section("3rd party"), Texts()) << "the title of those behind it";
    EXPECT_EQ(std::count_if(lines.begin(), lines.end(),
                            [](const std::string& l) { return l.starts_with(" ---") && l.size() == 89; }),
              28);
}

TEST_F(DebugSummary, TestsAFileOnALine) {
    const auto missing = [](const std::string& start) { return crlf({start + "not located"}); };
    EXPECT_EQ(tested(std::string(54, 'x')), missing(std::string(54, 'x')));
    EXPECT_EQ(tested(std::string(53, 'x')), missing(std::string(53, 'x') + " "));
    EXPECT_EQ(tested(std::string(50, 'x')), missing(std::string(50, 'x') + ". . "));
    EXPECT_EQ(tested(std::string(57, 'x')), missing(std::string(57, 'x') + " "));
    EXPECT_EQ(tested("").find("not located"), 54U);

    host.write("TulText.exe", "x");
    const std::string dots = ". . . . . . . . . . . . . . . . . . . . . ";
    EXPECT_EQ(tested("TULTEXT.EXE"),
              crlf({"TULTEXT.EXE " + dots + stamp("TulText.exe") + std::string(15, ' ') + "TulText.exe"}));
    host.makeFolder("TULAD.EXE");
    EXPECT_EQ(tested("TULAD.EXE").find("not located"), 54U) << "a folder is no module";
}

TEST_F(DebugSummary, LooksForToolsBesideTheirLinkedProgram) {
    EXPECT_TRUE(section("ACCS")[0].starts_with("ACCS.EXE. . "));
    EXPECT_EQ(section("MidiScor, Lascor").size(), 2U);

    machineSettings.ACCSPath = host.path("own.exe");
    machineSettings.LJPath = "LJ2.EXE";
    machineSettings.LascorPath = host.path("LASCOR20.EXE");
    host.write("ACCS.INI", "x");
    host.write("lascor20.dat", "x");
    const std::string accs = section("ACCS").at(2);
    EXPECT_TRUE(accs.starts_with(host.path("ACCS.INI")) && accs.ends_with("  ACCS.INI")) << accs;
    EXPECT_TRUE(section("LJ")[1].starts_with("LJ.EXE. . ")) << "a path without a folder";
    const Texts lascor = section("MidiScor, Lascor");
    ASSERT_EQ(lascor.size(), 4U) << "LASCOR once more, with its data";
    EXPECT_TRUE(lascor[3].starts_with(host.path("LASCOR20.DAT")) && lascor[3].ends_with("  lascor20.dat"));
    machineSettings.LascorPath = "X";
    EXPECT_TRUE(section("MidiScor, Lascor").back().starts_with(".DAT. . "));
}

TEST_F(DebugSummary, EndsWithTheControlFile) {
    const std::string ending = crlf({"", "File contents of TULCNTRL.INI:", "-----------------------------"});
    summary();
    EXPECT_TRUE(host.read("TULDEBUG.TXT").ends_with(ending)) << "the summary of a damaged installation";
    host.write("TULCNTRL.INI", "* mine\n\nMaxLogRecords=1000\rlast");
    summary();
    EXPECT_TRUE(
        host.read("TULDEBUG.TXT").ends_with(ending + crlf({"* mine", "", "MaxLogRecords=1000", "last"})));
}

TEST_F(DebugSummary, IsOneOfTheMainPanelsRecords) {
    Panel panel = findPanel("logo")->make();
    panel.press("mnuDebug");
    EXPECT_EQ(host.messages.size(), 1U);
    host.write("TULPROJ.PRO", "* options");
    panel.press("cmdViewProjectOptions");
    EXPECT_EQ(host.shown, Texts{"* options"});

    host.profile = {{"TUL",
                     {{"StartTime", "ON"},
                      {"OS", "Wx Test"},
                      {"PT", "64"},
                      {"InitialFolder", std::string(40, 'x')},
                      {"TOP", "30 twips"},
                      {"LEFT", "-15 twips"}}},
                    {"TulNames", {{"BypassFirstPanel", "YES"}}},
                    {"TulFind", {{"Last", "code 5"}}}};
    panel.press("mnuRegistry");
    EXPECT_EQ(linesIn(host.messages.back()),
              (Texts{"Registry kept by TUL utilities.", "", "StartTime: ON", "Operating System: Wx Test",
                     "Processor type: 64", "Initial folder: " + std::string(32, 'x'),
                     "Top coordinate: 30 twips", "Left coordinate: -15", "Bypass first TulNames panel: YES",
                     "Second TulNames panel tall: ", "TulFind Last: code 5"}));

    Texts details = {"TUL build date: May 1, 2026", "Current directory = " + host.folder(),
                     "Initial folder = C:\\MUSIC",  "",
                     "NAMES.TUL details:",          host.path("NAMES.TUL"),
                     "(File not existing)"};
    panel.press("frmLogoDblClick");
    EXPECT_EQ(linesIn(host.messages.back()), details);
    host.write("NAMES.TUL", "");
    details.back() = stamp("NAMES.TUL");
    panel.press("frmLogoDblClick");
    EXPECT_EQ(linesIn(host.messages.back()), details);
}

}  // namespace
}  // namespace tul
