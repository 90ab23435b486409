#include "companions/folder_window.h"

#include <QDir>
#include <QFile>
#include <QKeyEvent>
#include <QPushButton>
#include <algorithm>

#include "base/text.h"
#include "companions/file_choice.h"
#include "companions/window_text.h"
#include "ui_frmFolder.h"

namespace tul::companion {

namespace {

constexpr int columns = 64;  // of a long path
constexpr int rows = 12;     // of folders that are seen at once

/// The names of the folders in a folder, but for hidden ones and those that no path of the installation can
/// name.
std::vector<std::string> foldersIn(const std::string& folder) {
    std::vector<std::string> names;
    for (const QString& name : QDir(nativeFolder(folder)).entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
        std::string bytes = QFile::encodeName(name).toStdString();
        if (bytes.find_first_of("\\\r\n\"") == std::string::npos) names.push_back(std::move(bytes));
    }
    std::sort(names.begin(), names.end(), standsBefore);
    return names;
}

int keyOf(const QEvent& event) {
    return event.type() == QEvent::KeyPress ? static_cast<const QKeyEvent&>(event).key() : 0;
}

}  // namespace

FolderWindow::FolderWindow(const std::string& prompt, const std::string& folder)
    : form_(std::make_unique<Ui::frmFolder>()) {
    form_->setupUi(this);
    form_->lblFolderPrompt->setText(shown(prompt));
    QFont heading = font();
    heading.setBold(true);
    form_->lblFolderPrompt->setFont(heading);
    connectControls();
    openFolder(folder);
    form_->lstFolders->setFocus();
    const QFontMetrics metrics(font());
    form_->txtFolder->setMinimumWidth(metrics.averageCharWidth() * columns / 2);
    resize(metrics.averageCharWidth() * columns * 3 / 2, metrics.lineSpacing() * rows * 2);
}

FolderWindow::~FolderWindow() = default;

void FolderWindow::connectControls() {
    connect(form_->txtFolder, &QLineEdit::editingFinished, this, [this] { openTyped(); });
    connect(form_->cmdFolderUp, &QPushButton::clicked, this, [this] { openAbove(); });
    connect(form_->cmdFolderBrowse, &QPushButton::clicked, this, [this] {
        if (const auto folder = browsedFolder(*this, folder_)) openFolder(*folder);
    });
    connect(form_->lstFolders, &QListWidget::itemSelectionChanged, this, [this] { takeCurrent(); });
    connect(form_->lstFolders, &QListWidget::itemDoubleClicked, this, [this] { openCurrent(); });
    connect(form_->cmdFolderOk, &QPushButton::clicked, this, &FolderWindow::accept);
    connect(form_->cmdFolderCancel, &QPushButton::clicked, this, &FolderWindow::reject);
    form_->txtFolder->installEventFilter(this);
    form_->lstFolders->installEventFilter(this);
}

void FolderWindow::openFolder(const std::string& folder) {
    const QSignalBlocker quiet(form_->lstFolders);
    listed_ = folder;
    form_->lstFolders->clear();
    for (const std::string& name : foldersIn(folder)) {
        auto* const item = new QListWidgetItem(shown(name), form_->lstFolders);
        item->setData(Qt::UserRole, QByteArray::fromStdString(name));
    }
    form_->cmdFolderUp->setEnabled(!folderAbove(folder).empty());
    showNotice(form_->lstFolders->count() == 0 ? "There are no folders in it." : "");
    showFolder(folder);
}

void FolderWindow::openAbove() {
    const std::string above = folderAbove(listed_);
    if (!above.empty()) openFolder(above);
}

void FolderWindow::openCurrent() {
    if (!form_->lstFolders->selectedItems().isEmpty()) openFolder(folder_);
}

bool FolderWindow::openTyped() {
    const QString text = form_->txtFolder->text();
    if (text == shown(folder_)) return false;
    if (const auto folder = typedFolder(text))
        openFolder(*folder);
    else
        showNotice("There is no such folder: " + text);
    return true;
}

void FolderWindow::takeCurrent() {
    const auto selected = form_->lstFolders->selectedItems();
    if (selected.isEmpty()) return showFolder(listed_);
    showFolder(pathIn(listed_, selected.front()->data(Qt::UserRole).toByteArray().toStdString()));
}

void FolderWindow::showFolder(const std::string& folder) {
    folder_ = folder;
    form_->txtFolder->setText(shown(folder));
}

void FolderWindow::showNotice(const QString& text) {
    form_->lblFolderNotice->setText(text);
    form_->lblFolderNotice->setVisible(!text.isEmpty());
}

bool FolderWindow::eventFilter(QObject* watched, QEvent* event) {
    const int key = keyOf(*event);
    if (watched == form_->txtFolder && (key == Qt::Key_Return || key == Qt::Key_Enter) && openTyped())
        return true;
    if (watched == form_->lstFolders && key == Qt::Key_Right) {
        openCurrent();
        return true;
    }
    if (watched == form_->lstFolders && (key == Qt::Key_Left || key == Qt::Key_Backspace)) {
        openAbove();
        return true;
    }
    return QDialog::eventFilter(watched, event);
}

void FolderWindow::accept() {
    if (!openTyped()) QDialog::accept();
}

}  // namespace tul::companion
