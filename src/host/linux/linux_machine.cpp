#include <filesystem>

#include "host/host.h"
#include "host/linux/linux_files.h"
#include "host/linux/linux_platform.h"
#include "host/linux/linux_processes.h"
#include "host/linux/linux_profile.h"

namespace tul {

namespace {

class LinuxMachine : public NativeMachine {
  public:
    Host host() override {
        return {.files = &files_,
                .processes = &processes_,
                .profile = &profile_,
                .clock = &clock_,
                .platform = &platform_};
    }

    std::string programFolder() const override {
        std::error_code failure;
        const std::filesystem::path program = std::filesystem::read_symlink("/proc/self/exe", failure);
        return installationPath(program.parent_path().native()).value_or(finder_.currentFolder());
    }

  private:
    PathFinder finder_;
    LinuxFiles files_{finder_};
    LinuxProcesses processes_{finder_};
    LinuxProfile profile_;
    LinuxClock clock_;
    LinuxPlatform platform_{finder_};
};

}  // namespace

std::unique_ptr<NativeMachine> openNativeMachine() { return std::make_unique<LinuxMachine>(); }

}  // namespace tul
