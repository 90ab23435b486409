#include "renumber/new_names.h"

#include <algorithm>
#include <cstdint>
#include <optional>
#include <string_view>
#include <unordered_map>
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
/// What Windows has in no file name either.
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

/// COM1 and the like are devices in every folder of Windows, whatever their suffix. The devices whose names
/// end in no digit are out of question here.
bool isDevice(std::string_view name) {
    const std::string base = upperCase(name.substr(0, name.find('.')));
    const bool isPort = base.starts_with("COM") || base.starts_with("LPT");
    return isPort && base.size() == 4 && base[3] >= '1' && base[3] <= '9';
}

/// Beyond ASCII each system has its own bytes for a letter, and DOS programs such as SCORE have others again.
bool isPrintable(char character) { return character >= ' ' && character <= '~'; }

bool canBeName(const std::string& name) {
    return name.find_first_of(notInNames) == std::string::npos &&
           std::all_of(name.begin(), name.end(), isPrintable) && !isDevice(name);
}

bool isBackup(const std::string& path) { return isBackupSuffix(backupSeriesOf(path).extension); }

/// All names here lie in one folder.
bool haveSameSeries(const std::string& path, const std::string& other) {
    return backupSeriesOf(path).base == backupSeriesOf(other).base;
}

/// The plain files of the selection's folder, looked at once, in any letter case.
class MusicFolder {
  public:
    MusicFolder() {
        for (const std::string& name : files().list(selection.SelectionPrefix)) {
            ++count_[upperCase(name)];
            const BackupSeries series = backupSeriesOf(name);
            if (isBackupSuffix(series.extension)) letters_[series.base] += series.extension.back();
        }
    }
    int count(std::string_view name) const {
        const auto found = count_.find(upperCase(name));
        return found == count_.end() ? 0 : found->second;
    }
    /// Of the page's generations, also of those that cannot be opened now.
    std::string lettersOf(const std::string& path) const {
        const auto found = letters_.find(backupSeriesOf(path).base);
        return found == letters_.end() ? std::string() : found->second;
    }

  private:
    std::unordered_map<std::string, int> count_;
    std::unordered_map<std::string, std::string> letters_;  // of the generations by their base
};

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
    const bool isItself = equalIgnoringCase(name.from, name.to);
    return Clash{isItself ? "has that name" : "exists already",
                 "Renaming will cause a conflict because the name " + name.to + " already exists." + newLine +
                     refused};
}

MaybeClash clashOfName(const NewName& name) {
    const std::string fileName(fileNameOf(name.to));
    if (!canBeName(fileName))
        return Clash{"is no name for a file",
                     "The name " + fileName + " cannot be a file's name on every system." + newLine +
                         "Letters from A to Z, digits and hyphens can." + newLine + refused};
    if (isBackup(name.to) && !isBackup(name.from))
        return Clash{"is the name of a backup",
                     "The name " + fileName + " is that of a backup, and a restore would take it for one." +
                         newLine + refused};
    return std::nullopt;
}

MaybeClash clashWithBackups(const NewName& name, const MusicFolder& folder) {
    const std::string letters = haveSameSeries(name.from, name.to) ? "" : folder.lettersOf(name.to);
    if (letters.empty()) return std::nullopt;
    return Clash{"has backups of another file", "Renaming will cause a conflict because the name " + name.to +
                                                    " already has backups, the first with suffix .BK" +
                                                    letters.front() + "." + newLine + refused};
}

/// The selection is in upper case, which leads to one of them only.
MaybeClash clashOfLetterCase(const NewName& name, const MusicFolder& folder) {
    if (folder.count(fileNameOf(name.from)) < 2) return std::nullopt;
    return Clash{"is there twice", "There are files that differ from " + name.from + " in letter case only." +
                                       newLine + refused};
}

/// The selected files so far, as the disk knows them.
class KnownFiles {
  public:
    /// A link and what it leads to are one file: renamed, the link would lead nowhere.
    MaybeClash clashOf(const NewName& name) {
        const auto info = files().info(name.from);
        if (!info || info->number == 0) return std::nullopt;
        const auto [known, isNew] = known_.try_emplace(info->number, *info, name.from);
        if (isNew || !known->second.first.isSameAs(*info)) return std::nullopt;
        return Clash{"is a link", "The names " + known->second.second + " and " + name.from +
                                      " lead to one and the same file." + newLine + refused};
    }

  private:
    std::unordered_map<std::uint64_t, std::pair<FileInfo, std::string>> known_;
};

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

void findClash(NewName& name, const MusicFolder& folder, KnownFiles& known, Refusals& refusals) {
    const MaybeClash taken = clashWithFile(name);
    if (taken) return note(*taken, name, refusals.taken);
    for (const MaybeClash& other : {clashOfName(name), clashWithBackups(name, folder),
                                    clashOfLetterCase(name, folder), known.clashOf(name)})
        if (other) return note(*other, name, refusals.other);
}

/// A generation itself leaves nothing behind that was its own.
bool leavesBackups(const NewName& name, const MusicFolder& folder) {
    return !isBackup(name.from) && !haveSameSeries(name.from, name.to) &&
           !folder.lettersOf(name.from).empty();
}

/// What the fields alone tell.
std::string refusalOfFields() {
    const std::size_t length = fileOptions.txtRenumPrefixN.size();
    if (static_cast<std::int64_t>(length) != numberLength())
        return "Length of numeric prefix part [" + plain(length) +
               "] not equal to global option for this length [" + plain(numberLength()) + "]." + newLine +
               "Adapt either, then try again.";
    if (valueOf(fileOptions.txtIncrement) == 0)
        return "The increment has to be 1 or more, or all files would get the same name." + newLine + refused;
    if (fileOptions.txtRenumSuffix.empty()) return "The new names need a suffix." + newLine + refused;
    return {};
}

// --- The preview

std::string entryOf(const NewName& name) {
    std::string entry = nameInPreview(name.from) + " -> ";
    entry += name.to.empty() ? "?" : std::string(fileNameOf(name.to));
    if (!name.clash.empty()) entry += "  " + name.clash;
    if (name.isGone) entry += "  is no longer there";
    if (name.leavesBackups) entry += "  leaves its backups behind";
    return entry;
}

/// Tells at once what may stand far down in the list.
std::string previewTitle(const NamePlan& plan) {
    if (const std::string refusal = refusalOfFields(); !refusal.empty())
        return refusal.substr(0, refusal.find(newLine));
    const auto clashes = std::count_if(plan.names.begin(), plan.names.end(),
                                       [](const NewName& name) { return !name.clash.empty(); });
    if (clashes == 0) return "New names";
    return "New names: " + plain(clashes) + " of " + plain(plan.names.size()) + " cannot be given";
}

// --- Fields

bool isInvalid(const std::string& text) { return text.find_first_of(notInFields) != std::string::npos; }

std::string truncated(const std::string& typed, std::size_t length, const std::string& message) {
    return typed.size() <= length ? typed : keepInstead(typed.substr(0, length), message);
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
    const MusicFolder folder;
    KnownFiles known;
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
        findClash(name, folder, known, refusals);
        name.leavesBackups = leavesBackups(name, folder);
        name.isGone = folder.count(fileNameOf(path)) == 0;
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
    const NamePlan plan = planNames();
    std::vector<std::string> entries;
    for (const NewName& name : plan.names) entries.push_back(entryOf(name));
    showPreview(previewTitle(plan), std::move(entries));
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
    if (typed.empty()) return keepInstead(assumed, "No input. Assumed default.");
    const std::string kept =
        truncated(typed, longestLetters(), "Input [" + typed + "] has too many characters. Truncated.");
    if (!isInvalid(kept)) return kept;
    return keepInstead(assumed, "Input [" + kept + "] has an invalid character. Assumed default name.");
}

std::string keepFirstNumber(const std::string& typed, const std::string& present) {
    std::string kept = typed;
    if (!typed.empty() && !isDigitsOnly(typed))
        kept = keepInstead(firstNumber(), "Counted non-digit(s) in input. Assumed " + firstNumber() + ".");
    const std::string oversize = oversizeText(nameWith(kept));
    if (oversize.empty()) return kept;
    return keepInstead(present, oversize + " Input discarded.");
}

std::string keepSuffix(const std::string& typed) {
    std::string kept = truncated(typed, longestSuffix, "Input exceeds 3 characters. Truncated.");
    if (isInvalid(kept))
        kept = keepInstead(defaultSuffix,
                           "Input [" + kept + "] has an invalid character. Assumed default name.");
    const std::string oversize = oversizeText(nameWith(fileOptions.txtRenumPrefixN, kept));
    if (oversize.empty()) return kept;
    return keepInstead(defaultSuffix, oversize + " Assumed default name.");
}

std::string keepIncrement(const std::string& typed) {
    if (typed.empty() || isDigitsOnly(typed)) return typed;
    return keepInstead("1", "Invalid increment. Assumed 1.");
}

}  // namespace tul::renumber
