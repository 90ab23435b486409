#pragma once

/// The renumber tool: names of files, numbers of pages, bars and staves, a tab each.
namespace tul::renumber {

/// Gives the tool and all its tabs their first values.
void resetRenumber();
/// The part of the panel's load step that fills fields from the project settings.
void fillFromProjectSettings();

/// The run of the tab in front.
void cmdRenumRun();
/// Lists what that run would do, and touches nothing.
void cmdRenumPreview();
/// What the preview shows no longer holds: new names are listed anew, the other lists wait for the button.
void renewPreview();

}  // namespace tul::renumber
