#include "host/linux/linux_platform.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/utsname.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <ctime>

#include "host/linux/linux_files.h"

namespace tul {

namespace {
constexpr int architectureIntel32 = 0;
constexpr int architectureArm64 = 12;
constexpr std::size_t longestHostName = 256;
}  // namespace

PlatformVersion LinuxPlatform::version() const {
    utsname system{};
    ::uname(&system);
    PlatformVersion version;
    version.ownText = std::string("Wx Linux ") + system.release;
    return version;
}

std::optional<int> LinuxPlatform::nativeArchitecture() const {
    utsname system{};
    ::uname(&system);
    const std::string_view machine = system.machine;
    if (machine == "x86_64") return architectureX64;
    if (machine == "aarch64") return architectureArm64;
    if (machine.size() == 4 && machine.starts_with('i') && machine.ends_with("86"))
        return architectureIntel32;
    return std::nullopt;
}

std::string LinuxPlatform::computerName() const {
    std::array<char, longestHostName + 1> name{};
    ::gethostname(name.data(), longestHostName);
    return name.data();
}

bool LinuxPlatform::anotherInstanceRuns() {
    const std::string path = finder_.nativeText(finder_.currentFolder());
    Descriptor folder(::open(path.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    struct stat status;
    if (!folder || ::fstat(folder.number(), &status) != 0) return false;
    const bool claimed = std::any_of(claims_.begin(), claims_.end(), [&](const Claim& claim) {
        return claim.device == status.st_dev && claim.inode == status.st_ino;
    });
    if (claimed) return false;
    // Where a folder cannot be locked, two instances are the lesser evil than none.
    if (::flock(folder.number(), LOCK_EX | LOCK_NB) != 0) return errno == EWOULDBLOCK;
    claims_.push_back({status.st_dev, status.st_ino, std::move(folder)});
    return false;
}

DateTime LinuxClock::now() const { return localTime(std::time(nullptr)); }

std::int64_t LinuxClock::milliseconds() const {
    using namespace std::chrono;
    return duration_cast<std::chrono::milliseconds>(steady_clock::now().time_since_epoch()).count();
}

}  // namespace tul
