#include "renumber/new_names.h"

#include <algorithm>
#include <cstdint>
#include <optional>
#include <string_view>
#include <unordered_set>
#include <utility>

#include "base/numbers.h"
#include "base/text.h"
#include "host/host.h"
#include "music/backup.h"
#include "renumber/renumber_run.h"
#include "shared/records.h"

namespace tul::renumber {

FileOptions fileOptions;

namespace {

const std::string newLine(CrLf);
constexpr int longestBase = 8;  // of a file name, before its suffix
constexpr std::size_t longestSuffix = 3;
constexpr std::size_t longestName = 12;
constexpr std::string_view defaultLetters = "NEWNAME";
constexpr std::string_view defaultNumber = "0000001";
constexpr const char* defaultSuffix = "MUS";
constexpr std::string_view notInFields = "\\/*?, .";
/// What Windows has in no file name either, as it has no full stop at the end.
constexpr std::string_view notInNames = ":\"<>|";
constexpr std::uint64_t mostNumber = 1'000'000'000'000'000'000;

std::size_t longestLetters() {
    return static_cast<std::size_t>(std::clamp(longestBase - numberLength(), 0, longestBase));
}

std::string firstNumber() {
    const int length = std::clamp(numberLength(), 0, static_cast<int>(defaultNumber.size()));
    return std::string(defaultNumber.substr(defaultNumber.size() - static_cast<std::size_t>(length)));
}

std::string nameWith(const std::string& digits, const std::string& suffix = fileOptions.txtRenumSuffix) {
    return fileOptions.txtRenumPrefixA + digits + "." + suffix;
}

/// The value of digits; what is too long for any file name counts as very high.
std::uint64_t valueOf(const std::string& digits) {
    std::uint64_t value = 0;
    for (const char digit : digits)
        value = std::min(value * 10 + static_cast<unsigned>(digit - '0'), mostNumber);
    return value;
}

// --- What a name may be

/// COM1 and the like are devices in every folder of Windows, whatever their suffix.
bool isDevice(std::string_view name) {
    const std::string base = upperCase(name.substr(0, name.find('.')));
    for (const char* const device : {"CON", "PRN", "AUX", "NUL"})
        if (base == device) return true;
    const bool isPort = base.starts_with("COM") || base.starts_with("LPT");
    return isPort && base.size() == 4 && base[3] >= '1' && base[3] <= '9';
}

/// Beyond ASCII each system has its own bytes for a letter, and DOS programs such as SCORE have others again.
bool isPrintable(char character) { return character >= ' ' && character <= '~'; }

bool canBeName(const std::string& name) {
    return !name.ends_with('.') && name.find_first_of(notInNames) == std::string::npos &&
           std::all_of(name.begin(), name.end(), isPrintable) && !isDevice(name);
}

bool haveSameSeries(const std::string& path, const std::string& other) {
    const BackupSeries series = backupSeriesOf(path);
    const BackupSeries otherSeries = backupSeriesOf(other);
    return series.base == otherSeries.base && upperCase(series.folder) == upperCase(otherSeries.folder);
}

// --- The plan

/// Gives out the numbers of the series.
class Series {
  public:
    /// Nothing once the number needs more digits than there are.
    std::optional<std::string> next() {
        std::string digits = plain(static_cast<std::int64_t>(number_));
        if (digits.size() > length_) return std::nullopt;
        digits.insert(0, length_ - digits.size(), '0');
        number_ += increment_;
        return digits;
    }

  private:
    const std::size_t length_ = fileOptions.txtRenumPrefixN.size();
    const std::uint64_t increment_ = valueOf(fileOptions.txtIncrement);
    std::uint64_t number_ = valueOf(fileOptions.txtRenumPrefixN);
};

const std::string refused = "The rename/renumber command is hence refused.";

std::string overflowText(const std::string& path) {
    return "Overflow will occur on incremental portion of output filename." + newLine +
           "This will occur when renaming file " + path + newLine + refused + newLine +
           "To alleviate this, foresee more digits in the numeric part of the new filename.";
}

/// Why a file cannot have its new name.
struct Clash {
    std::string brief;
    std::string refusal;
};
using MaybeClash = std::optional<Clash>;

MaybeClash clashWithFile(const NewName& name) {
    if (files().nameOnDisk(name.to).empty()) return std::nullopt;
    return Clash{"exists already", "Renaming will cause a conflict because the name " + name.to +
                                       " already exists." + newLine + refused};
}

MaybeClash clashOfOtherKind(const NewName& name) {
    const std::string fileName(fileNameOf(name.to));
    if (!canBeName(fileName))
        return Clash{"is no name for a file",
                     "The name " + fileName + " cannot be a file's name on every system." + newLine +
                         "Letters from A to Z, digits and hyphens can." + newLine + refused};
    if (haveSameSeries(name.from, name.to)) return std::nullopt;
    const std::string letters = backupSeriesOf(name.to).letters();
    if (letters.empty()) return std::nullopt;
    return Clash{"has backups of another file", "Renaming will cause a conflict because the name " + name.to +
                                                    " already has backups, the first with suffix .BK" +
                                                    letters.front() + "." + newLine + refused};
}

/// A generation itself leaves nothing behind that was its own.
bool leavesBackups(const NewName& name) {
    const BackupSeries series = backupSeriesOf(name.from);
    return !isBackupSuffix(series.extension) && !haveSameSeries(name.from, name.to) &&
           !series.letters().empty();
}

/// One refusal stands for all names: the first of the gravest kind.
struct Refusals {
    std::string overflow = {};
    std::string taken = {};
    std::string other = {};

    const std::string& gravest() const {
        return !overflow.empty() ? overflow : !taken.empty() ? taken : other;
    }
};

void note(const Clash& clash, NewName& name, std::string& refusal) {
    name.clash = clash.brief;
    if (refusal.empty()) refusal = clash.refusal;
}

void findClash(NewName& name, Refusals& refusals) {
    if (const MaybeClash taken = clashWithFile(name))
        note(*taken, name, refusals.taken);
    else if (const MaybeClash other = clashOfOtherKind(name))
        note(*other, name, refusals.other);
}

/// What the fields alone tell.
std::string refusalOfFields() {
    const std::size_t length = fileOptions.txtRenumPrefixN.size();
    if (static_cast<std::int64_t>(length) != numberLength())
        return "Length of numeric prefix part [" + plain(length) +
               "] not equal to global option for this length [" + plain(numberLength()) + "]." + newLine +
               "Adapt either, then try again.";
    if (valueOf(fileOptions.txtIncrement) == 0)
        return "The increment is 0, so that all files would get the same name." + newLine + refused;
    return {};
}

// --- The preview

std::string entryOf(const NewName& name) {
    std::string entry = nameInPreview(name.from) + " -> ";
    entry += name.to.empty() ? "?" : std::string(fileNameOf(name.to));
    if (!name.clash.empty()) entry += "  " + name.clash;
    if (name.leavesBackups) entry += "  leaves its backups behind";
    return entry;
}

// --- Fields

void tell(const std::string& text) { MsgBox(text, Buttons::ok, Icon::exclamation); }

bool isInvalid(const std::string& text) { return text.find_first_of(notInFields) != std::string::npos; }

std::string truncated(const std::string& typed, std::size_t length, const std::string& message) {
    if (typed.size() <= length) return typed;
    tell(message);
    return typed.substr(0, length);
}

/// What is said of a name that is too long for one; empty where it is not.
std::string oversizeText(const std::string& name) {
    if (name.size() <= longestName) return {};
    return "Total size of file name [" + name + "] exceeds 12 characters.";
}

}  // namespace

std::vector<std::string> filesToRename() {
    std::vector<std::string> paths;
    std::unordered_set<std::string> known;
    for (const std::string& path : selection.SelectionNames)
        if (known.insert(path).second) paths.push_back(path);
    return paths;
}

NamePlan planNames() {
    Refusals refusals;
    NamePlan plan;
    Series series;
    for (const std::string& path : filesToRename()) {
        NewName& name = plan.names.emplace_back(NewName{.from = path});
        const auto digits = series.next();
        if (!digits) {
            note({"the number needs more digits", overflowText(path)}, name, refusals.overflow);
            continue;
        }
        name.to = selection.SelectionPrefix + nameWith(*digits);
        findClash(name, refusals);
        name.leavesBackups = leavesBackups(name);
    }
    plan.refusal = refusalOfFields();
    if (plan.refusal.empty()) plan.refusal = refusals.gravest();
    return plan;
}

void fillFileOptions() {
    fileOptions.txtRenumPrefixA =
        std::string(defaultLetters.substr(0, std::min<std::size_t>(longestLetters(), 6)));
    fileOptions.txtRenumPrefixN = firstNumber();
    showFirstName();
}

void showFirstName() { fileOptions.txtRenumOutname = nameWith(fileOptions.txtRenumPrefixN); }

void previewNames() {
    showFirstName();
    std::vector<std::string> entries;
    for (const NewName& name : planNames().names) entries.push_back(entryOf(name));
    const std::string refusal = refusalOfFields();
    showPreview(refusal.empty() ? "New names" : refusal.substr(0, refusal.find(newLine)), std::move(entries));
}

std::string letterPrompt() {
    const std::size_t length = longestLetters();
    if (length == 1) return "Enter 1 alphanumeric character for the prefix";
    return joined("Enter from 1 to", length) + " alphanumeric characters for the prefix";
}

std::string numberPrompt() {
    return "Enter " + plain(numberLength()) +
           " digits for the prefix. This is the part of the filename which will be incremented. Specify the "
           "start value.";
}

std::string keepLetters(const std::string& typed) {
    const std::string assumed(defaultLetters.substr(0, longestLetters()));
    if (typed.empty()) {
        tell("No input. Assumed default.");
        return assumed;
    }
    const std::string kept =
        truncated(typed, longestLetters(), "Input [" + typed + "] has too many characters. Truncated.");
    if (!isInvalid(kept)) return kept;
    tell("Input [" + kept + "] has an invalid character. Assumed default name.");
    return assumed;
}

std::string keepFirstNumber(const std::string& typed, const std::string& present) {
    std::string kept = typed;
    if (!typed.empty() && !isDigitsOnly(typed)) {
        kept = firstNumber();
        tell("Counted non-digit(s) in input. Assumed " + kept + ".");
    }
    const std::string oversize = oversizeText(nameWith(kept));
    if (oversize.empty()) return kept;
    tell(oversize + " Input discarded.");
    return present;
}

std::string keepSuffix(const std::string& typed) {
    std::string kept = truncated(typed, longestSuffix, "Input exceeds 3 characters. Truncated.");
    if (isInvalid(kept)) {
        tell("Input [" + kept + "] has an invalid character. Assumed default name.");
        kept = defaultSuffix;
    }
    const std::string oversize = oversizeText(nameWith(fileOptions.txtRenumPrefixN, kept));
    if (oversize.empty()) return kept;
    tell(oversize + " Assumed default name.");
    return defaultSuffix;
}

std::string keepIncrement(const std::string& typed) {
    if (typed.empty() || isDigitsOnly(typed)) return typed;
    tell("Invalid increment. Assumed 1.");
    return "1";
}

}  // namespace tul::renumber
