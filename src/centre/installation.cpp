#include "centre/installation.h"

#include <algorithm>

#include "shared/function_module.h"
#include "shared/records.h"

namespace tul {

std::string inProgramFolder(std::string_view name) {
    return std::string(paths.ProgramFolder).append("\\").append(name);
}

std::string located(std::string_view name) {
    return name.starts_with('\\') ? inProgramFolder(name.substr(1)) : std::string(name);
}

bool isInstalled(std::string_view name) { return FileExists(located(name)); }

bool areInstalled(const std::vector<const char*>& names) {
    return std::all_of(names.begin(), names.end(), [](const char* name) { return isInstalled(name); });
}

void namePaths() {
    paths.NamesFileName = "NAMES.TUL";
    paths.NamesFilePath = inProgramFolder(paths.NamesFileName);
    paths.ControlFilePath = inProgramFolder("TULCNTRL.INI");
    paths.OptionsFilePath = inProgramFolder("TULPROJ.PRO");
    paths.LogFilePath = inProgramFolder("TULLOG.LOG");
    paths.TulFolderPath = inProgramFolder("TULFOLDR.EXE");
    paths.TulFolderResultName = "TULFOLDR.TUL";
    paths.TulNamesPath = inProgramFolder("TULNAMES.EXE");
    paths.TulOlePath = inProgramFolder("TULOLE.EXE");
    paths.TulSeps4idPath = inProgramFolder("TULSEPS4ID.EXE");
    paths.TulBeamPath = inProgramFolder("TULBEAM.EXE");
    paths.TulLjPath = inProgramFolder("TULLJ.EXE");
    paths.HelpFilePath = inProgramFolder("TULCNTRL.HLP");
    paths.TulXrefProfilePath = inProgramFolder("TULXREF.PRO");
    paths.TulFindPath = inProgramFolder("TULFIND.EXE");
    paths.TulDrawPath = inProgramFolder("TULDRAW.EXE");
    paths.TulEpsFxPath = inProgramFolder("TULEPSFX.EXE");
    paths.TulTposePath = inProgramFolder("TULTPOSE.EXE");
    paths.TulAnli1Path = inProgramFolder("TULANLI1.EXE");
    paths.TulAnli2Path = inProgramFolder("TULANLI2.EXE");
    paths.TulScHlpPath = inProgramFolder("TULSCHLP.EXE");
}

}  // namespace tul
