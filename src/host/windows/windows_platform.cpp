#include "host/windows/windows_platform.h"

#include <array>

#include "host/windows/windows_files.h"

namespace tul {

namespace {

std::string queryRegistry(const std::string& key, const std::string& name, REGSAM view) {
    HKEY opened = nullptr;
    if (::RegOpenKeyExA(HKEY_LOCAL_MACHINE, key.c_str(), 0, KEY_QUERY_VALUE | view, &opened) != ERROR_SUCCESS)
        return {};
    std::array<char, 1024> text{};
    DWORD size = text.size() - 1;
    DWORD type = 0;
    const LSTATUS status =
        ::RegQueryValueExA(opened, name.c_str(), nullptr, &type, reinterpret_cast<BYTE*>(text.data()), &size);
    ::RegCloseKey(opened);
    if (status != ERROR_SUCCESS || (type != REG_SZ && type != REG_EXPAND_SZ)) return {};
    if (type == REG_SZ) return text.data();
    std::array<char, 2048> expanded{};
    ::ExpandEnvironmentStringsA(text.data(), expanded.data(), static_cast<DWORD>(expanded.size()));
    return expanded.data();
}

/// The current folder by what tells it from every other, whatever path or drive it was reached by.
std::string claimName() {
    constexpr DWORD shareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
    const Handle folder(
        ::CreateFileA(".", 0, shareAll, nullptr, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr));
    BY_HANDLE_FILE_INFORMATION information;
    if (!folder || ::GetFileInformationByHandle(folder.get(), &information) == 0) return {};
    return "Global\\TUL-" + std::to_string(information.dwVolumeSerialNumber) + '-' +
           std::to_string(information.nFileIndexHigh) + '-' + std::to_string(information.nFileIndexLow);
}

}  // namespace

PlatformVersion WindowsPlatform::version() const {
    OSVERSIONINFOEXA query{};
    query.dwOSVersionInfoSize = sizeof query;
    PlatformVersion version;
    auto* const plainQuery = reinterpret_cast<OSVERSIONINFOA*>(&query);
    const bool extended = ::GetVersionExA(plainQuery) != 0;
    if (!extended) {
        query.dwOSVersionInfoSize = sizeof(OSVERSIONINFOA);
        if (::GetVersionExA(plainQuery) == 0) return version;
    }
    version.platformId = static_cast<int>(query.dwPlatformId);
    version.major = static_cast<int>(query.dwMajorVersion);
    version.minor = static_cast<int>(query.dwMinorVersion);
    version.build = static_cast<int>(query.dwBuildNumber);
    version.serviceText = query.szCSDVersion;
    if (extended) {
        version.productType = query.wProductType;
        version.suiteMask = query.wSuiteMask;
    }
    version.productOptions =
        registryText("SYSTEM\\CurrentControlSet\\Control\\ProductOptions", "ProductType").value_or("");
    return version;
}

std::optional<int> WindowsPlatform::nativeArchitecture() const {
    SYSTEM_INFO information{};
    ::GetNativeSystemInfo(&information);
    return information.wProcessorArchitecture;
}

std::string WindowsPlatform::computerName() const {
    std::array<char, MAX_COMPUTERNAME_LENGTH + 1> name{};
    DWORD size = name.size();
    return ::GetComputerNameA(name.data(), &size) != 0 ? name.data() : std::string();
}

std::optional<std::string> WindowsPlatform::registryText(const std::string& key,
                                                         const std::string& name) const {
    for (const REGSAM view : {0, KEY_WOW64_32KEY})
        if (std::string text = queryRegistry(key, name, view); !text.empty()) return text;
    return std::nullopt;
}

char WindowsPlatform::decimalSymbol() const {
    std::array<char, 8> symbol{};
    ::GetLocaleInfoA(LOCALE_USER_DEFAULT, LOCALE_SDECIMAL, symbol.data(), static_cast<int>(symbol.size()));
    return symbol.front() == '\0' ? '.' : symbol.front();
}

bool WindowsPlatform::anotherInstanceRuns() {
    const std::string name = claimName();
    // Where a folder cannot be told from others, two instances are the lesser evil than none.
    if (name.empty() || claims_.contains(name)) return false;
    Handle claim(::CreateMutexA(nullptr, FALSE, name.c_str()));
    const DWORD error = ::GetLastError();
    if (!claim) return error == ERROR_ACCESS_DENIED;  // another user's
    if (error == ERROR_ALREADY_EXISTS) return true;
    claims_.emplace(name, std::move(claim));
    return false;
}

DateTime WindowsClock::now() const {
    SYSTEMTIME here{};
    ::GetLocalTime(&here);
    return {here.wYear, here.wMonth, here.wDay, here.wHour, here.wMinute, here.wSecond};
}

std::int64_t WindowsClock::milliseconds() const { return static_cast<std::int64_t>(::GetTickCount64()); }

}  // namespace tul
