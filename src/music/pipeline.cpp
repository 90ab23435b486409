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

PageBytes pageBytes;  // one for all files, so that it has to grow once only

/// What the panel shows for as long as a step takes, however it ends.
class Activity {
  public:
    Activity(const ToolForm& form, const char* name) : view_(form.showsProgress ? pipeline.view : nullptr) {
        if (!view_) return;
        view_->activity = name;
        view_->inFile = {.percent = 0, .visible = true};
    }
    ~Activity() {
        if (view_) view_->inFile.visible = false;
    }
    Activity(const Activity&) = delete;
    Activity& operator=(const Activity&) = delete;

  private:
    WaitingPointer pointer_;
    RunView* view_;
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
    if (musReader.MusReadState == musEndOfItems) pipeline.page.reading = readingSoFar();
    if (musReader.MusReadState == musStructuralError && form.loop == ItemLoop::common) tellStructuralError();
    if (musReader.MusReadState != musItemReady) return false;
    if (form.showsProgress) showReading();
    yieldToEvents();
    if (!form.endsWhenFull && musItemTable.itemCount == MusItemTable::capacity) {
        pipeline.page.lacksRoom = true;
        return false;
    }
    MusStoreItem();
    return true;
}

/// The same as the bar tools do it: without a word, but for a text item that is too short for one.
bool storeNextItemAsRead() {
    if (musReader.MusWordIndex > musReader.MusWordCount) return false;
    if (atTrailer() || atShortTrailer()) {
        MusReadTrailer();
        pipeline.page.reading = hasLengthOfItsCount() ? Reading::whole : Reading::broken;
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
    pageBytes.begin();
    for (int item = 1; item <= musItemTable.itemCount; ++item) {
        ItemRow& row = musItemTable[item];
        if (!isWritten(form, row)) continue;
        if (form.countsCharacters && isText(row))
            row.pars[par::textLength] = static_cast<float>(row.text.size());
        pageBytes.item(row);
        readable = readable && canBeReadAgain(row);
    }
    pageBytes.end(musReader.MusUnitText == "(Metric)");
    return readable && pageBytes.bytes.size() <= mostPageBytes;
}

[[noreturn]] void endAtRefusal(const ToolForm& form, FileError fault) {
    const std::string& path = currentPath();
    const std::string newLine(CrLf);
    pipeline.page.reason = "it could not be replaced";
    switch (fault) {
        case FileError::readOnly:
            pipeline.page.reason = "read-only";
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

/// A page that was changed since its reading has another owner's work in it.
bool isAsRead() {
    const auto present = files().info(currentPath());
    return present && pipeline.pageAsRead && pipeline.pageAsRead->isSameAs(*present);
}

}  // namespace

void showActivity(const std::string& name) {
    if (pipeline.view) pipeline.view->activity = name;
    yieldToEvents();
}

void showReading() {
    if (musReader.MusWordCount == 0) throw IndexFault();
    if (pipeline.view) pipeline.view->inFile.percent = musProgress();
}

Reading readingSoFar() {
    const bool atEnd = musReader.MusReadState == musEndOfItems;
    return atEnd && hasLengthOfItsCount() ? Reading::whole : Reading::broken;
}

void storeFile(const ToolForm& form) {
    PageResult& page = pipeline.page;
    page.reading = Reading::broken;
    if (pipeline.backup && form.takesBackup) {
        if (form.showsProgress && pipeline.view) pipeline.view->activity = "Backing up";
        yieldToEvents();
        page.lacksBackup = !TakeBackup(page.path);
    }
    const Activity reading(form, "Reading");
    musItemTable.itemCount = 0;
    pipeline.pageAsRead = files().info(page.path);
    MusOpen(page.path, musReader.MusWordCount);
    if (!musReader.isOpen) page.reason = "could not be read";
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
    PageResult& page = pipeline.page;
    const Activity writing(form, "Writing");
    const bool readable = putTableIntoPage(form);
    if (!isAsRead()) {
        page.reason = "changed by another program since it was read";
        return;
    }
    if (const FileError fault = files().replace(page.path, pageBytes.bytes); fault != FileError::none)
        endAtRefusal(form, fault);
    page.isWritten = true;
    page.isReadable = readable;
}

}  // namespace tul
