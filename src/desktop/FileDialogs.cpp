// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/FileDialogs.h"

#include "desktop/FileFilter.h"
#include "desktop/FileHelpers.h"
#include "desktop/ScreenLook.h"

#include <QDir>
#include <QFileDialog>
#include <QGridLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QScreen>
#include <QSplitter>
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
    QString found = folder.isEmpty() ? QDir::currentPath() : QDir::cleanPath(folder);
    while (!FolderExists(found) && found.contains(u'/'))
        found = found.section(u'/', 0, -2);
    return found.isEmpty() ? QDir::rootPath() : found;
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
    QFileDialog dialog(owner, question.title, existingFolder(question.startFolder));
    dialog.setOption(QFileDialog::DontUseNativeDialog);
    // The descriptions name their patterns themselves.
    dialog.setOption(QFileDialog::HideNameFilterDetails);
    dialog.setNameFilters(nameFilters(filters));
    if (kind == FileDialogKind::Save) {
        dialog.setAcceptMode(QFileDialog::AcceptSave);
        dialog.setDefaultSuffix(defaultExtension(filters));
    } else {
        dialog.setFileMode(QFileDialog::ExistingFile);
    }
    startWith(dialog, question.fileName);
    return answerOf(dialog);
}

QString askForFolder(const QString &prompt, const QString &title, const QString &startFolder, QWidget *owner)
{
    QFileDialog dialog(owner, title, existingFolder(startFolder));
    dialog.setOption(QFileDialog::DontUseNativeDialog);
    dialog.setOption(QFileDialog::ShowDirsOnly);
    dialog.setFileMode(QFileDialog::Directory);
    addPrompt(dialog, prompt);
    const std::optional<QString> folder = answerOf(dialog);
    return folder ? EnsureBackslash(*folder) : QString();
}

} // namespace quaverly
