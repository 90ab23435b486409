#include "companions/choosers.h"

#include <QApplication>
#include <QFile>
#include <QFileDialog>
#include <cstdlib>

#include "base/text.h"
#include "host/host.h"

namespace tul::companion {

namespace {

/// The toolkit, for as long as one dialog needs it.
class Toolkit {
  public:
    Toolkit() : application_(count_, words_) {}

  private:
    char name_[4] = "TUL";
    char* words_[2] = {name_, nullptr};
    int count_ = 1;
    QApplication application_;
};

QString shown(const std::string& text) { return QString::fromStdString(toUtf8(text)); }

QString nativeFolder(const std::string& folder) {
    return QFile::decodeName(QByteArray::fromStdString(files().toNative(folder)));
}

std::vector<std::string> installationPaths(const QStringList& chosen) {
    std::vector<std::string> paths;
    for (const QString& name : chosen)
        if (const auto path = files().fromNative(QFile::encodeName(name).toStdString()))
            paths.push_back(*path);
    return paths;
}

}  // namespace

bool hasScreen() {
    for (const char* variable : {"DISPLAY", "WAYLAND_DISPLAY"})
        if (const char* const value = std::getenv(variable); value && *value != '\0') return true;
    return false;
}

std::vector<std::string> chooseFiles(const std::string& title, const std::string& folder,
                                     const std::string& suffix) {
    Toolkit toolkit;
    const QString all = "All files (*)";
    const QString wanted = shown(suffix) + " files (*." + shown(suffix) + ")";
    return installationPaths(QFileDialog::getOpenFileNames(nullptr, shown(title), nativeFolder(folder),
                                                           suffix.empty() ? all : wanted + ";;" + all));
}

std::optional<std::string> chooseFolder(const std::string& title) {
    Toolkit toolkit;
    const QString chosen = QFileDialog::getExistingDirectory(nullptr, shown(title));
    const auto paths = installationPaths(chosen.isEmpty() ? QStringList() : QStringList(chosen));
    return paths.empty() ? std::nullopt : std::optional(paths.front());
}

}  // namespace tul::companion
