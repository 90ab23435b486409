#pragma once

#include <string>

#include "shared/report.h"

/// The three ways of showing a text: the outside editor, the built-in viewer, and the list of text files.
namespace tul {

enum class EditorCode { notepad = 1, wordpad = 2 };

/// Chooses the editor of `ViewWithEditor`.
void SetEditor(EditorCode code);

/// Shows a text file in the editor and returns when it is closed. Where the editor cannot be found, or the
/// face shows texts itself, the face shows it.
void ViewWithEditor(const std::string& path);

/// Shows a text file in `frmNotepad`.
void ViewInPanel(const std::string& path);
/// The page of the user guide that leads to all others.
inline constexpr const char* guideStart = "guide.md";
/// Shows a page of the user guide, which lies in "docs" in the program's folder.
void ShowUserGuide(const std::string& page);

/// Menu entry of `frmNotepad`: hands its file to the editor, and takes over what the user changed in the
/// settings.
void editNotepadFile();

/// Shows a closed report and deletes it when the viewer has closed.
void showAndDelete(Report& report);

/// Lists the text files of the initial folder over the main panel.
void SeeTextFile();
/// A click on an entry of that list; an empty entry is the click that closes the list.
void chooseTextFile(const std::string& entry);

}  // namespace tul
