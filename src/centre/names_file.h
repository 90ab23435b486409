#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// The selection: the lines of NAMES.TUL, each a whole path, a blank and the digit 1. The programs of the
/// installation write it; it is checked whole each time it is read.
namespace tul {

/// Fills the selection from the names file. No file, or a file without names, is no selection. A file that
/// fails a check is told, shown, and deleted.
void ReadNamesFile();

/// Checks the three names files and deletes those that list a vanished file.
void RefreshNamesFiles();
/// Menu entry: `RefreshNamesFiles`, then how many names the three files have.
void showNamesStatus();

/// The argument string of TULNAMES.EXE: what it offers, and its prompt (empty: none).
[[nodiscard]] std::string selectionArguments(const std::string& suffix, const std::string& folder,
                                             const std::string& message);
/// Runs TULNAMES.EXE, or takes the files that the user named beforehand over into the names file.
void chooseNames(const std::string& arguments, const std::string& message);
/// The select button of a panel, on a click: runs TULNAMES.EXE with `message` as its prompt (empty: none),
/// then reads the selection and renews the view button's tool tip.
void SelectFiles(const std::string& message, std::string& viewTip);
/// The same button, on a drop of files: runs TULOLE.EXE, which takes those of a type, "MUS" or "ANY".
void DropFiles(const std::vector<std::string>& dropped, std::string& viewTip,
               const std::string& type = "MUS");
/// The view button: shows the names file, which the user may edit, and reads it again.
void ViewNamesFile(std::string& viewTip);
/// Tool tip of the view button; with nothing selected it stays as it was.
void RefreshViewTip(std::string& viewTip);

/// Lets the user choose a folder with TULFOLDR.EXE; empty when none was chosen.
[[nodiscard]] std::string SelectFolder(const std::string& remark);

/// One line of a names file.
[[nodiscard]] std::string namesFileLine(const std::string& path);
/// The name in such a line, whose end is not looked at.
[[nodiscard]] std::string nameOfNamesFileLine(std::string_view line);

}  // namespace tul
