#pragma once

#include <string>
#include <string_view>

#include "shared/run_view.h"

/// Writes the items of music files as parameter text, one or two lines an item, for every selected file into
/// a file of its name with the suffix ".PMX". The music files are not changed.
namespace tul::pmx {

struct PmxOptions {
    bool optPMXformatTab = true;  // aligned columns
    bool optPMXformatCondensed = false;
    bool chkPMXcomment = false;  // lines that begin with "* ", for the file, each item, and the trailer
    bool chkPMXshow = false;     // show each output file
    bool chkPMXreport = true;    // show the report at the end
};

/// What the panel `frmPmx` asks for, and what it shows of a run.
struct PmxRun {
    PmxOptions options;
    RunView view;
};
extern PmxRun pmxRun;

void resetPmxRun();

/// The run over the selection, which it reads anew: writes the PMX files and the report TULPMX.PRN, shows it
/// and deletes it. A file that cannot be written ends the run; the report of what was done then stays. Two
/// pages that would be written into one file are refused before.
void cmdPmxRun();

enum class ExportEnd { complete, damaged, cancelled };

/// Appends one music file to `text`. Nothing is said about a damaged one: its items up to the damage are in
/// `text`, as they are when the run is cancelled.
ExportEnd exportFile(const std::string& path, std::string& text);

/// Where the PMX form of a file goes: beside it, under its name up to the first full stop.
std::string pmxPathOf(const std::string& path);

}  // namespace tul::pmx
