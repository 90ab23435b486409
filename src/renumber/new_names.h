#pragma once

#include <string>
#include <vector>

/// The names of one series - letters, a number that rises from file to file, a full stop and a suffix - that
/// the selected files shall get.
namespace tul::renumber {

struct FileOptions {
    std::string txtRenumPrefixA = "NEWNAM";
    std::string txtRenumPrefixN = "01";  // the first number; its length is that of all numbers
    std::string txtRenumSuffix = "MUS";
    std::string txtIncrement = "1";
    bool chkRenumFileNamesFile = false;  // select the files by their new names
    std::string txtRenumOutname;         // the first new name
};
extern FileOptions fileOptions;

/// A file of the selection and its new name.
struct NewName {
    std::string from;            // whole paths
    std::string to = {};         // empty where the number has outgrown its digits
    std::string clash = {};      // why it cannot have that name, in a few words
    bool isGone = false;         // the file is not there any more
    bool leavesBackups = false;  // under the old name, where it has another series from now on
};

struct NamePlan {
    std::vector<NewName> names = {};
    std::string refusal = {};  // why none of them may be given
};

/// The selected files, each once, where the names file may have one again.
[[nodiscard]] std::vector<std::string> filesToRename();
/// Their new names, by the fields and what lies on the disk now.
[[nodiscard]] NamePlan planNames();

/// Gives the fields their first texts, by the project's length of numbers in file names.
void fillFileOptions();
/// Computes the first new name anew.
void showFirstName();
/// The same, and lists what each selected file would be called.
void previewNames();

// The fields: what their input boxes say, and what they keep of a typed text. What is refused is told.

std::string letterPrompt();
std::string numberPrompt();
std::string keepLetters(const std::string& typed);
std::string keepFirstNumber(const std::string& typed, const std::string& present);
std::string keepSuffix(const std::string& typed);
std::string keepIncrement(const std::string& typed);

}  // namespace tul::renumber
