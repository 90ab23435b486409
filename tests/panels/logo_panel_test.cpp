#include "panels/logo_panel.h"

#include "centre/main_panel.h"
#include "support/test.h"

namespace tul {
namespace {

class LogoPanel : public PanelTest {
  protected:
    LogoPanel() { open("logo"); }
    Texts press(const std::string& button, PanelAnswer answer = PanelAnswer::done) {
        host.forget();
        EXPECT_EQ(panel.press(button), answer) << button;
        return host.events;
    }
    std::string lastLaunch() const { return host.launches.empty() ? "" : host.launches.back(); }
};

TEST_F(LogoPanel, LaunchesEachUtilityInItsWay) {
    const Texts placed = {"profile TOP", "profile LEFT"};
    for (const auto& [button, command, hides, isPlaced] :
         std::vector<std::tuple<const char*, std::string, bool, bool>>{
             {"cmdFontConv", "TULFONTC.EXE CALLER=TUL,", false, false},
             {"cmdTulXref", "TULXREF.EXE", true, false},
             {"cmdTulLedger", "TULLEDGER.EXE CAN ONLY BE CALLED FROM TUL", true, true}}) {
        const std::string program = command.substr(0, command.find(' '));
        host.mayRun(program);
        Texts events = {"launch " + program};
        if (hides) events = {"wait", placed[0], placed[1], "hide", events[0], "show"};
        if (isPlaced) events.insert(events.end(), {"launch TULMONIT.EXE", placed[0], placed[1]});
        if (hides) events.emplace_back("ready");
        EXPECT_EQ(press(button), events) << button;
        EXPECT_EQ(host.launches.front(), command) << button;
    }
    for (const char* name : {"TULEPSFX.EXE", "TULXML2SCORE.EXE"}) {
        host.write(name, "x");
        host.mayRun(name);
    }
    host.mayRun("SHOWHELP.EXE");
    machineSettings.HlpPath = "C:\\HLP\\SHOWHELP.EXE A";
    for (const auto& [button, command] :
         {std::pair{"cmdTulEpsFx", "TULEPSFX.EXE CAN ONLY BE CALLED FROM TUL"},
          {"mnuHelpScore", "SHOWHELP.EXE A"},
          {"cmdXMLtoScore", "TULXML2SCORE.EXE"}}) {
        press(button);
        EXPECT_EQ(host.launches.front(), command);
    }
}

TEST_F(LogoPanel, RunsLinkedProgramsFromWhereTheyLie) {
    host.makeFolder("tools");
    machineSettings.MidiScorPath = host.path("tools\\MIDISCOR.EXE");
    host.mayRun("MIDISCOR.EXE");
    EXPECT_EQ(press("cmdMidiScor"), Texts{"launch " + machineSettings.MidiScorPath});

    machineSettings.LascorPath = host.path("tools\\LASCOR21.EXE");
    host.write("tools/LASCOR21.EXE", "x");
    host.mayRun("LASCOR21.EXE", [this] { EXPECT_EQ(files().currentFolder(), host.path("tools")); });
    press("cmdLascor");
    EXPECT_EQ(lastLaunch(), machineSettings.LascorPath);
    EXPECT_EQ(files().currentFolder(), host.folder());

    host.remove("tools/LASCOR21.EXE");
    EXPECT_EQ(endOf([this] { press("cmdLascor"); }), 1);
    EXPECT_EQ(host.messages,
              Texts{"The path to LASCOR was not defined.\r\nDefine it in TULCNTRL.INI and restart TUL."});
    EXPECT_EQ(endOf([this] { press("cmdTulEpsFx"); }), 1);
    EXPECT_EQ(host.messages, Texts{"Module " + host.path("TULEPSFX.EXE") + " not properly installed"});
}

TEST_F(LogoPanel, AnalysesAndConvertsWithALibraryOnly) {
    for (const char* name : {"TULANLI1.EXE", "TULSIB.EXE"}) host.mayRun(name);
    for (const char* name : {"TULANLIB.SUM", "TULSIB.EXE"}) host.write(name, "x");
    press("cmdAnlib");
    EXPECT_TRUE(contains(host.messages.at(0),
                         "before you can call TulAnlib.\r\nCurrent definition: [undefined]\r\n"));
    for (const auto& [path, number] : std::map<std::string, std::string>{
             {host.path("NOLIB"), "53"}, {host.path("NO\\LIB"), "76"}, {host.path("TULSIB.EXE"), "0"}}) {
        machineSettings.LibPath = path;
        press("cmdTulSib");
        EXPECT_TRUE(contains(host.messages.at(0), "call TulSib.\r\nCurrent definition: " + path + "\r\n"));
        EXPECT_TRUE(host.messages.at(0).ends_with("Debug information: " + number));
        EXPECT_TRUE(host.launches.empty());
    }
    EXPECT_TRUE(host.exists("TULANLIB.SUM"));

    machineSettings.LibPath = host.folder();
    EXPECT_EQ(press("cmdAnlib"), (Texts{"hide", "launch TULANLI1.EXE", "show"}));
    EXPECT_FALSE(host.exists("TULANLIB.SUM"));
    EXPECT_EQ(press("cmdTulSib"), (Texts{"wait", "hide", "launch TULSIB.EXE", "show", "ready"}));
    EXPECT_EQ(lastLaunch(), "TULSIB.EXE STARTDIR=,NAMESFILE=");
    host.remove("TULSIB.EXE");
    EXPECT_EQ(press("cmdTulSib"), Texts{});
}

TEST_F(LogoPanel, SplitsAsTheOptionsSay) {
    const Panel split = describeLogoPanel([](std::string_view) { return true; });  // with all panels
    const auto enabledWith = [this](const char* options) {
        host.write("TULPROJ.PRO", lines(options));
        press("cmdViewProjectOptions");
        return panel.command("cmdLogoSplit")->enabled() ? "Windows" : "DOS, which is not built";
    };
    for (const char* name : {"TULSPLI5.EXE", "TULSPLI6.EXE"}) host.write(name, "x");
    host.mayRun("TULSPLI6.EXE");
    EXPECT_STREQ(enabledWith("TulSplitDOS=True"), "Windows") << "the only one that is there";
    EXPECT_EQ(press("cmdLogoSplit"), (Texts{"hide", "launch TULSPLI6.EXE", "show"}));
    EXPECT_EQ(lastLaunch(), "TULSPLI6.EXE CALLEDBYTUL");
    for (const char* name : {"TULSPLIT.BAT", "TULSPLI1.EXE", "TULSPLI2.EXE"}) host.write(name, "x");
    EXPECT_STREQ(enabledWith("TulSplitDOS=True|TulSplitWindows=True"), "Windows");
    const auto enabled = panel.command("cmdLogoSplit")->enabled;
    host.write("TULPROJ.PRO", lines("TulSplitDOS=True|TulSplitWindows=False|Unknown=1"));
    EXPECT_TRUE(enabled()) << "the disk is not looked at to show a button";
    EXPECT_EQ(press("cmdLogoSplit"), Texts()) << "but before something is launched";
    EXPECT_FALSE(enabled());
    panel = split;
    EXPECT_EQ(press("cmdLogoSplit"),
              (Texts{"profile TOP", "profile LEFT", "wait", "open frmSplit", "ready"}));
    host.remove("TULSPLI5.EXE");
    host.write("TULPROJ.PRO", lines("TulSplitDOS=False"));
    press("cmdLogoSplit");
    EXPECT_EQ(host.opened.back(), "frmSplit") << "only the DOS version is there";
}

TEST_F(LogoPanel, OpensItsPanelsAndPretendsNone) {
    const auto pressAll = [this](const std::map<std::string, std::string>& buttons) {
        for (const auto& [button, form] : buttons)
            EXPECT_EQ(press(button), (Texts{"profile TOP", "profile LEFT", "wait", "open " + form, "ready"}));
    };
    pressAll({{"cmdValid", "frmValid"},
              {"cmdEdit", "frmEdit"},
              {"mnuAbout", "frmAbout"},
              {"cmdProjectOptions", "frmGlobalOptions"}});
    for (const char* button : {"cmdClef", "cmdLogoDur", "cmdTulSplitPreProcess"})
        press(button, PanelAnswer::disabled);
    panel = describeLogoPanel([](std::string_view) { return false; });
    for (const char* button : {"cmdValid", "cmdLogoInput"}) press(button, PanelAnswer::disabled);
    panel = describeLogoPanel([](std::string_view) { return true; });
    pressAll({{"cmdRenum", "frmRenum"}, {"cmdAccs", "frmAccs"}, {"cmdLogoInput", "frmInput"}});
    machineSettings.ScoreFolder = "C:\\SCORE\\";
    press("cmdLogoIntab");
    EXPECT_EQ(mainPanel.inputKind, 2);
    EXPECT_EQ(mainPanel.inputFilePath, "C:\\SCORE\\TULINTAB.INI");
}

TEST_F(LogoPanel, EnablesWhatWasFound) {
    EXPECT_TRUE(panel.command("cmdCombi")->enabled());
    mainPanel.enabled = {{"cmdCombi", false}, {"mnuScoreEngine", false}, {"mnuHelp", false}};
    for (const char* button : {"cmdCombi", "mnuScore", "mnuHelpTUL"}) press(button, PanelAnswer::disabled);
    mainPanel.cmdLogoInputCaption = "TulInputW";
    EXPECT_EQ(panel.command("cmdLogoInput")->caption(), "TulInputW");
    press("mnuWordpad");
    EXPECT_TRUE(panel.command("mnuWordpad")->checked());
    EXPECT_FALSE(panel.command("mnuNotepad")->checked());
}

TEST_F(LogoPanel, MovesOnTheScreenAndRemembersWhere) {
    PanelPlace& place = *panel.place;
    const auto placeAfter = [&](const char* button) {
        press(button);
        return std::pair(place.left, place.top);
    };
    EXPECT_EQ(placeAfter("frmLogoClick"), std::pair((15360 - 9000) / 2, (11520 - 6660) / 2));
    EXPECT_EQ(placeAfter("cmdTopRite"), std::pair(15360 - 9000, 0));
    EXPECT_EQ(press("Timer1"), (Texts{"profile TOP", "profile LEFT"}));
    EXPECT_EQ(host.profile["TUL"]["LEFT"], "6360");
    EXPECT_EQ(panel.command("cmdMinimize")->toolTip(), "Top = 0, Left = 6360.");
    place.top = 50;
    EXPECT_EQ(placeAfter("cmdTopLeft"), std::pair(0, 0));
    EXPECT_EQ(press("cmdMinimize"), Texts{"minimize"});
}

TEST_F(LogoPanel, ReturnsFromTheOptionsToThePreferredTab) {
    Panel options = findPanel("options")->make();
    projectSettings.PanelPreference = 2;
    host.profile["TUL"] = {{"TOP", "30"}, {"LEFT", "45"}};
    options.unload();
    EXPECT_EQ(panel.field("tabLogo")->text(), "2");
    EXPECT_EQ(mainPanel.place.left, 45);
    projectSettings.PanelPreference = 3;
    options.unload();
    EXPECT_EQ(panel.field("tabLogo")->text(), "0");
}

TEST_F(LogoPanel, ShowsTheSettingsAndTheGuide) {
    host.write("TULCNTRL.INI", "MaxLogRecords=1000\r\n");
    host.frontCaption = "TUL";
    EXPECT_EQ(press("Picture1DblClick"), Texts{"open frmNotepad"});
    EXPECT_EQ(notepadPanel.caption, host.path("TULCNTRL.INI") + " - file TUL");

    press("mnuWebsite");
    EXPECT_TRUE(host.opened.back().starts_with(host.folder() + "\\docs\\"));
    EXPECT_TRUE(host.messages.empty());
    host.canOpenDocuments = false;
    press("mnuWebsite");
    EXPECT_TRUE(host.messages.back().ends_with(" could not be opened.\r\nno browser"));
}

TEST_F(LogoPanel, TellsAboutItself) {
    Panel about = findPanel("about")->make();
    EXPECT_EQ(about.field("lblVersion")->text(), "Version 8.0.200");
    about.press("cmdDisclaimer");
    EXPECT_EQ(host.messages.size(), 1U);
    const std::string unavailable = "System Information Is Unavailable At This Time";
    about.press("cmdSysInfo");
    EXPECT_EQ(host.messages.back(), unavailable);

    host.write("MSINFO32.EXE", "x");
    host.mayRun("MSINFO32.EXE");
    host.registry["SOFTWARE\\Microsoft\\Shared Tools Location\\MSINFO"] = host.folder();
    host.messages.clear();
    about.press("cmdSysInfo");
    EXPECT_EQ(lastLaunch(), host.path("MSINFO32.EXE"));
    host.registry["SOFTWARE\\Microsoft\\Shared Tools\\MSINFO\\PATH"] = host.path("none");
    about.press("cmdSysInfo");
    EXPECT_EQ(host.launches.size(), 2U) << "the first place is passed over when nothing is there";
    EXPECT_TRUE(host.messages.empty());
    about.press("cmdAboutReturn");
    EXPECT_TRUE(about.closed());
}

TEST_F(LogoPanel, DemonstratesAnInputBoxAndKeepsNothing) {
    open("color");
    const std::string before = shown("txtColor");
    host.inputs = {"red"};
    EXPECT_EQ(panel.click("txtColor"), PanelAnswer::done);
    EXPECT_EQ(shown("txtColor"), before);
}

}  // namespace
}  // namespace tul
