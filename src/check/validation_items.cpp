#include <cstdint>
#include <string>

#include "base/numbers.h"
#include "base/text.h"
#include "centre/installation.h"
#include "centre/launching.h"
#include "check/validation.h"
#include "host/host.h"
#include "music/items.h"
#include "music/mus_reader.h"
#include "music/pipeline.h"
#include "shared/function_module.h"
#include "shared/records.h"

// The item loop of validation. It does not use `MusNextItem`: it must tell where a file fails, and get
// through items that the other tools give up on.
namespace tul::valid {

namespace {

const std::string newLine(CrLf);

/// How the handling of one item ended.
enum class ItemEnd { goOn, stop };

void inform(const std::string& text) { MsgBox(text, Buttons::ok, Icon::information); }

void informStructure(const std::string& failure, int item) {
    inform(failure + newLine + joined("Item number: ", item) + newLine + "File: " + currentPath());
}

void informNoMusFile() { inform("File " + currentPath() + " may not be a MUS file."); }

/// A failure behind which nothing can be read: told, and recovery of the items before it offered.
ItemEnd giveUp(const std::string& failure, bool mayBeNoMusFile) {
    pipeline.page.reading = Reading::broken;
    MusClose();
    const int item = musItem.MusItemNumber;
    informStructure(failure, item);
    if (mayBeNoMusFile && item == 1) informNoMusFile();
    RecoverMUS(currentPath(), item - 1);
    return ItemEnd::stop;
}

/// Asks about something that a sound file may hold but hardly means. True to go on.
bool askToContinue(const std::string& finding) {
    return MsgBox(finding + " in file " + currentPath() + newLine + joined("Item = ", musItem.MusItemNumber) +
                      newLine + newLine + "Continue?",
                  Buttons::yesNo, Icon::question) == Answer::yes;
}

/// The last answer counts: a No is taken back by a Yes to a later question on the same item.
bool checkMeaning() {
    const float code = musItem.MusPar[par::code];
    const float staff = musItem.MusPar[par::staff];
    bool goOn = true;
    if (code < lowestItemCode || code > highestItemCode) goOn = askToContinue("Found an item code <1 or >18");
    if (code == code::code13) goOn = askToContinue("Found an item code 13");
    if (!isInteger(code)) goOn = askToContinue("Found a non-integer item code (" + plain(code) + ") number");
    if (staff < 1.0F || staff > static_cast<float>(projectSettings.StaffRange))
        goOn = askToContinue(joined("Found a staff number less <1 or >", projectSettings.StaffRange));
    if (!isInteger(staff)) goOn = askToContinue("Found a non-integer staff (" + plain(staff) + ") number");
    return goOn;
}

/// What the messages pass over or only mention, but the other tools stop at. A code 15 item may be as long as
/// the file name that it holds.
bool isRefusedByTools(float code, int parameters) {
    return readsAsText(code) ? parameters < shortestTextItem : parameters > Parameters::count;
}

void readParameterItem(int parameters) {
    if (parameters > Parameters::count) {
        inform("MUS file structure error. Invalid number of parms: " + plain(parameters) + newLine +
               joined("Item number: ", musItem.MusItemNumber - 1) + newLine +
               joined("Par1=", musItem.MusPar[par::code]) + newLine + "File: " + currentPath());
        inform("Too many parameters in an item. SCORE sometimes does not reject this.");
    }
    const int kept = parameters < Parameters::count ? parameters : Parameters::count;
    MusReadPars(2, kept);
    MusSkipWords(parameters - kept);
}

ItemEnd validateItem(Report& report) {
    if (!MusReadLength()) return giveUp("MUS file structure error. Conversion error2.", false);
    const int parameters = musItem.MusParCount;
    if (parameters < shortestItem) {
        return giveUp(
            "MUS file structure error. Invalid number of parameters (" + plain(parameters) + ") in item.",
            true);
    }
    if (!MusReadCode()) {
        // The item goes on being handled, on what a closed file leaves: the words stay as they are, and the
        // index runs on until it passes the word count.
        pipeline.page.reading = Reading::broken;
        MusClose();
        informStructure("MUS file structure error. Invalid item type: " + plain(musItem.MusWord),
                        musItem.MusItemNumber);
        if (musItem.MusItemNumber == 1) informNoMusFile();
    }
    const float code = musItem.MusPar[par::code];
    if (code == code::shortText || code == code::text) {
        if (parameters < shortestTextItem)
            return giveUp("MUS file structure error. Text length error (" + plain(parameters) + ").", true);
        MusReadTextItem(false);
    } else {
        if (isRefusedByTools(code, parameters)) pipeline.page.reading = Reading::broken;
        readParameterItem(parameters);
    }
    if (!checkMeaning()) {
        MusClose();
        report.line("(Processing discontinued by user)");
        pipeline.page.reason = "given up at a question";
        return ItemEnd::stop;
    }
    validation.view.inFile.percent = musProgress();
    yieldToEvents();
    if (!validation.view.control.isStopped()) return ItemEnd::goOn;
    MusClose();
    return ItemEnd::stop;
}

void tellNoWordCount() {
    pipeline.page.reading = Reading::broken;
    MusClose();
    inform("File " + currentPath() + " may not be a MUS file. ");
    inform("Wordcount found to be:" + str(musReader.MusWordCount));
    RecoverMUS(currentPath(), musItem.MusItemNumber);
}

void tellBeyondEnd() {
    pipeline.page.reading = Reading::broken;
    MusClose();
    informStructure("Attempt to read beyond end of file.", musItem.MusItemNumber);
    RecoverMUS(currentPath(), musItem.MusItemNumber);
}

void validateItems(Report& report) {
    if (musReader.MusWordCount < 0) return tellNoWordCount();
    while (musReader.MusWordIndex <= musReader.MusWordCount) {
        if (atTrailer() || atShortTrailer()) {
            if (atTrailer()) MusReadTrailer();
            if (pipeline.page.reading != Reading::broken) pipeline.page.reading = Reading::whole;
            return MusClose();
        }
        if (validateItem(report) == ItemEnd::stop) return;
    }
    tellBeyondEnd();
}

}  // namespace

void inputValidate(Report& report) {
    const WaitingPointer pointer;
    validation.view.inFile = {.percent = 0, .visible = true};
    MusOpen(currentPath(), musReader.MusWordCount);
    if (!musReader.isOpen) pipeline.page.reason = "could not be read";
    validateItems(report);
    validation.view.inFile = {};
}

void RecoverMUS(const std::string& path, int items) {
    const std::string program = inProgramFolder("TULRECOV.EXE");
    const Answer answer = MsgBox("At least " + plain(musProgress()) + "% (the first " + plain(items) +
                                     " items), and may be more can be recovered from file " + path + newLine +
                                     "Attempt recovery?",
                                 Buttons::okCancel, Icon::question);
    if (answer == Answer::cancel) return;
    const std::string command = program + " " + path + " " + plain(items);
    if (FileExists(program)) {
        ShellAndWait(command, {path, plain(items)});
    } else {
        inform("Program " + program + " not located." + newLine + "Recovery cannot be done." + newLine +
               "The command string is:" + newLine + command);
    }
}

}  // namespace tul::valid
