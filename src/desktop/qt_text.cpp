#include "desktop/qt_text.h"

#include <QHash>

#include "base/text.h"

namespace tul::desktop {

namespace {

/// The upper half of Windows-1252 by character.
QHash<QChar, char> upperHalf() {
    QHash<QChar, char> bytes;
    for (int code = 0x80; code <= 0xFF; ++code) {
        const char byte = static_cast<char>(code);
        bytes.insert(shown(std::string_view(&byte, 1)).front(), byte);
    }
    return bytes;
}

}  // namespace

QString shown(std::string_view text) { return QString::fromStdString(toUtf8(text)); }

std::optional<std::string> singleBytes(const QString& text) {
    static const QHash<QChar, char> upper = upperHalf();
    std::string bytes;
    for (const QChar character : text) {
        if (character.unicode() < 0x80) {
            bytes += static_cast<char>(character.unicode());
        } else if (const auto found = upper.constFind(character); found != upper.constEnd()) {
            bytes += *found;
        } else {
            return std::nullopt;
        }
    }
    return bytes;
}

std::string typed(const QString& text) { return singleBytes(text).value_or(text.toStdString()); }

QString withoutMnemonic(QString caption) { return caption.remove(QLatin1Char('&')); }

QString asCaption(std::string_view text) {
    return shown(text).replace(QLatin1Char('&'), QLatin1String("&&"));
}

}  // namespace tul::desktop
