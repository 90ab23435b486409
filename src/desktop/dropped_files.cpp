#include "desktop/dropped_files.h"

#include <QFile>
#include <algorithm>

#include "host/host.h"

namespace tul::desktop {

bool holdsFiles(const QList<QUrl>& urls) {
    return std::any_of(urls.begin(), urls.end(), [](const QUrl& url) { return url.isLocalFile(); });
}

std::vector<std::string> filesOf(const QList<QUrl>& urls) {
    std::vector<std::string> paths;
    for (const QUrl& url : urls) {
        if (!url.isLocalFile()) continue;
        const std::string native = QFile::encodeName(url.toLocalFile()).toStdString();
        if (auto path = files().fromNative(native))
            paths.push_back(std::move(*path));
        else
            MsgBox("The name " + native + " cannot be written into a names file.", Buttons::ok,
                   Icon::exclamation);
    }
    return paths;
}

}  // namespace tul::desktop
