#include <array>
#include <stdexcept>

#include "base/numbers.h"
#include "edit/edit_run.h"
#include "host/interrupt.h"
#include "music/pipeline.h"
#include "shared/run_result.h"
#include "support/test.h"

namespace tul {
namespace {

/// A tool's panel, its buttons, and the fields that are set before a run.
struct Tool {
    const char* panel;
    std::string buttons;
    std::vector<std::pair<const char*, const char*>> settings = {};
};
const std::vector<Tool> tools = {
    {"valid", "cmdValidate"},
    {"pmx", "cmdPmx"},
    {"resiz", "cmdResize", {{"tabResiz", "staves"}, {"txtResizeStaffSize", "0.5"}}},
    {"renum", "cmdRenum", {{"tabRenum", "bars"}, {"optRenumBarNone", "1"}}},
    {"edit",
     "cmdEdit",
     {{"tabEdit", "text"}, {"txtEditSearchString1", "ab"}, {"txtEditSearchString2", "xy"}}}};
const std::vector<Tool> writers = {tools[2], tools[3], tools[4]};

constexpr int staves = 80;
/// A text of 8 characters, and so many staves that a run lets events through at every page.
std::string page(float staffSize, const char* text) {
    std::string items = words({15, 16, 1, 0, 0, 0, 1, 0, 0, 0, 0, 0, 8, 0}) + text;
    for (int count = 0; count < staves; ++count) items += words({6, 8, 1, 0, 0, staffSize, 200});
    return pageOf(items);
}
/// Of the old page.
std::string pmx() {
    std::string text = lines("t   1  0000.0000  0000.0000  0000.0000  0001.0000|_00abcde");
    for (int count = 0; count < staves; ++count)
        text += lines(" 8  1  0000.0000  0000.0000  0001.0000  0200.0000");
    return text;
}
const std::string oldPage = page(1, "_00abcde");

/// Runs of each tool over three pages of the same items.
class ToolRuns : public PanelTest {
  protected:
    /// The tool's panel as a new process opens it, and nothing but the old pages on disk.
    void begin(const Tool& chosen, const Texts& selected = {"a.mus", "b.mus", "c.mus"}) {
        tool = chosen;
        for (const auto& entry : fs::directory_iterator(host.nativeFolder()))
            if (const auto suffix = entry.path().extension(); suffix != ".EXE") fs::remove(entry.path());
        for (const char* name : names) host.write(name, oldPage);
        writeNames(selected);
        runResults.clear();
        setInterrupted(false);
        host.forget();
        host.onYield = nullptr;
        open(tool.panel);
        for (const auto& [field, value] : tool.settings)
            EXPECT_EQ(panel.set(field, value), PanelAnswer::done);
    }
    void run() { EXPECT_EQ(panel.press(tool.buttons + "Run"), PanelAnswer::done); }
    /// What the run said of single pages, and its status.
    void expectTold(const std::string& line, ExitStatus status) {
        ASSERT_EQ(host.shown.size(), 1U) << tool.panel;
        EXPECT_TRUE(contains(host.shown.front(), "\r\n" + line + "\r\n"));
        EXPECT_EQ(runResults.back().exitStatus(), status) << tool.panel;
    }
    /// Nothing is left of a run, however it ended, and the panel can be left.
    void expectIdle() {
        EXPECT_FALSE(panel.busy());
        EXPECT_TRUE(pipeline.page.path.empty() && !pipeline.view);
        host.onYield = nullptr;
        EXPECT_EQ(panel.press(tool.buttons + "Return"), PanelAnswer::done);
        EXPECT_TRUE(panel.closed()) << tool.panel;
    }
    static bool isAt(const std::string& number) {
        return runView().status.starts_with("File being processed: " + number);
    }
    static const RunView& runView() { return *pipeline.view; }

    /// The pages, and what the tool has made of them; less than all of it only where that was told.
    void expectOldOrNew(bool isTold) const {
        const std::string form = tool.panel;
        for (const std::string name : names) {
            const std::string now = host.read(name);
            const std::string stem = upperCase(name.substr(0, 1));
            const bool isNew = now == renewed() && host.read(stem + ".BKU") == oldPage;
            const bool isDone =
                form == "valid" || (form == "pmx" ? host.read(stem + ".PMX") == pmx() : isNew);
            EXPECT_TRUE(now == oldPage || now == renewed());
            EXPECT_TRUE(isTold || isDone) << name;
        }
    }
    /// What a run leaves that nobody disturbs.
    std::string renewed() const {
        const std::string form = tool.panel;
        return page(form == "resiz" ? 0.5F : 1, form == "edit" ? "_00xycde" : "_00abcde");
    }

    static constexpr std::array names = {"a.mus", "b.mus", "c.mus"};
    Tool tool;
};

TEST_F(ToolRuns, AFaultOfTheDiskLeavesPagesOldOrNewAndIsTold) {
    for (const Tool& chosen : tools)
        for (const FileError fault : {FileError::deviceFailure, FileError::diskFull})
            for (int call = 1, hasFailed = 1; hasFailed; ++call) {
                SCOPED_TRACE(std::string(chosen.panel) + ", call " + plain(call));
                begin(chosen);
                host.faultyFiles().failAt(call, fault);
                const std::optional<int> end = endOf([this] { run(); });
                hasFailed = host.faultyFiles().hasFailed() ? 1 : 0;
                host.faultyFiles().failAt(0);
                EXPECT_TRUE(!end || (end == 1 && !host.messages.empty()));
                expectOldOrNew(end || runResults.back().exitStatus() != ExitStatus::done);
                expectIdle();
            }
}

TEST_F(ToolRuns, NothingBeginsWithoutASelection) {
    for (const Tool& chosen : tools) {
        begin(chosen);
        EXPECT_TRUE(isEnabled(tool.buttons + "Run") && isEnabled(tool.buttons + "View"));
        for (const char* name : names) host.remove(name);
        panel.press(tool.buttons + "View");  // which discards a selection that is not there any more
        for (const char* button : {"Run", "View"})
            EXPECT_EQ(panel.press(tool.buttons + button), PanelAnswer::disabled) << tool.panel;
    }
    EXPECT_EQ(shown("txtEditFile"), "Names file NAMES.TUL has 0 filenames");
    open("valid");
    EXPECT_EQ(shown("panValidFileName"), "");
}

TEST_F(ToolRuns, NothingBeginsWithoutAReport) {
    for (const auto& [number, report, told] : std::vector<std::tuple<std::size_t, const char*, std::string>>{
             {0, "TULVALID.PRN", "File ? could not be opened for output. Hit OK to abort."},
             {1, "TULPMX.PRN", "Open error in FRMPMX.FRM ?, Error code= 70"},
             {2, "TULWORK.PRN", "Failed to open ? for output"},
             {3, "TULWORK.PRN", "Failed to open ? for output"},
             {4, "TULEDIT.PRN", "Failed to open ? for output"}}) {
        begin(tools[number]);
        host.faultyFiles().refusals = {{report, FileError::permissionDenied}};
        const std::optional<int> end = endOf([this] { run(); });
        host.faultyFiles().refusals.clear();
        EXPECT_EQ(end.has_value(), number != 1) << "one of them tells it and goes on";
        std::string message = told;
        EXPECT_EQ(host.messages, Texts{message.replace(told.find('?'), 1, host.path(report))});
        EXPECT_EQ(host.read("a.mus"), oldPage);
        EXPECT_FALSE(host.exists("A.BKU") || host.exists("A.PMX"));
        expectIdle();
    }
}

TEST_F(ToolRuns, ShowWhatTheyDoAndTakeNothingMeanwhile) {
    for (const Tool& chosen : tools) {
        begin(chosen);
        int progress = 0;
        host.onYield = [&] {
            for (const Field& field : panel.fields)
                EXPECT_TRUE(field.isReadOnly() || !panel.isEnabled(field)) << field.name;
            for (const Command& command : panel.commands)
                EXPECT_EQ(panel.isEnabled(command), command.name == tool.buttons + "Return") << command.name;
            EXPECT_EQ(panel.command(tool.buttons + "Return")->caption(), "Cancel");
            EXPECT_TRUE(runView().overFiles.visible && runView().file == pipeline.page.path);
            progress += runView().inFile.visible && runView().inFile.percent > 0;
        };
        run();
        EXPECT_GT(progress, 0) << chosen.panel;
        expectIdle();
    }
}

TEST_F(ToolRuns, AFaultOfTheProgramBreaksTheRunAndNotThePanel) {
    for (const Tool& chosen : tools) {
        begin(chosen);
        host.onYield = [this] {
            if (isAt("2")) throw std::runtime_error("fault");
        };
        EXPECT_THROW(run(), std::runtime_error);
        EXPECT_EQ(runResults.back().end, RunEnd::broken);
        EXPECT_EQ(runResults.back().brokenAt, upper("b.mus"));
        EXPECT_EQ(runResults.back().exitStatus(), ExitStatus::fatal);
        EXPECT_EQ(host.read("b.mus"), oldPage);
        expectIdle();
    }
}

TEST_F(ToolRuns, AStopFinishesThePageInWork) {
    for (const Tool& chosen : writers)
        for (const bool byInterrupt : {false, true}) {
            begin(chosen);
            host.onYield = [&] {
                if (!isAt("2")) return;
                if (byInterrupt)
                    setInterrupted(true);
                else
                    panel.press(tool.buttons + "Return");
            };
            run();
            EXPECT_EQ(host.read("a.mus") + host.read("b.mus"), renewed() + renewed());
            EXPECT_EQ(host.read("c.mus"), oldPage);
            EXPECT_FALSE(host.exists("C.BKU"));
            expectTold("Stopped by the user behind B.MUS, file 2 of 3.", ExitStatus::stopped);
            EXPECT_FALSE(panel.closed());
            expectIdle();
        }
}

TEST_F(ToolRuns, APageThatAnotherProgramHasChangedMeanwhileIsLeftToIt) {
    for (const Tool& chosen : writers) {
        begin(chosen);
        const std::string other = page(2, "_00abother  ");
        host.onYield = [&] {
            if (isAt("2") && runView().activity == "Reading") host.write("b.mus", other);
        };
        run();
        EXPECT_EQ(host.read("b.mus"), other);
        EXPECT_EQ(host.read("a.mus") + host.read("c.mus"), renewed() + renewed());
        expectTold("Not done: B.MUS (changed by another program since it was read)", ExitStatus::notAllDone);
    }
}

TEST_F(ToolRuns, APageThatIsNamedTwiceIsDoneOnce) {
    for (const Tool& chosen : tools) {
        begin(chosen, {"a.mus", "b.mus", "a.mus"});
        run();
        expectTold("Named more than once, done once: A.MUS", ExitStatus::done);
        EXPECT_EQ(runResults.back().pages.size(), 2U);
        EXPECT_FALSE(host.exists("A.BKV"));
    }
}

/// Changes the staff of a page, and meets an item that it cannot do in the second one.
class HalfWay : public edit::FamilyRun {
    void updateFile(const PageInRun& page) override {
        musItemTable[1].text = "_00xycde";
        ++page.result.changes;
        if (page.number == 2) throw IndexFault();
        for (int item = 2; item <= musItemTable.itemCount; ++item) musItemTable[item].pars[5] = 0.5F;
    }
    void writeCounters(Report&, const RunResult&) const override {}
};

TEST_F(ToolRuns, AnUpdateThatBreaksOffIsWrittenAsFarAsItCameAndTold) {
    begin(writers[1]);
    edit::FamilyRuns families;
    families.push_back(std::make_unique<HalfWay>());
    edit::runFamilies("Half way", std::move(families));
    EXPECT_EQ(host.read("a.mus"), page(0.5F, "_00xycde"));
    EXPECT_EQ(host.read("b.mus"), page(1, "_00xycde"));
    expectTold("The edit broke off at an item, and left the rest as it was: B.MUS", ExitStatus::notAllDone);
}

}  // namespace
}  // namespace tul
