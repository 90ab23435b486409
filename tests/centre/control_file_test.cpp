#include "centre/control_file.h"

#include "support/test.h"

namespace tul {
namespace {

class ControlFile : public HostTest {
  protected:
    /// A start with this count in the file, and a limit of 101 lines.
    std::optional<int> startWith(int timesExecuted) {
        host.write("TULCNTRL.INI",
                   crlf({"MaxLogRecords=101", "TimesExecuted=" + std::to_string(timesExecuted)}));
        return endOf([] { ReadControlFile(true); });
    }
    void writeLog(int lines) {
        std::string text;
        for (int line = 1; line <= lines; ++line)
            text += "run " + std::to_string(line) + (line % 2 ? "\r\n" : "\n");
        host.write("TULLOG.LOG", text);
    }
};

TEST_F(ControlFile, IsReadByKeyUpToTheFirstEqualsSign) {
    host.write("TULCNTRL.INI",
               lines("[UserSettings]|maxlogrecords= 500.5|* PagePath=C:\\NO.EXE| ScorePath=C:\\NO.EXE|"
                     "LIBPATH=C:\\LIB=2|PagePath =C:\\NO.EXE|Unknown=1|no setting|BypassLibTest1=False|"
                     "BypassLibTest1=TRUE|JustPath=C:\\SCORE\\JUST.EXE |TimesExecuted=12"));
    ReadControlFile(false);
    const MachineSettings& read = machineSettings;
    EXPECT_EQ(read.MaxLogRecords, 500);
    EXPECT_EQ(read.TimesExecuted, 12);
    EXPECT_EQ(read.PagePath + read.ScorePath + read.ScoreFolder, "") << "a blank begins a comment";
    EXPECT_EQ(read.LibPath, "C:\\LIB=2");
    EXPECT_EQ(read.JustPath, "C:\\SCORE\\JUST.EXE ");
    EXPECT_TRUE(read.BypassLibTest1) << "the last of two counts";
    for (const auto& [path, folder] :
         {std::pair{"C:\\SCORE\\SCORE.EXE", "C:\\SCORE\\"}, {"SCORE.EXE", "SCORE.EXE"}}) {
        host.write("TULCNTRL.INI", lines(std::string("MaxLogRecords=101|ScorePath=") + path));
        ReadControlFile(false);
        EXPECT_EQ(read.ScoreFolder, folder);
    }
}

TEST_F(ControlFile, IsRewrittenInItsOwnOrderWithoutWhatItDoesNotKnow) {
    const std::string settings = lines(
        "MaxLogRecords=1000|WorkDrive=a|ScorePath=b|PagePath=c|ScorlasPath=d|JustPath=e|libPath=f|"
        "hlpPath=g|PreferenceFilePath=h|AFMfilesPath=i|NotepadPath=j|WordpadPath=k|"
        "ScoreEngineProgramPath=l|WinScoreProgramPath=m|WinScoreScorLibPath=n|WinScoreFontLibPath=o|"
        "WinScorePrefPath=p|BypassLibTest1=False|ACCSPath=q|LJPath=r|BeamPath=s|MidiScorPath=t|"
        "LascorPath=u|Seps4idProgramPath=v");
    const Texts known = linesIn(settings);
    identity.ComputerName = "DESK";
    identity.OsCode = "Wx Test";
    identity.ProcessorBits = "64";
    host.write("TULCNTRL.INI", "* mine\r\nOther=1\r\n" + crlf({known.rbegin(), known.rend()}));
    ReadControlFile(true);
    const std::string text = host.read("TULCNTRL.INI");
    EXPECT_TRUE(
        text.ends_with("\r\nTimesExecuted=1\r\nLastVersionExecuted=\r\n[UserSettings]\r\n" + settings));
    EXPECT_TRUE(text.starts_with(
        "[TulVariables]\r\nFirstExecuted=\r\nLastExecuted=11-21-2026,09:05:07,DESK,Wx,64\r\n"));
}

TEST_F(ControlFile, EndsTheProgramWhenItCannotBeUsed) {
    EXPECT_EQ(host.fatal([] { ReadControlFile(false); }), "Failed to open TULCNTRL.INI. Hit OK to terminate");
    host.write("TULCNTRL.INI", "NotepadPath=notepad.exe\r\n");
    EXPECT_EQ(endOf([] { ReadControlFile(false); }), 1) << "no limit of the log is a limit of 0";
    EXPECT_EQ(startWith(100), 1);
    EXPECT_EQ(host.messages.back(),
              "Failed to open" + host.path("TULLOG.LOG") + " for input. Hit OK to terminate");
    EXPECT_EQ(endOf([] { ReadControlFile(true); }), std::nullopt) << "this start was counted";
    host.faultyFiles().refusals["TULCNTRL.INI"] = FileError::readOnly;
    EXPECT_EQ(startWith(100), 1);
    EXPECT_EQ(host.messages.back(), "Failed to rewrite TULCNTRL.INI. Hit OK to terminate.");
}

TEST_F(ControlFile, LetsALogThatIsTooLongGoEveryHundredthStart) {
    const auto isCycled = [this](int count, int lines, const std::string& more = {}) {
        writeLog(lines);
        host.write("TULLOG.LOG", host.read("TULLOG.LOG") + more);
        EXPECT_EQ(startWith(count), std::nullopt);
        return !host.exists("TULLOG.LOG");
    };
    for (const int count : {0, 1, 99, 101, 110, 1001}) EXPECT_FALSE(isCycled(count, 102)) << count;
    for (const int lines : {0, 100, 101}) EXPECT_FALSE(isCycled(100, lines)) << lines;
    EXPECT_TRUE(host.messages.empty() && !host.exists("TULLOG.BKP"));
    EXPECT_TRUE(isCycled(100, 101, "a last line without an end counts"));
    for (const int count : {100, 200, 1000, 12300}) EXPECT_TRUE(isCycled(count, 102)) << count;
    EXPECT_EQ(host.messages.back(),
              "Cycled logging file " + host.path("TULLOG.LOG") + " and saved previous to TULLOG.BKP");
    EXPECT_FALSE(isCycled(99, 102));
    ReadControlFile(true);
    EXPECT_FALSE(host.exists("TULLOG.LOG")) << "the start after the one that counted to 100";
}

TEST_F(ControlFile, PutsTheBackupOfTheLogIntoTheCurrentFolderOrTellsThatItCannot) {
    host.makeFolder("work");
    for (const char* name : {"TULLOG.BKP", "work/TULLOG.BKP"}) host.write(name, name);
    files().enterIfThere(host.path("work"));
    writeLog(102);
    const std::string log = host.read("TULLOG.LOG");
    startWith(100);
    EXPECT_EQ(host.read("work/TULLOG.BKP"), log) << "the backup before it is lost";
    EXPECT_EQ(host.read("TULLOG.BKP"), "TULLOG.BKP");
    host.remove("work/TULLOG.BKP");
    host.makeFolder("work/TULLOG.BKP");
    writeLog(102);
    startWith(100);
    EXPECT_TRUE(host.exists("TULLOG.LOG"));
    EXPECT_EQ(host.messages.back(), "Logging file " + host.path("TULLOG.LOG") +
                                        " is too long and could not be saved to TULLOG.BKP");
}

}  // namespace
}  // namespace tul
