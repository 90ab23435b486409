#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <functional>
#include <string>

#include "base/text.h"
#include "centre/control_file.h"
#include "centre/names_file.h"
#include "centre/panel_place.h"
#include "centre/project_options.h"
#include "memory_host.h"
#include "panels/fresh_process.h"
#include "shared/key_value_file.h"
#include "shared/records.h"

// Any bytes as each of the settings files: reading comes back or ends the program, and what is written again
// says the same as what was read.
namespace {

using namespace tul;
using fuzz::require;

const std::string home = "Z:\\HOME\\";
/// Lines of one byte take many times their length in memory: enough of them for every counter of the readers.
constexpr std::size_t mostBytes = 1U << 16;

/// Every file that has a folder is there, so that a names file is read beyond its first name.
class SettingsHost : public fuzz::MemoryHost {
  public:
    bool canRead(const std::string& path) const override { return path.find('\\') != std::string::npos; }
};

bool comesBack(const std::function<void()>& reading) {
    try {
        reading();
    } catch (const fuzz::End&) {
        return false;
    }
    return true;
}

void splitLines(const std::string& text) {
    for (const KeyValue& setting : keyValuesOf(text, "[")) {
        require(setting.line.size() == setting.key.size() + 1 + setting.value.size());
        require(setting.line.find_first_of(CrLf) == std::string::npos);
    }
}

/// The user's settings as they stand in the control file.
std::string userSettings(const std::string& text) { return text.substr(text.rfind("\n[UserSettings]\r\n")); }

void readControlFile(SettingsHost& host) {
    if (!comesBack([] { ReadControlFile(true); })) return;
    require(machineSettings.MaxLogRecords > 100);
    const std::string written = userSettings(host.contents[paths.ControlFilePath]);
    const MachineSettings read = machineSettings;
    host.contents[paths.LogFilePath].clear();
    require(comesBack([] { ReadControlFile(true); }));
    require(userSettings(host.contents[paths.ControlFilePath]) == written);
    require(machineSettings.FirstExecuted == read.FirstExecuted);
    require(machineSettings.ScoreFolder == read.ScoreFolder);
}

void readNamesFile() {
    RefreshNamesFiles();
    require(!selection.SelectionValid || selection.SelectionCount > 0);
    for (int i = 1; selection.SelectionValid && i <= selection.SelectionCount; ++i)
        require(selection.SelectionNames[i].size() <= selection.LongestName.size());
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static SettingsHost host;
    if (size > mostBytes) return 0;
    freshProcess();
    paths.ControlFilePath = home + "TULCNTRL.INI";
    paths.LogFilePath = home + "TULLOG.LOG";
    paths.OptionsFilePath = home + "TULPROJ.PRO";
    paths.NamesFilePath = home + "NAMES.TUL";
    const std::string text(reinterpret_cast<const char*>(data), size);
    host.contents.clear();
    for (const std::string& path :
         {paths.ControlFilePath, paths.LogFilePath, paths.OptionsFilePath, paths.NamesFilePath,
          std::string("NAMESEPS.TUL"), std::string("TulMonit.TXT")})
        host.contents[path] = text;
    // A limit that is refused ends the reading; the bytes behind this one may still set another.
    host.contents[paths.ControlFilePath].insert(0, "MaxLogRecords=101\n");

    splitLines(text);
    readControlFile(host);
    comesBack(ReadProjectOptions);
    readNamesFile();
    if (comesBack(readTulMonit)) require(!host.contents.contains("TulMonit.TXT"));
    return 0;
}
