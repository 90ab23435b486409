#include "music/pipeline.h"

#include <algorithm>

#include "base/numbers.h"
#include "base/text.h"
#include "host/host.h"
#include "music/backup.h"
#include "music/items.h"
#include "music/mus_writer.h"

namespace tul {

Pipeline pipeline;

namespace {

PageBytes page;  // one for all files, so that it has to grow once only

/// What the panel shows for as long as a step takes, however it ends.
class Activity {
  public:
    Activity(const ToolForm& form, const char* name) : isShown_(form.showsProgress) {
        if (!isShown_) return;
        pipeline.activity = name;
        pipeline.progress = {.percent = 0, .visible = true};
    }
    ~Activity() {
        if (isShown_) pipeline.progress.visible = false;
    }
    Activity(const Activity&) = delete;
    Activity& operator=(const Activity&) = delete;

  private:
    WaitingPointer pointer_;
    bool isShown_;
};

/// True when the file ends where its word count says. What stands behind that is lost in the rewriting, and
/// what is missing before it was read as zeros.
bool hasLengthOfItsCount() {
    const auto words = static_cast<std::size_t>(std::max<int>(musReader.MusWordCount, 0));
    return musReader.bytes.size() / wordBytes == words && musReader.bytes.size() % wordBytes >= headerBytes;
}

/// Appends the next item to the table. False at the end of the items, or where the structure breaks off.
bool storeNextItem(const ToolForm& form) {
    MusNextItem();
    if (musReader.MusReadState == musEndOfItems) pipeline.readWhole = hasLengthOfItsCount();
    if (musReader.MusReadState == musStructuralError && form.loop == ItemLoop::common) tellStructuralError();
    if (musReader.MusReadState != musItemReady) return false;
    if (form.showsProgress) showReading();
    yieldToEvents();
    MusStoreItem();
    return true;
}

/// The same as the bar tools do it: without a word, but for a text item that is too short for one.
bool storeNextItemAsRead() {
    if (musReader.MusWordIndex > musReader.MusWordCount) return false;
    if (atTrailer() || atShortTrailer()) {
        MusReadTrailer();
        pipeline.readWhole = hasLengthOfItsCount();
        return false;
    }
    if (!MusReadHead()) return false;
    const float code = musItem.MusPar[par::code];
    if (carriesText(code)) {
        const bool isFileName = code == code::fileName;
        const bool isShort = musItem.MusParCount < shortestTextItem;
        if (isShort && isFileName) return false;
        if (isShort) endWith("Invalid MUS file. Error type 7. Hit OK to terminate");
        MusReadTextItem(isFileName);
    } else {
        MusReadPars(2, musItem.MusParCount);
    }
    MusStoreItem();
    return true;
}

bool isWritten(const ToolForm& form, const ItemRow& row) {
    const bool dropsCode13 = form.mayDropCode13 && pipeline.dropsCode13;
    return !isDeleted(row) && !(dropsCode13 && row.pars[par::code] == code::code13);
}

/// False when a row, or their number, makes a file that cannot be read again.
bool putTableIntoPage(const ToolForm& form) {
    bool readable = true;
    page.begin();
    for (int item = 1; item <= musItemTable.itemCount; ++item) {
        ItemRow& row = musItemTable[item];
        if (!isWritten(form, row)) continue;
        if (form.countsCharacters && isText(row))
            row.pars[par::textLength] = static_cast<float>(row.text.size());
        page.item(row);
        readable = readable && canBeReadAgain(row);
    }
    page.end(musReader.MusUnitText == "(Metric)");
    return readable && page.bytes.size() <= mostPageBytes;
}

[[noreturn]] void endAtRefusal(const ToolForm& form, FileError fault) {
    const std::string& path = pipeline.currentPath;
    const std::string newLine(CrLf);
    switch (fault) {
        case FileError::readOnly:
            endWith("Attempt to rewrite Read-only file" + newLine + path + newLine + "Run canceled");
        case FileError::diskFull:
            endWith("Failed to write file " + path + ". Drive full." + newLine +
                    "The file is as it was before. Hit OK to terminate.");
        case FileError::deviceFailure:
            endWith("Failed to write file " + path + " Error code =" + str(static_cast<int>(fault)) +
                    newLine + "The file is as it was before. Hit OK to terminate.");
        default:
            endWith(std::string(form.openFailure));
    }
}

void reportFiles(Report& report, const std::string& what, const std::vector<std::string>& paths) {
    if (paths.empty()) return;
    std::string line = what;
    for (const std::string& path : paths) {
        if (&path != &paths.front()) line += ", ";
        line += fileNameOf(path);
    }
    report.line(line);
}

}  // namespace

void resetPipeline() { pipeline = {}; }

void beginPipelineRun(bool backup) {
    resetPipeline();
    pipeline.backup = backup;
}

void endPipelineRun() {
    pipeline.currentPath.clear();
    pipeline.activity.clear();
    pipeline.progress = {};
}

void showReading() {
    if (musReader.MusWordCount == 0) throw IndexFault();
    pipeline.progress.percent = musProgress();
}

void storeFile(const ToolForm& form) {
    pipeline.readWhole = false;
    if (pipeline.backup && form.takesBackup) {
        if (form.showsProgress) pipeline.activity = "Backing up";
        yieldToEvents();
        std::ignore = TakeBackup(pipeline.currentPath);  // a failure is told, and the run goes on
    }
    const Activity reading(form, "Reading");
    musItemTable.itemCount = 0;
    MusOpen(pipeline.currentPath, musReader.MusWordCount);
    if (form.loop == ItemLoop::own) {
        while (storeNextItemAsRead()) {
        }
    } else {
        while (storeNextItem(form)) {
        }
    }
    MusClose();
}

void writeFile(const ToolForm& form) {
    if (musItemTable.itemCount == 0) return;
    const Activity writing(form, "Writing");
    const bool readable = putTableIntoPage(form);
    if (const FileError fault = files().replace(pipeline.currentPath, page.bytes); fault != FileError::none)
        endAtRefusal(form, fault);
    if (!pipeline.readWhole) pipeline.incomplete.push_back(pipeline.currentPath);
    if (!readable) pipeline.unreadable.push_back(pipeline.currentPath);
}

void reportSuspectFiles(Report& report) {
    reportFiles(report, "Rewritten from an incomplete reading, items may be missing: ", pipeline.incomplete);
    reportFiles(report, "Rewritten with items that cannot be read again: ", pipeline.unreadable);
}

}  // namespace tul
