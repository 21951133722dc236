// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/FileDialogs.h"

#include "desktop/FileFilter.h"
#include "desktop/FileHelpers.h"
#include "desktop/InputForm.h"
#include "desktop/MusicFolder.h"
#include "desktop/PathCompleter.h"
#include "desktop/ScreenLook.h"

#include <QAction>
#include <QDir>
#include <QFileDialog>
#include <QFileSystemModel>
#include <QGridLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QScreen>
#include <QSplitter>
#include <QToolButton>
#include <QTreeView>

using namespace Qt::StringLiterals;

namespace quaverly {

namespace {

// In characters, so that a large font finds its room.
constexpr int DialogColumns = 120;
constexpr int DialogRows = 75;
constexpr int SidebarColumns = 20;

/** The folder, or the nearest one above it that is still there. */
QString existingFolder(const QString &folder)
{
    QString found = folder.isEmpty() ? musicFolder() : QDir::cleanPath(folder);
    while (!FolderExists(found) && found.contains(u'/'))
        found = found.section(u'/', 0, -2);
    return found.isEmpty() ? QDir::rootPath() : found;
}

/**
 * The dialog as this program uses it: nothing on the disk is renamed or deleted in it, and what stands in
 * the line is what is taken.
 */
class PathDialog final : public QFileDialog
{
public:
    PathDialog(QWidget *owner, const QString &title, const QString &startFolder);

    /** For names to be saved under: those that lack the kind's ending get it. */
    void setEndings(const QList<FileFilter> &filters) { m_filters = filters; }
    /** Lets the user make a folder, under a name that is asked for first. */
    void allowNewFolders();
    void accept() override;

private:
    void createFolder();
    void typingCounts();
    void completeName();

    QLineEdit *m_line;
    QList<FileFilter> m_filters;
};

PathDialog::PathDialog(QWidget *owner, const QString &title, const QString &startFolder)
    : QFileDialog(owner, title, existingFolder(startFolder))
{
    setOption(DontUseNativeDialog);
    setOption(ReadOnly);
    for (const auto &name : {u"qt_rename_action"_s, u"qt_delete_action"_s, u"qt_new_folder_action"_s})
        findChild<QAction *>(name)->setVisible(false);
    findChild<QWidget *>(u"newFolderButton"_s)->hide();
    m_line = findChild<QLineEdit *>(u"fileNameEdit"_s);
    m_line->setCompleter(new PathCompleter(*findChild<QFileSystemModel *>(), m_line));
    typingCounts();
}

// By itself the dialog chooses in its list what is being typed, letter by letter, and while the list of
// completions is down it may keep a folder on the way there instead of the one that was meant.
void PathDialog::typingCounts()
{
    disconnect(m_line, SIGNAL(textChanged(QString)), this, SLOT(_q_autoCompleteFileName(QString)));
    connect(m_line, &QLineEdit::textEdited, findChild<QTreeView *>(u"treeView"_s)->selectionModel(),
            &QItemSelectionModel::clearSelection);
}

void PathDialog::allowNewFolders()
{
    // In place of the dialog's own, which names the folder afterwards.
    auto *own = findChild<QToolButton *>(u"newFolderButton"_s);
    auto *button = new QToolButton(this);
    button->setObjectName(u"cmdNewFolder"_s);
    button->setIcon(own->icon());
    button->setToolTip(own->toolTip());
    button->setAccessibleName(own->accessibleName());
    delete layout()->replaceWidget(own, button);
    connect(button, &QToolButton::clicked, this, &PathDialog::createFolder);
}

void PathDialog::createFolder()
{
    InputForm form(this);
    form.setPrompt(tr("Enter the name of the new folder."), tr("New Folder"));
    form.exec();
    const QString name = form.text().trimmed();
    if (name.isEmpty())
        return;
    if (IsValidFileName(name) && directory().mkdir(name))
        setDirectory(directory().filePath(name));
    else
        QMessageBox::warning(this, tr("New Folder"), tr("The folder \"%1\" can't be made here.").arg(name));
}

void PathDialog::completeName()
{
    const QString name = m_line->text();
    if (!name.trimmed().isEmpty() && !FolderExists(directory().filePath(name)))
        m_line->setText(withEnding(name, m_filters, nameFilters().indexOf(selectedNameFilter())));
}

void PathDialog::accept()
{
    if (acceptMode() == AcceptSave)
        completeName();
    QFileDialog::accept();
}

QStringList nameFilters(const QList<FileFilter> &filters)
{
    QStringList names;
    for (const FileFilter &filter : filters)
        names += filter.description + u" ("_s + filter.patterns.join(u' ') + u')';
    return names;
}

void startWith(QFileDialog &dialog, const QString &fileName)
{
    // A pattern shows what kind of name is wanted; as a name it would be refused or, worse, taken.
    if (fileName.contains(u'*') || fileName.contains(u'?')) {
        if (auto *field = dialog.findChild<QLineEdit *>(u"fileNameEdit"_s))
            field->setPlaceholderText(fileName);
    } else if (!fileName.isEmpty()) {
        dialog.selectFile(fileName);
    }
}

/** Puts a line of text above everything that the dialog shows. */
void addPrompt(QFileDialog &dialog, const QString &prompt)
{
    auto *grid = qobject_cast<QGridLayout *>(dialog.layout());
    if (!grid || prompt.isEmpty())
        return;
    struct Place
    {
        QLayoutItem *item;
        int row, column, rowSpan, columnSpan;
    };
    QList<Place> places;
    while (grid->count() > 0) {
        Place place = {};
        grid->getItemPosition(0, &place.row, &place.column, &place.rowSpan, &place.columnSpan);
        place.item = grid->takeAt(0);
        places += place;
    }
    for (const Place &place : places)
        grid->addItem(place.item, place.row + 1, place.column, place.rowSpan, place.columnSpan);

    auto *label = new QLabel(&dialog);
    label->setObjectName(u"lblPrompt"_s);
    showText(*label, prompt);
    grid->addWidget(label, 0, 0, 1, -1);
}

/** Room for names, dates and the places at the side, also in a large font. */
void makeRoom(QFileDialog &dialog)
{
    const int character = dialog.fontMetrics().averageCharWidth();
    if (const auto *list = dialog.findChild<QTreeView *>(u"treeView"_s)) {
        list->header()->setStretchLastSection(false);
        list->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
        list->header()->setSectionResizeMode(0, QHeaderView::Stretch);
    }
    const QSize wanted = dialog.sizeHint().expandedTo(QSize(DialogColumns, DialogRows) * character);
    dialog.resize(wanted.boundedTo(dialog.screen()->availableSize()));
    if (auto *splitter = dialog.findChild<QSplitter *>(u"splitter"_s))
        splitter->setSizes({SidebarColumns * character, (DialogColumns - SidebarColumns) * character});
}

std::optional<QString> answerOf(QFileDialog &dialog)
{
    arrangeButtons(dialog);
    makeRoom(dialog);
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return std::nullopt;
    return dialog.selectedFiles().first();
}

} // namespace

std::optional<QString> askForFile(FileDialogKind kind, const FileQuestion &question, QWidget *owner)
{
    const QList<FileFilter> filters = parseFilter(question.filter);
    PathDialog dialog(owner, question.title, question.startFolder);
    // The descriptions name their patterns themselves.
    dialog.setOption(QFileDialog::HideNameFilterDetails);
    dialog.setNameFilters(nameFilters(filters));
    if (kind == FileDialogKind::Save) {
        dialog.setAcceptMode(QFileDialog::AcceptSave);
        dialog.setEndings(filters);
        dialog.allowNewFolders();
    } else {
        dialog.setFileMode(QFileDialog::ExistingFile);
    }
    startWith(dialog, question.fileName);
    return answerOf(dialog);
}

QString askForFolder(const QString &prompt, const QString &title, const QString &startFolder, QWidget *owner)
{
    PathDialog dialog(owner, title, startFolder);
    dialog.setOption(QFileDialog::ShowDirsOnly);
    dialog.setFileMode(QFileDialog::Directory);
    dialog.allowNewFolders();
    addPrompt(dialog, prompt);
    const std::optional<QString> folder = answerOf(dialog);
    return folder ? EnsureBackslash(*folder) : QString();
}

} // namespace quaverly
