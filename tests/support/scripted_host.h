#pragma once

#include <deque>
#include <filesystem>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "host/host.h"

namespace tul::testing {

/// The end of the program, as a test sees it.
struct ScriptedEnd {
    int status;
};

/// The status with which `action` ended the program; nothing when it came back.
std::optional<int> endOf(const std::function<void()>& action);

/// Files of the machine, but for those that a test wants to fail.
class FaultyFiles : public Files {
  public:
    explicit FaultyFiles(Files& real) : real_(real) {}
    /// What writing the file of this name gives instead of success.
    std::map<std::string, FileError> refusals;

    /// Comes before a file gets the name `to`.
    std::function<void(const std::string& to)> onRename;

    /// Fails one of the calls that read or change files: of this number from now on, from 1; 0 fails none.
    void failAt(int call, FileError fault = FileError::none);
    /// True when the call that was to fail has come.
    bool hasFailed() const { return calls_ >= failAt_; }

    std::string currentFolder() const override { return real_.currentFolder(); }
    bool changeFolder(const std::string& path) override { return real_.changeFolder(path); }
    bool canRead(const std::string& path) const override { return real_.canRead(path); }
    std::optional<FileInfo> info(const std::string& path) const override { return real_.info(path); }
    std::string nameOnDisk(const std::string& path) const override { return real_.nameOnDisk(path); }
    std::vector<std::string> list(const std::string& folder) const override { return real_.list(folder); }
    FileError read(const std::string& path, std::string& bytes, std::size_t limit) const override;
    FileError replace(const std::string& path, std::string_view bytes) override;
    FileError remove(const std::string& path) override;
    FileError rename(const std::string& from, const std::string& to) override;
    FileError renameOver(const std::string& from, const std::string& to) override;
    FileError copy(const std::string& from, const std::string& to) override;
    FileError copyToNew(const std::string& from, const std::string& to) override;
    std::string shortName(const std::string& path) const override { return real_.shortName(path); }
    std::optional<std::string> fromNative(const std::string& path) const override {
        return real_.fromNative(path);
    }
    std::string toNative(const std::string& path) const override { return real_.toNative(path); }

  private:
    bool fails() const { return ++calls_ == failAt_; }
    FileError refusalOf(const std::string& path) const;

    Files& real_;
    int failAt_ = 0;
    mutable int calls_ = 0;
    FileError fault_ = FileError::none;
};

/// A machine and a user for one test: a folder of its own as current folder, a clock that stands still, a
/// table of fake programs, queued answers, and a record of all that was said.
class ScriptedHost {
  public:
    /// Makes the folder, installs the host, gives every record its initial value, and names the paths of an
    /// installation in that folder.
    ScriptedHost();
    ~ScriptedHost();
    ScriptedHost(const ScriptedHost&) = delete;
    ScriptedHost& operator=(const ScriptedHost&) = delete;

    /// The test's folder in the installation's form, and a file in it.
    std::string folder() const;
    std::string path(const std::string& name) const { return folder() + "\\" + name; }
    /// The same folder as the platform writes it.
    const std::filesystem::path& nativeFolder() const { return nativeFolder_; }

    void write(const std::string& name, const std::string& bytes);
    std::string read(const std::string& name) const;
    bool exists(const std::string& name) const;
    void remove(const std::string& name) { std::filesystem::remove_all(nativeFolder_ / name); }
    /// With the folders above it.
    void makeFolder(const std::string& name) { std::filesystem::create_directories(nativeFolder_ / name); }
    void makeReadOnly(const std::string& name);
    /// A drive C, which is this folder of the test's own. False where that drive is the machine's.
    bool makeDriveC(const std::string& name);

    /// A program of this name starts and does its work, by itself nothing.
    void mayRun(
        const std::string& program, const std::function<void()>& work = [] {});
    /// The last message of an action that ended the program with a failure; otherwise what happened instead.
    std::string fatal(const std::function<void()>& action) const;
    /// True when one of the messages was this.
    bool said(const std::string& text) const;

    /// Puts the companions that start-up asks for into the folder, and a TULMONIT.EXE that reports one
    /// monitor of 1920 by 1040 pixels.
    void install();

    // What the user will do.
    std::deque<Answer> answers;      // to questions; then the refusing one
    std::deque<std::string> inputs;  // into input boxes; then cancelled
    std::function<void()> onYield;   // while a run lets events through
    bool showsTextItself = true;
    bool canOpenDocuments = true;
    std::string frontCaption;  // of the panel in front

    // What the machine is.
    DateTime time{2026, 11, 21, 9, 5, 7};
    PlatformVersion version;
    std::optional<int> architecture = architectureX64;
    bool anotherInstance = false;
    char decimalSymbol = '.';
    std::optional<ScreenSize> screen = ScreenSize{15360, 11520};
    std::map<std::string, std::map<std::string, std::string>> profile;
    std::map<std::string, std::string> registry;  // by key, backslash, name
    /// By file name: what a fake program does with its arguments; its exit code.
    std::map<std::string, std::function<int(const std::string&)>> programs;

    // What was said and done.
    std::vector<std::string> messages;  // of messages and questions, in order
    std::vector<std::string> launches;  // program and arguments with a blank between them
    std::vector<std::string> shown;     // contents of the texts that were shown
    std::vector<std::string> opened;    // panels and documents
    /// In one order: wait and ready (the pointer), hide and show (the panel), minimize, and with what they
    /// are about open, launch, profile, message.
    std::vector<std::string> events;

    /// Begins the record of what was said and done anew.
    void forget() { messages = shown = launches = events = {}; }

    FaultyFiles& faultyFiles() { return *faultyFiles_; }

  private:
    struct Parts;
    std::filesystem::path nativeFolder_;
    std::string startFolder_;
    std::unique_ptr<NativeMachine> machine_;
    std::unique_ptr<FaultyFiles> faultyFiles_;
    std::unique_ptr<Parts> parts_;
};

/// Lines ended by CR LF.
std::string crlf(const std::vector<std::string>& lines);

}  // namespace tul::testing
