#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "base/text.h"
#include "host/host.h"

namespace tul::fuzz {

/// The end of the program.
struct End {};

/// What no page can lead beyond: an item of the longest length that begins at the last word, and a trailer.
inline constexpr std::int32_t mostWords = 2 * 32768 + 6;

/// Ends the fuzzer with a finding unless the condition holds.
void require(bool condition);

/// A machine whose files live in memory.
class MemoryHost : public Files,
                   public Processes,
                   public Profile,
                   public Clock,
                   public Platform,
                   public Face {
  public:
    MemoryHost();

    /// Leaves these bytes as the only files: a page, and a list of items without header. Their paths.
    std::vector<std::string> layOutPage(const std::string& bytes);

    std::map<std::string, std::string> contents;  // by path
    /// A byte a question, again and again: an odd one refuses, and 2 cancels where that can be said; empty
    /// refuses nothing.
    std::string refusals;

    std::string currentFolder() const override { return "Z:\\HOME"; }
    bool changeFolder(const std::string&) override { return true; }
    bool canRead(const std::string& path) const override { return contents.contains(path); }
    std::optional<FileInfo> info(const std::string& path) const override;
    std::string nameOnDisk(const std::string& path) const override {
        return contents.contains(path) ? std::string(fileNameOf(path)) : std::string();
    }
    std::vector<std::string> list(const std::string&) const override { return {}; }
    FileError read(const std::string& path, std::string& bytes, std::size_t limit) const override;
    FileError replace(const std::string& path, std::string_view bytes) override;
    FileError remove(const std::string& path) override;
    FileError rename(const std::string& from, const std::string& to) override;
    FileError renameOver(const std::string& from, const std::string& to) override {
        return contents.contains(to) ? rename(from, to) : FileError::fileNotFound;
    }
    FileError copy(const std::string& from, const std::string& to) override;
    FileError copyToNew(const std::string& from, const std::string& to) override {
        return contents.contains(to) ? FileError::fileExists : copy(from, to);
    }
    std::string shortName(const std::string& path) const override { return path; }
    std::optional<std::string> fromNative(const std::string& path) const override { return path; }
    std::string toNative(const std::string& path) const override { return path; }

    LaunchResult runAndWait(const Launch&) override {
        return {.started = true, .exitCode = 0, .failure = {}};
    }
    bool canFind(const std::string&) const override { return false; }
    LaunchResult openDocument(const std::string&) override { return {}; }

    std::string read(const std::string&, const std::string&) const override { return {}; }
    void write(const std::string&, const std::string&, const std::string&) override {}

    DateTime now() const override { return {}; }
    std::int64_t milliseconds() const override { return 0; }

    PlatformVersion version() const override { return {}; }
    std::optional<int> nativeArchitecture() const override { return {}; }
    std::string computerName() const override { return {}; }
    char decimalSymbol() const override { return '.'; }
    bool anotherInstanceRuns() override { return false; }

    Answer msgBox(const Message& message) override;
    std::size_t questions = 0;
    std::optional<std::string> inputBox(const std::string&, const std::string& text) override { return text; }
    bool showsTextItself() const override { return true; }
    void showText(const std::string&) override {}
    void showGuide(const std::string&) override {}
    void openPanel(const std::string&) override {}
    std::string frontCaption() const override { return {}; }
    void setPanelVisible(bool) override {}
    void setPointer(Pointer) override {}
    void yield() override {}
    void endProgram(int) override { throw End(); }
};

}  // namespace tul::fuzz
