#include "support/scripted_host.h"

#include <algorithm>
#include <fstream>
#include <iterator>

#include "base/text.h"
#include "centre/installation.h"
#include "panels/fresh_process.h"
#include "shared/records.h"
#include "support/test_place.h"

namespace tul::testing {

namespace fs = std::filesystem;

std::optional<int> endOf(const std::function<void()>& action) {
    try {
        action();
    } catch (const ScriptedEnd& end) {
        return end.status;
    }
    return std::nullopt;
}

void FaultyFiles::failAt(int call, FileError fault) {
    failAt_ = call;
    calls_ = 0;
    fault_ = fault;
}

FileError FaultyFiles::refusalOf(const std::string& path) const {
    const auto refusal = refusals.find(std::string(fileNameOf(path)));
    return refusal == refusals.end() ? FileError::none : refusal->second;
}

FileError FaultyFiles::read(const std::string& path, std::string& bytes, std::size_t limit) const {
    if (!fails()) return real_.read(path, bytes, limit);
    bytes.clear();
    return fault_;
}

FileError FaultyFiles::replace(const std::string& path, std::string_view bytes) {
    if (fails()) return fault_;
    const FileError refusal = refusalOf(path);
    return refusal == FileError::none ? real_.replace(path, bytes) : refusal;
}

FileError FaultyFiles::remove(const std::string& path) { return fails() ? fault_ : real_.remove(path); }

FileError FaultyFiles::rename(const std::string& from, const std::string& to) {
    if (onRename) onRename(to);
    return fails() ? fault_ : real_.rename(from, to);
}

FileError FaultyFiles::renameOver(const std::string& from, const std::string& to) {
    return fails() ? fault_ : real_.renameOver(from, to);
}

FileError FaultyFiles::copy(const std::string& from, const std::string& to) {
    return fails() ? fault_ : real_.copy(from, to);
}

FileError FaultyFiles::copyToNew(const std::string& from, const std::string& to) {
    if (fails()) return fault_;
    const FileError refusal = refusalOf(to);
    return refusal == FileError::none ? real_.copyToNew(from, to) : refusal;
}

struct ScriptedHost::Parts : Face, Processes, Profile, Clock, Platform {
    explicit Parts(ScriptedHost& owner) : host(owner) {}
    ScriptedHost& host;

    Answer msgBox(const Message& message) override {
        host.events.push_back("message " + message.text.substr(0, message.text.find('\r')));
        host.messages.push_back(message.text);
        if (message.buttons == Buttons::ok) return Answer::ok;
        if (host.answers.empty()) return message.buttons == Buttons::yesNo ? Answer::no : Answer::cancel;
        const Answer answer = host.answers.front();
        host.answers.pop_front();
        return answer;
    }
    std::optional<std::string> inputBox(const std::string& prompt, const std::string&) override {
        host.messages.push_back(prompt);
        if (host.inputs.empty()) return std::nullopt;
        std::string text = host.inputs.front();
        host.inputs.pop_front();
        return text;
    }
    bool showsTextItself() const override { return host.showsTextItself; }
    void showText(const std::string& path) override {
        std::string text;
        files().readIfThere(path, text);
        host.shown.push_back(text);
    }
    void showGuide(const std::string& path) override { host.opened.push_back(path); }
    void openPanel(const std::string& name) override {
        host.opened.push_back(name);
        host.events.push_back("open " + name);
    }
    std::string frontCaption() const override { return host.frontCaption; }
    void minimizePanel() override { host.events.push_back("minimize"); }
    void setPanelVisible(bool visible) override { host.events.push_back(visible ? "show" : "hide"); }
    void setPointer(Pointer pointer) override {
        host.events.push_back(pointer == Pointer::waiting ? "wait" : "ready");
    }
    std::optional<ScreenSize> screen() const override { return host.screen; }
    void yield() override {
        if (host.onYield) host.onYield();
    }
    void endProgram(int status) override { throw ScriptedEnd{status}; }

    LaunchResult runAndWait(const Launch& launch) override {
        const std::string arguments(trim(launch.arguments));
        host.launches.push_back(launch.program + (arguments.empty() ? "" : " ") + arguments);
        host.events.push_back((launch.style == WindowStyle::maximized ? "launch maximized " : "launch ") +
                              launch.program);
        const auto found = host.programs.find(std::string(fileNameOf(launch.program)));
        if (found == host.programs.end()) return {.started = false, .exitCode = 0, .failure = "not found"};
        return {.started = true, .exitCode = found->second(arguments), .failure = {}};
    }
    bool canFind(const std::string& program) const override {
        return host.programs.contains(std::string(fileNameOf(program)));
    }
    LaunchResult openDocument(const std::string& path) override {
        host.opened.push_back(path);
        return {.started = host.canOpenDocuments, .failure = "no browser"};
    }

    std::string read(const std::string& section, const std::string& key) const override {
        const auto found = host.profile.find(section);
        if (found == host.profile.end()) return {};
        const auto value = found->second.find(key);
        return value == found->second.end() ? std::string() : value->second;
    }
    void write(const std::string& section, const std::string& key, const std::string& value) override {
        host.profile[section][key] = value;
        host.events.push_back("profile " + key);
    }

    DateTime now() const override { return host.time; }
    std::int64_t milliseconds() const override { return tick += 1000; }
    mutable std::int64_t tick = 0;

    PlatformVersion version() const override { return host.version; }
    std::optional<int> nativeArchitecture() const override { return host.architecture; }
    std::string computerName() const override { return "DESK"; }
    std::optional<std::string> registryText(const std::string& key, const std::string& name) const override {
        const auto found = host.registry.find(key + "\\" + name);
        return found == host.registry.end() ? std::nullopt : std::optional(found->second);
    }
    char decimalSymbol() const override { return host.decimalSymbol; }
    bool anotherInstanceRuns() override { return host.anotherInstance; }
};

ScriptedHost::ScriptedHost() : nativeFolder_(makeTestPlace()) {
    machine_ = openNativeMachine();
    Host host = machine_->host();
    faultyFiles_ = std::make_unique<FaultyFiles>(*host.files);
    parts_ = std::make_unique<Parts>(*this);
    host.files = faultyFiles_.get();
    host.processes = parts_.get();
    host.profile = parts_.get();
    host.clock = parts_.get();
    host.platform = parts_.get();
    host.face = parts_.get();
    installHost(host);
    version.ownText = "Wx Test";
    freshProcess();
    startFolder_ = files().currentFolder();
    files().enterIfThere(*files().fromNative(nativeFolder_.string()));
    paths.ProgramFolder = folder();
    namePaths();
}

ScriptedHost::~ScriptedHost() {
    machine_->host().files->enterIfThere(startFolder_);  // a current folder cannot be removed everywhere
    installHost({});
    std::error_code ignored;
    fs::remove_all(nativeFolder_, ignored);
}

std::string ScriptedHost::folder() const { return *files().fromNative(nativeFolder_.string()); }

void ScriptedHost::write(const std::string& name, const std::string& bytes) {
    std::ofstream(nativeFolder_ / name, std::ios::binary) << bytes;
}

std::string ScriptedHost::read(const std::string& name) const {
    std::ifstream file(nativeFolder_ / name, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

bool ScriptedHost::exists(const std::string& name) const { return fs::exists(nativeFolder_ / name); }

void ScriptedHost::makeReadOnly(const std::string& name) {
    fs::permissions(nativeFolder_ / name, fs::perms::owner_read);
}

bool ScriptedHost::makeDriveC(const std::string& name) { return takeAsDriveC(nativeFolder_ / name); }

void ScriptedHost::mayRun(const std::string& program, const std::function<void()>& work) {
    programs[program] = [work](const std::string&) {
        work();
        return 0;
    };
}

std::string ScriptedHost::fatal(const std::function<void()>& action) const {
    const std::size_t before = messages.size();
    const std::optional<int> status = endOf(action);
    if (status != 1) return status ? "(ended without a failure)" : "(came back)";
    return messages.size() == before ? "(no message)" : messages.back();
}

bool ScriptedHost::said(const std::string& text) const {
    return std::find(messages.begin(), messages.end(), text) != messages.end();
}

void ScriptedHost::install() {
    for (const char* name : {"TULSCORE.EXE", "TULSKORE.EXE", "TULFOLDR.EXE", "TULNAMES.EXE", "TULOLE.EXE",
                             "TULMONIT.EXE", "TULCNTRL.HLP"})
        write(name, "x");
    mayRun("TULMONIT.EXE", [this] {
        write("TulMonit.TXT",
              "* monitors\nWorkAreaHeight=1040\nNumberOfMonitors=1\nCurrentMonitorRight=1920\n");
    });
}

std::string crlf(const std::vector<std::string>& lines) {
    std::string text;
    for (const std::string& line : lines) text += line + "\r\n";
    return text;
}

}  // namespace tul::testing
