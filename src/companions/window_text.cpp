#include "companions/window_text.h"

#include <QFile>
#include <QFileDialog>

#include "base/text.h"
#include "companions/file_choice.h"
#include "host/host.h"

namespace tul::companion {

QString shown(std::string_view text) { return QString::fromStdString(toUtf8(text)); }

std::optional<std::string> typedFolder(const QString& text) {
    auto folder = files().fromNative(QFile::encodeName(text.trimmed()).toStdString());
    return folder && isFolder(*folder) ? folder : std::nullopt;
}

std::optional<std::string> browsedFolder(QWidget& parent, const std::string& folder) {
    const QString chosen =
        QFileDialog::getExistingDirectory(&parent, parent.windowTitle(), nativeFolder(folder));
    return chosen.isEmpty() ? std::nullopt : typedFolder(chosen);
}

QString nativeFolder(const std::string& folder) {
    return QFile::decodeName(QByteArray::fromStdString(files().toNative(folder)));
}

}  // namespace tul::companion
