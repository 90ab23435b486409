#include "centre/global_options.h"

#include "centre/main_panel.h"
#include "centre/project_options.h"
#include "centre/start_up.h"
#include "support/test.h"

namespace tul {
namespace {

class OptionsPanel : public PanelTest {
  protected:
    OptionsPanel() {
        host.makeFolder("LIB");
        host.write("LIB/CODE9.DAT", "3001 dot\r\n3002 line\r\n");
        writeFont("LIB/FM05.PSC", "Sonata", '\x81', 694);
        writeFont("LIB/FM42.PSC", "Times Roman", '\x81', 694);
        writeFont("LIB/FM43.PSC", "no mark", '\x80', 694);
        writeFont("LIB/FM44.PSC", "too long", '\x81', 695);
        host.write("TULCNTRL.INI", crlf({"LastVersionExecuted=v8.0.0.200", "MaxLogRecords=1000",
                                         "libPath=" + host.path("LIB"), "BypassLibTest1=True",
                                         "ScoreEngineProgramPath=" + host.path("ScoreEngineDispatch.EXE")}));
    }

    void writeFont(const std::string& file, std::string name, char mark, std::size_t length) {
        name = std::string("\x4B") + mark + name;
        name.resize(30, ' ');
        name.resize(length, 'm');
        host.write(file, name);
    }
    /// A start of the program with this options file, and the panel opened.
    void open(const Texts& options) {
        host.write("TULPROJ.PRO", crlf(options));
        open();
    }
    void open() {
        StartUp();
        PanelTest::open("options");
    }
    /// What the file then says of a key; nothing when it has no such line.
    std::string written(const std::string& key) {
        panel.press("cmdGlobalOptionsReturn");
        panel.load();  // opened again for what follows
        for (const std::string& line : linesIn(host.read("TULPROJ.PRO")))
            if (line.starts_with(key + "=")) return line.substr(key.size() + 1);
        return "(no line)";
    }
};

TEST_F(OptionsPanel, WritesEveryKeyInItsOrder) {
    open();
    panel.press("cmdGlobalOptionsReturn");
    EXPECT_EQ(host.read("TULPROJ.PRO"),
              lines("* Global TUL Options last updated 11-21-2026 at 09:05:07 by v8.0.0.200|"
                    "Project=Installation verification|MusDirectory=" +
                    host.folder() + "|Code9Path=" + host.path("LIB\\CODE9.DAT") +
                    "|NamesFile=NAMES.TUL|PreferedSuffix=MUS|PageNumberPlace=SideTop|PageNumberFont=0|"
                    "PageNumberSize=201.1|PageNumberLength=2|BarNumberPlace=First|BarNumberFont=1|"
                    "BarNumberSize=201|RehearsalFont=0|RehearsalSize=1|PlateNumber=|PlateNumberFont=_00|"
                    "PlateNumberSize=.8|FingerFontLH=0|FingerSizeLH=.75|FingerFontRH=_26|FingerSizeRH=.75|"
                    "LyricsFont=_00|LyricsSize=1|StaffRange=32|PanelPreference=0|BypassDecimalTest=0|"
                    "BypassPlatformTest=0|TulSplitDOS=False|TulSplitWindows=True|TulInputDOS=True|"
                    "TulInputWindows=False|WarnOnPathLength=0|FontPreference=PSC|ScoreEnginePreference=3"));
    EXPECT_TRUE(panel.closed());
    EXPECT_EQ(host.messages, Texts{});
}

TEST_F(OptionsPanel, KeepsWhatAHandWroteIntoTheFile) {
    const std::map<std::string, std::string> kept = {
        {"Project", "Opus 1 = first"}, {"PreferedSuffix", "PAG"},     {"PageNumberPlace", "CenterBottom"},
        {"BarNumberPlace", "Each"},    {"RehearsalFont", "12"},       {"PlateNumber", "E.P. 12"},
        {"FingerSizeRH", ".9"},        {"LyricsSize", "-12"},         {"PanelPreference", "2"},
        {"BypassDecimalTest", "1"},    {"TulInputWindows", "True"},   {"WarnOnPathLength", "1"},
        {"FontPreference", "FMT"},     {"ScoreEnginePreference", "4"}};
    Texts lines;
    for (const auto& [key, value] : kept) lines.push_back(upperCase(key) + "=" + value);
    open(lines);
    EXPECT_EQ(projectSettings.InputMode, "W");
    for (const auto& [key, value] : kept) EXPECT_EQ(written(key), value) << key;
    EXPECT_EQ(host.messages, Texts{});
    EXPECT_EQ(projectSettings.WarnOnPathLength, 1);
    EXPECT_EQ(written("RehearsalSize"), "1") << "a missing line comes back as in a new installation";
}

TEST_F(OptionsPanel, TellsUnknownKeysAndPassesOverOthers) {
    open({"* Colour=red", " Colour=red", "Colour", "Display=1", "DisplayOptions=NO", "Pref=NO",
          "Resolution=600", "NamesFile=X", "Library=X"});
    EXPECT_EQ(host.messages, (Texts{"ignored invalid command in TULPROJ.PRO: Display=1",
                                    "ignored invalid command in TULPROJ.PRO: Library=X"}));
    EXPECT_EQ(written("NamesFile"), "NAMES.TUL");
    EXPECT_EQ(written("Library"), "(no line)");
}

TEST_F(OptionsPanel, ReadsPlacesAndPreferencesInAnyCase) {
    const auto placeAfter = [this](const Texts& options) {
        open(options);
        return written("PageNumberPlace");
    };
    EXPECT_EQ(placeAfter({"PageNumberPlace=centertop"}), "CenterTop");
    EXPECT_EQ(placeAfter({"PageNumberPlace=SideBottom", "PageNumberPlace=Center"}), "CenterBottom")
        << "Center alone leaves top and bottom as they are";
    EXPECT_EQ(placeAfter({"PageNumberPlace=SideBottom", "PageNumberPlace=Left"}), "SideBottom");
    open({"BarNumberPlace=each", "BarNumberPlace=last", "StaffRange=99", "FontPreference=psc",
          "ScoreEnginePreference=x", "PanelPreference=7"});
    EXPECT_EQ(projectSettings.FontPreference, "PSC");
    EXPECT_EQ(shown("opt99"), "1");
    for (const auto& [key, value] : {std::pair{"BarNumberPlace", "Each"},
                                     {"StaffRange", "200"},
                                     {"FontPreference", "PSC"},
                                     {"ScoreEnginePreference", "4"},
                                     {"PanelPreference", "0"}})
        EXPECT_EQ(written(key), value) << key;
    EXPECT_EQ(projectSettings.StaffRange, 200) << "the tools have the written value";
    host.write("TULPROJ.PRO", "FontPreference=fmt\r\n");
    panel.load();
    EXPECT_EQ(written("FontPreference"), "FMT") << "changed on disk since the start";
}

TEST_F(OptionsPanel, ChecksWhatIsTypedAndTellsTheToolsAtOnce) {
    open();
    using Setting = std::string ProjectSettings::*;
    for (const auto& [field, typed, setting, kept] :
         std::vector<std::tuple<const char*, const char*, Setting, const char*>>{
             {"txtBarSize", ".5", &ProjectSettings::BarNumberSize, "200.5"},
             {"txtBarFont", "12", &ProjectSettings::BarNumberFont, "12"},
             {"txtPageLength", "4", &ProjectSettings::PageNumberLength, "4"},
             {"txtPreferredSuffix", "pag", &ProjectSettings::PreferedSuffix, "PAG"},
             {"txtLyricsFont", "_1", &ProjectSettings::LyricsFont, "_01"},
             {"optTulInputWindows", "1", &ProjectSettings::InputMode, "W"}}) {
        panel.set(field, typed);
        EXPECT_EQ(projectSettings.*setting, kept) << field;
    }
    panel.set("optFontPreferenceFMT", "1");
    EXPECT_EQ(written("FontPreference") + written("TulInputDOS"), "FMTFalse");
    EXPECT_EQ(host.messages, Texts{});

    panel.set("txtPreferredSuffix", "p?g");
    EXPECT_EQ(shown("txtPreferredSuffix"), "PAG");
    host.inputs = {"10"};
    EXPECT_EQ(panel.click("txtPageSize"), PanelAnswer::done);
    EXPECT_EQ(projectSettings.PageNumberSize, "201");
    EXPECT_EQ(host.messages.size(), 3U) << "the suffix, the prompt, the size";
    EXPECT_EQ(panel.click("txtCode9TextPath"), PanelAnswer::disabled);
    EXPECT_EQ(panel.set("optPanelPreference", "3"), PanelAnswer::invalid);
    panel.set("txtProjectName", "Opus 1\nStaffRange=200");
    EXPECT_EQ(written("StaffRange"), "32");
}

TEST_F(OptionsPanel, ChoosesFontsFromTheLibrary) {
    open();
    const ListBox& list = globalOptions.lstFont;
    EXPECT_EQ(list.entries, (Texts{"(cancel)", "05 - Sonata", "42 - Times Roman"}));
    EXPECT_FALSE(list.visible);
    EXPECT_EQ(panel.set("lstFont", "05 - Sonata"), PanelAnswer::done);
    EXPECT_EQ(projectSettings.LyricsFont, "_05");
    EXPECT_EQ(shown("txtFontName"), "Sonata");

    EXPECT_EQ(panel.click("txtPlateFont"), PanelAnswer::done);
    EXPECT_TRUE(list.visible);
    panel.set("lstFont", "42 - Times Roman");
    EXPECT_FALSE(list.visible);
    EXPECT_EQ(shown("txtLyricsFont"), "_05");
    panel.click("txtPlateFont");
    panel.set("lstFont", "(cancel)");
    EXPECT_FALSE(list.visible);
    panel.set("lstFont", "05 - Sonata");
    EXPECT_EQ(written("PlateNumberFont"), "_42") << "the click was taken back";
    EXPECT_EQ(written("LyricsFont"), "_05");
}

TEST_F(OptionsPanel, SetsTheInitialFolderInThreeWays) {
    open();
    EXPECT_EQ(panel.press("cmdGlobalSetFolder"), PanelAnswer::disabled) << "nothing is selected";
    host.write("page.mus", "page");
    writeNames({"page.mus"});
    open();
    panel.press("cmdGlobalSetFolder");
    EXPECT_EQ(projectSettings.MusDirectory, upperCase(host.folder()));
    EXPECT_EQ(written("MusDirectory"), upperCase(host.folder()));

    host.programs["TULFOLDR.EXE"] = [this](const std::string& arguments) {
        EXPECT_TRUE(arguments.starts_with("REMARK=Select initial MUS folder,STARTDIR="));
        host.write("TULFOLDR.TUL", "Z:\\scores\r\n");
        return 0;
    };
    panel.click("txtInitialMusFolder");
    EXPECT_EQ(shown("txtInitialMusFolder"), "Z:\\scores");
    EXPECT_EQ(host.profile["TUL"]["InitialFolder"], "Z:\\scores");
    panel.set("txtInitialMusFolder", "/home/anna");
    EXPECT_EQ(host.profile["TUL"]["InitialFolder"], *files().fromNative("/home/anna"));
    EXPECT_EQ(written("MusDirectory"), *files().fromNative("/home/anna"));
}

TEST_F(OptionsPanel, OffersTheVersionsThatAreThere) {
    const auto openWith = [this](const Texts& files) {
        for (const std::string& file : files) host.write(file, "x");
        open({"TulSplitDOS=True"});
        return shown("fraTulSplit") + "/" + shown("fraTulInput");
    };
    const std::string input = "/TulInput (Windows) - is present";
    EXPECT_EQ(openWith({}), "TulSplit - neither version is present/TulInput (Windows) - is NOT present");
    EXPECT_EQ(openWith({"TULSPLI5.EXE", "TULSPLI6.EXE", "TULINPUTW.EXE", "TULCW.EXE"}),
              "TulSplit - only the Windows version is present" + input);
    EXPECT_EQ(shown("optTulSplitWindows"), "1") << "whatever the file says";
    EXPECT_EQ(panel.set("optTulSplitDOS", "1"), PanelAnswer::disabled);
    EXPECT_EQ(openWith({"TULSPLIT.BAT", "TULSPLI1.EXE", "TULSPLI2.EXE"}),
              "TulSplit - both DOS and Windows version are present" + input);
    EXPECT_EQ(shown("optTulSplitDOS") + shown("optTulSplitWindows"), "10");
    EXPECT_EQ(panel.set("optTulSplitWindows", "1"), PanelAnswer::done);
    EXPECT_EQ(written("TulSplitDOS"), "False");
    host.remove("TULSPLI6.EXE");
    EXPECT_EQ(openWith({}), "TulSplit - only the DOS version is present" + input);

    EXPECT_EQ(panel.set("optScoreEngine4", "1"), PanelAnswer::disabled) << "no SCORE is linked";
    host.write("ScoreEngineLinkProfile.TXT", "C:\\S4\\SCOR4.EXE,1005\r\nC:\\S3\\SCORE.EXE,1005\r\n");
    openWith({});
    EXPECT_FALSE(panel.field("optScoreEngine3")->visible());
    EXPECT_EQ(panel.set("optScoreEngine4", "1"), PanelAnswer::done);
    EXPECT_EQ(written("ScoreEnginePreference"), "4");
}

TEST_F(OptionsPanel, ShowsTheFilesOfTheLibrary) {
    open();
    EXPECT_EQ(globalOptions.List1.entries,
              (Texts{"3001 dot", "3002 line", "CODE9.DAT", "FM05.PSC", "FM42.PSC", "FM43.PSC", "FM44.PSC"}));
    EXPECT_TRUE(globalOptions.List2.entries.empty());
    EXPECT_EQ(panel.command("cmdGlobalViewCode9")->toolTip(),
              "View/edit this file. Path is " + host.path("LIB\\CODE9.DAT"));
    panel.press("cmdGlobalViewCode9");
    EXPECT_EQ(host.shown, Texts{"3001 dot\r\n3002 line\r\n"});
    EXPECT_EQ(panel.press("cmdGlobalViewPref"), PanelAnswer::disabled);
}

TEST_F(OptionsPanel, LeavesTheOldFileWhereItCannotWrite) {
    open({"Project=Old"});
    panel.set("txtProjectName", "New");
    host.faultyFiles().refusals["TULPROJ.PRO"] = FileError::readOnly;
    EXPECT_EQ(host.fatal([this] { panel.press("cmdGlobalOptionsReturn"); }),
              host.path("TULPROJ.PRO") + " could not be opened for output. Hit Enter to abort");
    EXPECT_EQ(host.read("TULPROJ.PRO"), "Project=Old\r\n");
    host.remove("TULPROJ.PRO");
    EXPECT_EQ(host.fatal([this] { panel.load(); }),
              host.path("TULPROJ.PRO") + " could not be opened for input. Hit Enter to abort");
}

TEST_F(OptionsPanel, GoesBackToTheDefaultsWhenAsked) {
    open({"Project=Old"});
    EXPECT_EQ(endOf([this] { panel.press("cmdGlobalOptionsDefault"); }), std::nullopt);
    EXPECT_EQ(host.messages.back(),
              "This will reset the Global Options and terminate the program.\r\nDefault options will be "
              "created on restart of TUL.\r\nAre you sure? ");
    EXPECT_TRUE(host.exists("TULPROJ.PRO"));
    host.answers = {Answer::ok};
    EXPECT_EQ(endOf([this] { panel.press("cmdGlobalOptionsDefault"); }), 0);
    EXPECT_FALSE(host.exists("TULPROJ.PRO"));
    open();
    EXPECT_EQ(shown("txtProjectName"), "Installation verification");
}

}  // namespace
}  // namespace tul
