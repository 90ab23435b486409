#pragma once

#include <QList>
#include <QUrl>
#include <string>
#include <vector>

namespace tul::desktop {

/// True when what is dragged holds files of this machine.
bool holdsFiles(const QList<QUrl>& urls);
/// The files in the installation's form, in their order. A name that cannot be written in that form is told
/// and left out.
std::vector<std::string> filesOf(const QList<QUrl>& urls);

}  // namespace tul::desktop
