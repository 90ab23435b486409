#include <string>

#include "base/numbers.h"
#include "base/text.h"
#include "companions/companion.h"
#include "companions/recovery.h"
#include "host/talk.h"
#include "music/backup.h"
#include "shared/function_module.h"

// Puts what can be read of a damaged page into its place: TULRECOV.EXE PATH ITEMS, where the first ITEMS
// items are known to be good. The path may hold blanks. Nothing is touched before a backup generation is
// there.
namespace {

using namespace tul;

int refuse(const std::string& why) { return companion::refuse("TULRECOV", why); }

std::string reportOf(const recovery::Recovery& result, int promised) {
    std::string lines;
    const auto say = [&lines](const std::string& line) { lines += line + '\n'; };
    const std::string of = result.kept < promised ? " of " + plain(promised) : "";
    say("Items kept:        " + plain(result.kept) + of + (result.lastIsCut ? ", the last one is cut" : ""));
    const std::string mended =
        result.mended > 0 ? ", with a wrong length put right: " + plain(result.mended) : "";
    say("Items found again: " + plain(result.found) + mended);
    if (result.lost == 0) {
        say("Items lost:        none");
    } else {
        say("Items lost:        at least " + plain(result.lost) + " (" + plain(result.lostBytes) + " bytes)");
    }
    if (result.tooLong > 0)
        say("Items kept with more than 20 parameters, where the other tools stop reading: " +
            plain(result.tooLong));
    return lines;
}

/// The backup first: without one the page is not touched.
int replacePage(const std::string& path, const recovery::Recovery& result, int promised) {
    const NextGeneration backup = nextGenerationOf(path);
    if (!backup.refusal.empty()) return refuse(backup.refusal);
    if (const FileError fault = files().copyToNew(path, backup.path); fault != FileError::none)
        return refuse(failedBackupText(path, fault) + std::string(CrLf) + "The page was not changed.");
    if (const FileError fault = files().replace(path, result.page); fault != FileError::none)
        return refuse(
            "the page could not be written and stays as it was: " + path + " (" +
            (fault == FileError::readOnly ? "read-only" : "error code" + str(static_cast<int>(fault))) +
            "). A copy of it is now " + backup.path);
    companion::report("TULRECOV", "Recovered " + path + "\nBackup:            " + backup.path + "\n" +
                                      reportOf(result, promised));
    return companion::done;
}

}  // namespace

int main(int argc, char** argv) {
    const companion::Companion machine;
    const std::string words(trim(argumentText(argc, argv)));
    const std::size_t blank = words.rfind(' ');
    const std::string number = blank == std::string::npos ? "" : words.substr(blank + 1);
    const auto items = isWholeNumber(number) ? toInt16(numericValue(number)) : std::nullopt;
    if (!items || *items < 0)
        return refuse("a page and the number of its good items are needed, such as PAGE.MUS 57.");
    const std::string given(trim(words.substr(0, blank)));
    const std::string path = files().fromNative(given).value_or(given);

    std::string bytes;
    if (!FileExists(path) || files().read(path, bytes, recovery::mostBytes) != FileError::none)
        return refuse("the page could not be read: " + path);
    const recovery::Recovery result = recovery::recover(bytes, *items);
    if (result.sound) {
        companion::report("TULRECOV", path + " is not damaged: " + plain(result.items()) +
                                          " items. Nothing was changed.\n");
        return companion::done;
    }
    if (result.items() == 0) return refuse("no items of music were found; nothing was changed: " + path);
    return replacePage(path, result, *items);
}
