#pragma once

#include <optional>
#include <string>

namespace tul {

/// What the platform's version query tells.
struct PlatformVersion {
    int platformId = -1;  // 0 Win32s, 1 the Windows 95 line, 2 the NT line, -1 none of these
    int major = 0;
    int minor = 0;
    int build = 0;
    std::string serviceText = {};     // such as "Service Pack 1"
    char serviceLetter = ' ';         // of the Windows 95 line
    int productType = 0;              // 1 workstation, 3 server; 0 where the extended query fails
    unsigned suiteMask = 0;           // of the extended query
    std::string productOptions = {};  // the registry's ProductType: WINNT, LANMANNT, SERVERNT
    std::string ownText = {};         // a platform beyond these: two-letter code and description
};

/// Processor architecture numbers of the native system query.
inline constexpr int architectureItanium = 6;
inline constexpr int architectureX64 = 9;

class Platform {
  public:
    virtual ~Platform() = default;

    virtual PlatformVersion version() const = 0;
    /// Nothing where the native system query does not exist.
    [[nodiscard]] virtual std::optional<int> nativeArchitecture() const = 0;
    virtual std::string computerName() const = 0;
    /// A text of the machine's registry; nothing where there is no such text, or no registry.
    [[nodiscard]] virtual std::optional<std::string> registryText(const std::string& /*key*/,
                                                                  const std::string& /*name*/) const {
        return std::nullopt;
    }
    /// The symbol that the platform's own number format puts between units and tenths.
    virtual char decimalSymbol() const = 0;
    /// True when another process has claimed the installation in the current folder. Otherwise this process
    /// claims it for the rest of its life; asking again is harmless.
    [[nodiscard]] virtual bool anotherInstanceRuns() = 0;
};

}  // namespace tul
