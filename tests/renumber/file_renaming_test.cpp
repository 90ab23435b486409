#include <array>

#include "centre/renaming_record.h"
#include "centre/start_up.h"
#include "renumber/new_names.h"
#include "renumber/renumber.h"
#include "renumber/renumber_run.h"
#include "shared/run_result.h"
#include "support/test.h"

namespace tul::renumber {
namespace {

/// What stands in the folder of pages, each name with the contents of its file.
using Folder = std::map<std::string, std::string>;

class FileRenaming : public PanelTest {
  protected:
    FileRenaming() { takeDefaultOptions(); }
    /// A folder of music with these files, of which those named are selected, and the panel.
    void begin(const Texts& present, const Texts& selected) {
        host.remove("music");
        host.makeFolder("music");
        for (const std::string& name : present) host.write("music/" + name, "page " + name);
        Texts names;
        for (const std::string& name : selected) names.push_back("music\\" + name);
        writeNames(names);
        host.forget();
        host.answers = {Answer::ok};
        open("renum");
    }
    void set(const std::map<std::string, std::string>& fields) {
        for (const auto& [field, value] : fields)
            EXPECT_EQ(panel.set(field, value), PanelAnswer::done) << field;
    }
    void run() { EXPECT_EQ(panel.press("cmdRenumRun"), PanelAnswer::done); }
    Folder folder() const {
        Folder found;
        for (const auto& entry : fs::directory_iterator(host.nativeFolder() / "music")) {
            const std::string name = entry.path().filename().string();
            found[name] = entry.is_directory() ? "folder" : host.read("music/" + name);
        }
        return found;
    }
    static Folder untouched(const Texts& names) {
        Folder folder;
        for (const std::string& name : names) folder[name] = "page " + name;
        return folder;
    }
    std::string inMusic(const std::string& name) const { return upperCase(host.path("music\\")) + name; }
    std::string namesFile(const Texts& names) const {
        std::string text;
        for (const std::string& name : names) text += inMusic(name) + " 1\r\n";
        return text;
    }
};

const std::string closing = "Number of files renamed/renumbered: ";
const std::string hence = "\r\nThe rename/renumber command is hence refused.";
const std::string stillOld = "\r\nThe selection has the old names and no longer fits. Select the files anew.";

TEST_F(FileRenaming, GivesTheFilesTheirNewNamesInOrder) {
    begin({"c.mus", "a.mus", "B.MUS", "left.mus"}, {"c.mus", "a.mus", "B.MUS", "a.mus"});
    set({{"txtRenumPrefixN", "08"},
         {"txtIncrement", "45"},
         {"txtRenumPrefixA", "Oper"},
         {"txtRenumSuffix", "mu2"}});
    EXPECT_EQ(shown("txtRenumOutname"), "Oper08.mu2");
    EXPECT_EQ(
        renumbering.lstRenumPreview.entries,
        Texts({"C.MUS        -> Oper08.mu2", "A.MUS        -> Oper53.mu2", "B.MUS        -> Oper98.mu2"}));
    run();
    EXPECT_EQ(folder(), Folder({{"Oper08.mu2", "page c.mus"},
                                {"Oper53.mu2", "page a.mus"},
                                {"Oper98.mu2", "page B.MUS"},
                                {"left.mus", "page left.mus"}}));
    EXPECT_EQ(host.messages,
              Texts({"Are you sure to rename 3 files to Oper08.mu2?",
                     closing + "3" + stillOld + "\r\nNamed more than once, done once: A.MUS"}));
    EXPECT_FALSE(host.exists("TULRENAM.TUL") || host.exists("TULWORK.PRN"));
}

TEST_F(FileRenaming, ASelectionFollowsWhereItIsWanted) {
    begin({"a.mus", "b.mus", "a.bku", "B.BKV"}, {"a.mus", "b.mus"});
    set({{"chkRenumFileNamesFile", "1"}});
    run();
    EXPECT_EQ(host.read("NAMES.TUL"), namesFile({"NEWNAM01.MUS", "NEWNAM02.MUS"}));
    EXPECT_EQ(selection.SelectionNames[2], inMusic("NEWNAM02.MUS"));
    EXPECT_EQ(host.messages.back(), closing +
                                        "2\r\nThe selection has been adapted.\r\n"
                                        "Backups left behind under the old names: those of 2 files.");
}

/// Nothing on the disk changes, and the message is the last.
TEST_F(FileRenaming, RefusesBeforeTheFirstRename) {
    struct Case {
        std::map<std::string, std::string> fields;
        Texts present;
        std::string message;     // %: the folder
        std::string clash = {};  // in the preview
    };
    const auto exists = [](const std::string& name) {
        return "Renaming will cause a conflict because the name %" + name + " already exists." + hence;
    };
    for (const Case& refused : std::vector<Case>{
             {{{"txtRenumPrefixA", "OPER"}, {"txtRenumPrefixN", "001"}},
              {},
              "Length of numeric prefix part [3] not equal to global option for this length [2].\r\nAdapt "
              "either, then try again."},
             {{{"txtRenumPrefixN", "99"}},
              {"NEWNAM99.MUS"},
              "Overflow will occur on incremental portion of output filename.\r\nThis will occur when "
              "renaming "
              "file %B.MUS\r\nThe rename/renumber command is hence refused.\r\nTo alleviate this, foresee "
              "more "
              "digits in the numeric part of the new filename.",
              "B.MUS        -> ?  the number needs more digits"},
             {{{"txtIncrement", "99999999999999999999"}},
              {},
              "Overflow",
              "B.MUS        -> ?  the number needs more digits"},
             {{}, {"newnam02.Mus"}, exists("NEWNAM02.MUS"), "B.MUS        -> NEWNAM02.MUS  exists already"},
             {{{"txtRenumPrefixA", "B0"}, {"txtRenumPrefixN", "00"}}, {"B000.MUS"}, exists("B000.MUS")},
             {{{"txtIncrement", "0"}},
              {},
              "The increment has to be 1 or more, or all files would get the same name." + hence},
             {{{"txtIncrement", ""}},
              {},
              "The increment has to be 1 or more, or all files would get the same name." + hence},
             {{},
              {"NEWNAM02.BKW", "newnam02.bky"},
              "Renaming will cause a conflict because the name %NEWNAM02.MUS already has backups, the first "
              "with "
              "suffix .BKW." +
                  hence,
              "B.MUS        -> NEWNAM02.MUS  has backups of another file"},
             {{{"txtRenumSuffix", "BKU"}}, {}, "The name NEWNAM01.BKU is that of a backup"},
             {{{"txtRenumPrefixA", "F\xE9"}},
              {},
              "The name F\xE9"
              "01.MUS cannot be a file's name on every system."},
             {{{"txtRenumSuffix", ""}}, {}, "The new names need a suffix."},
             {{{"txtRenumPrefixA", "a:"}},
              {},
              "The name a:01.MUS cannot be a file's name on every system."}}) {
        Texts present = refused.present;
        present.insert(present.end(), {"a.mus", "b.mus"});
        begin(present, {"a.mus", "b.mus"});
        host.makeFolder("music/sub");
        set(refused.fields);
        Folder before = untouched(present);
        before["sub"] = "folder";
        run();
        std::string message = refused.message;
        if (const std::size_t at = message.find('%'); at != std::string::npos)
            message.replace(at, 1, inMusic(""));
        EXPECT_TRUE(host.messages.back().starts_with(message)) << host.messages.back();
        EXPECT_EQ(folder(), before) << message;
        EXPECT_EQ(runResults.back().exitStatus(), ExitStatus::refused);
        const Texts& entries = renumbering.lstRenumPreview.entries;
        EXPECT_TRUE(refused.clash.empty() || entries.back() == refused.clash) << entries.back();
    }
}

TEST_F(FileRenaming, NamesThatAreNoFilesAreTaken) {
    begin({"a.mus"}, {"a.mus"});
    host.makeFolder("music/Newnam01.mus");
    run();
    EXPECT_TRUE(contains(host.messages.back(), "already exists"));
    panel.set("txtRenumPrefixA", "COM");
    projectSettings.PageNumberLength = "1";
    panel.set("txtRenumPrefixN", "1");
    host.answers = {Answer::ok};
    run();
    EXPECT_TRUE(contains(host.messages.back(), "COM1.MUS cannot be"));
}

TEST_F(FileRenaming, ARefusedQuestionChangesNothing) {
    begin({"a.mus"}, {"a.mus"});
    host.answers = {Answer::cancel};
    run();
    EXPECT_EQ(host.messages, Texts({"Are you sure to rename to NEWNAM01.MUS?"}));
    EXPECT_EQ(folder(), untouched({"a.mus"}));
}

/// Backups that come back under the name of their page meet generations that are their own.
TEST_F(FileRenaming, BringsBackupsBack) {
    begin({"OPER07.BKU", "OPER07.BKV"}, {"OPER07.BKV"});
    set({{"txtRenumPrefixA", "OPER"}, {"txtRenumPrefixN", "07"}});
    run();
    EXPECT_EQ(folder(), Folder({{"OPER07.MUS", "page OPER07.BKV"}, {"OPER07.BKU", "page OPER07.BKU"}}));
}

/// Every file has its old or its new name, and what is told and selected is what the disk has.
TEST_F(FileRenaming, AFaultOfTheDiskIsTold) {
    const Texts names = {"a.mus", "b.mus", "c.mus"};
    int told = 0;
    for (int call = 1, hasFailed = 1; hasFailed; ++call) {
        SCOPED_TRACE(call);
        begin(names, names);
        set({{"chkRenumFileNamesFile", "1"}});
        host.faultyFiles().failAt(call, FileError::permissionDenied);
        const auto end = endOf([this] { run(); });
        hasFailed = host.faultyFiles().hasFailed() ? 1 : 0;
        host.faultyFiles().failAt(0);
        Texts present;
        for (std::size_t i = 0; i < names.size(); ++i) {
            const std::string now = "NEWNAM0" + plain(i + 1) + ".MUS";
            const bool isNew = host.exists("music/" + now);
            EXPECT_EQ(host.read("music/" + (isNew ? now : names[i])), "page " + names[i]);
            present.push_back(isNew ? now : upperCase(names[i]));
        }
        EXPECT_EQ(folder().size(), names.size());
        tellBrokenRenaming();
        if (host.exists("NAMES.TUL")) {
            EXPECT_EQ(upperCase(host.read("NAMES.TUL")), namesFile(present));
        }
        const bool failed = end || runResults.back().exitStatus() != ExitStatus::done;
        EXPECT_TRUE(failed || present == Texts({"NEWNAM01.MUS", "NEWNAM02.MUS", "NEWNAM03.MUS"}));
        if (!end && !host.shown.empty())
            told += contains(host.shown.back(), " keeps its name: the folder or the file is write-protected");
    }
    EXPECT_EQ(told, 3);
}

/// The program is gone between two renames; the next start finds out.
TEST_F(FileRenaming, TheNextStartTellsOfABrokenRun) {
    struct Killed {};
    StartUp();  // the settings of first use, which throws a selection away
    const Texts names = {"a.mus", "b.mus", "c.mus"};
    for (const bool adapts : {true, false}) {
        host.time.second = 7;
        begin(names, names);
        set({{"chkRenumFileNamesFile", adapts ? "1" : "0"}});
        host.faultyFiles().onRename = [](const std::string& to) {
            if (to.ends_with("NEWNAM03.MUS")) throw Killed();
        };
        EXPECT_THROW(run(), Killed);
        host.faultyFiles().onRename = nullptr;
        host.forget();
        host.time.second = 59;
        StartUp();
        const std::string found =
            "The renaming of 3 file(s) that began 11-21-2026 09:05:07 did not come to its end.\r\n"
            "2 with the new name, the last: B.MUS -> NEWNAM02.MUS.\r\n"
            "1 with the old name, the first: C.MUS -> NEWNAM03.MUS.\r\n";
        EXPECT_TRUE(host.said(found + (adapts ? "The selection has been adapted to the names on the disk."
                                              : "The selection has the old names.")));
        EXPECT_EQ(host.exists("NAMES.TUL"), adapts);
        if (adapts) {
            EXPECT_EQ(upperCase(host.read("NAMES.TUL")),
                      namesFile({"NEWNAM01.MUS", "NEWNAM02.MUS", "C.MUS"}));
        }
        EXPECT_FALSE(host.exists("TULRENAM.TUL"));
    }
}

TEST_F(FileRenaming, FieldsKeepWhatANameCanHave) {
    begin({"a.mus"}, {"a.mus"});
    const auto invalid = [](const std::string& text) {
        return Texts({"Input [" + text + "] has an invalid character. Assumed default name."});
    };
    const auto tooLong = [](const std::string& name, const char* then) {
        return Texts({"Total size of file name [" + name + "] exceeds 12 characters." + then});
    };
    expectKept(keepLetters, {{"OPER-1", "OPER-1"}, {"x", "x"}, {"\xC9t", "\xC9t"}});
    expectKept(keepLetters, {{"", "NEWNAM"}}, {"No input. Assumed default."});
    expectKept(keepLetters, {{"OPERETTE", "OPERET"}},
               {"Input [OPERETTE] has too many characters. Truncated."});
    for (const char letter : {'\\', '/', '*', '?', ',', ' ', '.'})
        expectKept(keepLetters, {{std::string("a") + letter, "NEWNAM"}}, invalid(std::string("a") + letter));
    const auto number = [](const std::string& typed) { return keepFirstNumber(typed, "17"); };
    expectKept(number, {{"00", "00"}, {"", ""}, {"12", "12"}});
    for (const char* typed : {"-1", " 1", "1.5", "x"})
        expectKept(number, {{typed, "01"}}, {"Counted non-digit(s) in input. Assumed 01."});
    expectKept(number, {{"12345678901234567890", "17"}},
               tooLong("NEWNAM12345678901234567890.MUS", " Input discarded."));
    expectKept(keepSuffix, {{"BKU", "BKU"}, {"", ""}});
    expectKept(keepSuffix, {{"MUSIC", "MUS"}}, {"Input exceeds 3 characters. Truncated."});
    expectKept(keepSuffix, {{"M.S", "MUS"}}, invalid("M.S"));
    fileOptions.txtRenumPrefixN = "001";
    expectKept(keepSuffix, {{"MU2", "MUS"}}, tooLong("NEWNAM001.MU2", " Assumed default name."));
    expectKept(keepIncrement, {{"10", "10"}, {"0", "0"}, {"", ""}});
    expectKept(keepIncrement, {{"-1", "1"}, {"1 ", "1"}}, {"Invalid increment. Assumed 1."});
    for (const auto& [length, letters, first, prompt] : std::vector<std::array<const char*, 4>>{
             {"1", "NEWNAM", "1", "Enter from 1 to 7 alphanumeric characters for the prefix"},
             {"4", "NEWN", "0001", "Enter from 1 to 4 alphanumeric characters for the prefix"},
             {"7", "N", "0000001", "Enter 1 alphanumeric character for the prefix"}}) {
        projectSettings.PageNumberLength = length;
        fillFileOptions();
        EXPECT_EQ(shown("txtRenumPrefixA") + " " + shown("txtRenumPrefixN"),
                  std::string(letters) + " " + first);
        EXPECT_EQ(letterPrompt(), prompt);
    }
}

}  // namespace
}  // namespace tul::renumber
