#include "companions/names_window.h"

#include <QAbstractListModel>
#include <QKeyEvent>
#include <QPushButton>

#include "base/text.h"
#include "companions/window_text.h"
#include "ui_frmNames.h"

namespace tul::companion {

/// The rows of a choice as the toolkit's list asks for them.
class ShownFiles : public QAbstractListModel {
  public:
    ShownFiles(FileChoice& choice, QObject* parent) : QAbstractListModel(parent), choice_(choice) {}

    int rowCount(const QModelIndex& parent = {}) const override {
        return parent.isValid() ? 0 : static_cast<int>(choice_.rows());
    }
    QVariant data(const QModelIndex& index, int role) const override {
        if (role != Qt::DisplayRole) return {};
        return shown(choice_.name(static_cast<std::size_t>(index.row())));
    }
    template <class Change>
    void change(Change change) {
        beginResetModel();
        change();
        endResetModel();
    }

  private:
    FileChoice& choice_;
};

namespace {

constexpr int columns = 64;  // of a long path
constexpr int rows = 16;     // of names that are seen at once

bool isEnter(const QEvent& event) {
    if (event.type() != QEvent::KeyPress) return false;
    const int key = static_cast<const QKeyEvent&>(event).key();
    return key == Qt::Key_Return || key == Qt::Key_Enter;
}

bool isDown(const QEvent& event) {
    return event.type() == QEvent::KeyPress && static_cast<const QKeyEvent&>(event).key() == Qt::Key_Down;
}

QString filesText(std::size_t count) {
    return QString("%1 %2").arg(count).arg(count == 1 ? "file" : "files");
}

}  // namespace

NamesWindow::NamesWindow(const NamesRequest& request)
    : request_(request),
      choice_(readNames(request.namesPath())),
      warnsOfLongPaths_(warnsOfLongPaths(request.startFolder)),
      form_(std::make_unique<Ui::frmNames>()) {
    form_->setupUi(this);
    list_ = new ShownFiles(choice_, this);
    form_->lstNames->setModel(list_);
    form_->lblNamesPrompt->setText(shown(request_.prompt));
    QFont heading = font();
    heading.setBold(true);
    form_->lblNamesPrompt->setFont(heading);
    fillTypes();
    choice_.setSuffix(request_.suffix);
    connectControls();
    openFolder(request_.folder);
    form_->lstNames->setFocus();
    const QFontMetrics metrics(font());
    form_->txtNamesFolder->setMinimumWidth(metrics.averageCharWidth() * columns / 2);
    form_->lstNames->setMinimumHeight(metrics.lineSpacing() * rows / 2);
    resize(metrics.averageCharWidth() * columns * 3 / 2, metrics.lineSpacing() * rows * 2);
}

NamesWindow::~NamesWindow() = default;

void NamesWindow::fillTypes() {
    QStringList suffixes;
    if (!request_.suffix.empty()) suffixes << shown(upperCase(request_.suffix));
    if (!suffixes.contains("MUS")) suffixes << "MUS";
    for (const QString& suffix : suffixes) form_->lstNamesSuffix->addItem("*." + suffix, suffix);
    form_->lstNamesSuffix->addItem("All files", QString());
    form_->lstNamesSuffix->setCurrentIndex(request_.suffix.empty() ? form_->lstNamesSuffix->count() - 1 : 0);
}

void NamesWindow::connectControls() {
    connect(form_->txtNamesFolder, &QLineEdit::editingFinished, this, [this] { openTyped(); });
    connect(form_->cmdNamesUp, &QPushButton::clicked, this,
            [this] { openFolder(folderAbove(choice_.folder())); });
    connect(form_->cmdNamesBrowse, &QPushButton::clicked, this, [this] {
        if (const auto folder = browsedFolder(*this, choice_.folder())) openFolder(*folder);
    });
    connect(form_->txtNamesPart, &QLineEdit::textChanged, this,
            [this](const QString& part) { changeList([&] { choice_.setPart(part.toStdString()); }); });
    connect(form_->lstNamesSuffix, &QComboBox::currentIndexChanged, this, [this] {
        const std::string suffix = form_->lstNamesSuffix->currentData().toString().toStdString();
        changeList([&] { choice_.setSuffix(suffix); });
    });
    connect(form_->lstNames->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &NamesWindow::takeSelection);
    connect(form_->lstNames, &QListView::doubleClicked, this, [this] { accept(); });
    connect(form_->cmdNamesAll, &QPushButton::clicked, form_->lstNames, &QListView::selectAll);
    connect(form_->cmdNamesNone, &QPushButton::clicked, form_->lstNames, &QListView::clearSelection);
    connect(form_->cmdNamesOk, &QPushButton::clicked, this, &NamesWindow::accept);
    connect(form_->cmdNamesCancel, &QPushButton::clicked, this, &NamesWindow::reject);
    form_->txtNamesFolder->installEventFilter(this);
    form_->txtNamesPart->installEventFilter(this);
}

template <class Change>
void NamesWindow::changeList(Change change) {
    list_->change(change);
    selectChosen();
    showCount();
}

void NamesWindow::openFolder(const std::string& folder) {
    bool found = false;
    changeList([&] { found = choice_.open(folder); });
    form_->txtNamesFolder->setText(shown(choice_.folder()));
    form_->cmdNamesUp->setEnabled(!folderAbove(choice_.folder()).empty());
    if (!found) showNotice("There is no such folder: " + shown(folder));
}

/// True when what was typed is another folder than the one in the list, or none at all.
bool NamesWindow::openTyped() {
    const QString text = form_->txtNamesFolder->text();
    if (text == shown(choice_.folder())) return false;
    if (const auto folder = typedFolder(text))
        openFolder(*folder);
    else
        showNotice("There is no such folder: " + text);
    return true;
}

/// In runs of rows, because the list works through every range of a selection.
void NamesWindow::selectChosen() {
    QItemSelection selection;
    for (std::size_t row = 0; row < choice_.rows(); ++row) {
        if (!choice_.isChosen(row)) continue;
        std::size_t last = row;
        while (last + 1 < choice_.rows() && choice_.isChosen(last + 1)) ++last;
        selection.select(list_->index(static_cast<int>(row)), list_->index(static_cast<int>(last)));
        row = last;
    }
    selecting_ = true;
    QItemSelectionModel& model = *form_->lstNames->selectionModel();
    const QModelIndex current = list_->index(static_cast<int>(choice_.firstChosen()));
    model.setCurrentIndex(current, QItemSelectionModel::NoUpdate);
    model.select(selection, QItemSelectionModel::ClearAndSelect);
    selecting_ = false;
    form_->lstNames->scrollTo(current);
}

void NamesWindow::takeSelection(const QItemSelection& selected, const QItemSelection& deselected) {
    if (selecting_) return;
    const auto choose = [this](const QItemSelection& selection, bool chosen) {
        for (const QItemSelectionRange& range : selection)
            for (int row = range.top(); row <= range.bottom(); ++row)
                choice_.choose(static_cast<std::size_t>(row), chosen);
    };
    choose(deselected, false);
    choose(selected, true);
    showCount();
}

void NamesWindow::showCount() {
    const std::size_t chosen = choice_.chosen();
    QString text = choice_.rows() == 0
                       ? "No such files in this folder: Browse leads to another one"
                       : QString("%1 of %2 chosen").arg(chosen).arg(filesText(choice_.rows()));
    if (const std::size_t hidden = choice_.hidden(); hidden > 0)
        text += QString("; not shown and not taken: %1").arg(hidden);
    form_->lblNamesCount->setText(text);
    form_->cmdNamesOk->setEnabled(chosen > 0);
    form_->cmdNamesAll->setEnabled(chosen < choice_.rows());
    form_->cmdNamesNone->setEnabled(chosen > 0);
    showNotice(warnsOfLongPaths_ ? shown(pathWarning(choice_.longestPath())) : QString());
}

void NamesWindow::showNotice(const QString& text) {
    form_->lblNamesNotice->setText(text);
    form_->lblNamesNotice->setVisible(!text.isEmpty());
}

/// Enter in a field is not yet Enter in the window: a folder is opened first, and a name looked for is
/// chosen.
bool NamesWindow::eventFilter(QObject* watched, QEvent* event) {
    if (watched == form_->txtNamesFolder && isEnter(*event)) return openTyped() || choice_.chosen() == 0;
    if (watched == form_->txtNamesPart && choice_.rows() > 0) {
        const bool choosesFirst = isEnter(*event) && choice_.chosen() == 0;
        if (choosesFirst) form_->lstNames->setCurrentIndex(list_->index(0));
        if (choosesFirst || isDown(*event)) form_->lstNames->setFocus();
        if (choosesFirst || isDown(*event)) return true;
    }
    return QDialog::eventFilter(watched, event);
}

void NamesWindow::accept() {
    if (openTyped() || choice_.chosen() == 0) return;
    const std::string refusal = writeSelection(request_, choice_.chosenPaths());
    if (refusal.empty()) return QDialog::accept();
    showNotice(shown(refusal));
}

}  // namespace tul::companion
