#include "base/text.h"
#include "host/host.h"
#include "host/windows/windows_files.h"
#include "host/windows/windows_platform.h"
#include "host/windows/windows_processes.h"
#include "host/windows/windows_profile.h"
#include "host/windows/windows_talk.h"

namespace tul {

namespace {

class WindowsMachine : public NativeMachine {
  public:
    /// A drive without a medium is a failure of the one operation, not a box of the system's that asks for
    /// it.
    WindowsMachine() { ::SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOOPENFILEERRORBOX); }

    Host host() override {
        return {.files = &files_,
                .processes = &processes_,
                .profile = &profile_,
                .clock = &clock_,
                .platform = &platform_};
    }

    std::string programFolder() const override {
        const std::string program = textFrom([](char* text, DWORD size) {
            const DWORD length = ::GetModuleFileNameA(nullptr, text, size);
            return length == size ? 2 * size : length;  // it cuts a longer path and gives the size back
        });
        return paths_.fromNative(std::string(folderOf(program))).value_or(paths_.currentFolder());
    }

  private:
    StartersConsole console_;
    WindowsPaths paths_;
    WindowsFiles files_{paths_};
    WindowsProcesses processes_;
    WindowsProfile profile_;
    WindowsClock clock_;
    WindowsPlatform platform_;
};

}  // namespace

std::unique_ptr<NativeMachine> openNativeMachine() { return std::make_unique<WindowsMachine>(); }

}  // namespace tul
