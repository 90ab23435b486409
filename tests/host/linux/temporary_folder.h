#pragma once

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>
#include <string>

namespace tul {

/// A folder of a test's own, looked at past the code under test.
class TemporaryFolder {
  public:
    TemporaryFolder() : path_(testing::TempDir() + "/tul-XXXXXX") {
        if (::mkdtemp(path_.data()) == nullptr) std::abort();
        path_ = std::filesystem::canonical(path_);
    }
    ~TemporaryFolder() { std::filesystem::remove_all(path_); }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    std::string native(const std::string& name = "") const {
        return name.empty() ? path_ : path_ + '/' + name;
    }
    std::string installation(const std::string& name = "") const {
        std::string path = "Z:" + native(name);
        std::replace(path.begin(), path.end(), '/', '\\');
        return path;
    }

    void makeFolder(const std::string& name) const { std::filesystem::create_directories(native(name)); }
    void put(const std::string& name, const std::string& bytes, mode_t mode = 0644) const {
        std::ofstream(native(name), std::ios::binary) << bytes;
        ::chmod(native(name).c_str(), mode);
    }
    std::string get(const std::string& name) const {
        std::ifstream file(native(name), std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }
    std::set<std::string> names() const {
        std::set<std::string> found;
        for (const auto& entry : std::filesystem::directory_iterator(path_))
            found.insert(entry.path().filename());
        return found;
    }

  private:
    std::string path_;
};

/// A variable of the environment, set for as long as this lives; null takes it away.
class EnvironmentVariable {
  public:
    EnvironmentVariable(const char* name, const char* value) : name_(name) {
        if (const char* old = std::getenv(name)) old_ = old;
        existed_ = std::getenv(name) != nullptr;
        set(value);
    }
    ~EnvironmentVariable() { set(existed_ ? old_.c_str() : nullptr); }
    EnvironmentVariable(const EnvironmentVariable&) = delete;
    EnvironmentVariable& operator=(const EnvironmentVariable&) = delete;

  private:
    void set(const char* value) {
        if (value == nullptr)
            ::unsetenv(name_);
        else
            ::setenv(name_, value, 1);
    }

    const char* name_;
    std::string old_;
    bool existed_ = false;
};

/// Runs `work` in a process of its own and goes on at once.
template <typename Work>
pid_t startProcess(Work work) {
    const pid_t child = ::fork();
    if (child == 0) ::_exit(static_cast<int>(work()));
    return child;
}

/// The exit code of a process; -1 when it was killed.
inline int exitCodeOf(pid_t child) {
    int status = 0;
    ::waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

/// What `work` returns in a process of its own, where limits and rights can be changed.
template <typename Work>
int inAnotherProcess(Work work) {
    return exitCodeOf(startProcess(work));
}

}  // namespace tul
