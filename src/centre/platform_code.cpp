#include "centre/platform_code.h"

#include <string>

#include "base/numbers.h"
#include "host/host.h"
#include "shared/records.h"

namespace tul {

namespace {

// Bits of the extended version query.
constexpr unsigned suiteEnterprise = 0x002;
constexpr unsigned suiteDataCenter = 0x080;
constexpr unsigned suitePersonal = 0x200;
constexpr int productWorkstation = 1;
constexpr int productServer = 3;

std::string windows95Line(const PlatformVersion& version) {
    if (version.major != 4) return "00";
    switch (version.minor) {
        case 0: {
            const bool secondRelease = version.serviceLetter == 'B' || version.serviceLetter == 'C';
            return std::string("95 Microsoft Windows 95") + (secondRelease ? " OSR 2" : "");
        }
        case 10:
            return std::string("98 Microsoft Windows 98") + (version.serviceLetter == 'A' ? " SE" : "");
        case 90:
            return "98 Simulated ME";
        default:
            return "00";
    }
}

std::string windowsNtName(const PlatformVersion& version) {
    if (version.major < 5) return "NT Microsoft Windows NT";
    if (version.major == 5 && version.minor == 0) return "2K Microsoft Windows 2000";
    if (version.major == 5) return "XP Microsoft Windows XP";
    if (version.major == 6 && version.minor == 0) return "VI Microsoft Windows Vista";
    if (version.major == 6 && version.minor == 1) return "W7 Microsoft Windows 7";
    return "Wx Microsoft Windows 10";
}

std::string edition(const PlatformVersion& version) {
    if (version.productType == productWorkstation)
        return (version.suiteMask & suitePersonal) != 0 ? " Personal" : " Professional";
    if (version.productType == productServer) {
        if ((version.suiteMask & suiteDataCenter) != 0) return " DataCenter Server";
        return (version.suiteMask & suiteEnterprise) != 0 ? " Advanced Server" : " Server";
    }
    if (version.productType != 0) return "";
    if (version.productOptions == "WINNT") return " Professional";
    if (version.productOptions == "LANMANNT") return " Server";
    if (version.productOptions == "SERVERNT") return " Advanced Server";
    return "";
}

std::string buildText(const PlatformVersion& version) {
    const std::string build = "Build " + plain(version.build) + ")";
    if (version.major < 5)
        return " (Version " + plain(version.major) + "." + plain(version.minor) + " " + version.serviceText +
               " " + build;
    if (version.serviceText.empty()) return " (" + build;
    return " (Version " + version.serviceText + " " + build;
}

std::string windowsNtLine(const PlatformVersion& version) {
    std::string text = windowsNtName(version) + edition(version) + buildText(version);
    if (text.find("Server") != std::string::npos) text.insert(0, "SE");
    return text;
}

std::string platformText(const PlatformVersion& version) {
    if (!version.ownText.empty()) return version.ownText;
    switch (version.platformId) {
        case 0:
            return "32 Microsoft Win32s";
        case 1:
            return windows95Line(version);
        case 2:
            return windowsNtLine(version);
        default:
            return "00";
    }
}

}  // namespace

bool isOutsideWindows() { return !platform().version().ownText.empty(); }

void getOS() {
    identity.OsCode = platformText(platform().version());
    identity.ProcessorBits = "00";
    if (const auto architecture = platform().nativeArchitecture()) {
        const bool wide = *architecture == architectureX64 || *architecture == architectureItanium;
        identity.ProcessorBits = wide ? "64" : "32";
    }
}

}  // namespace tul
