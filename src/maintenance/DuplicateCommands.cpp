// SPDX-License-Identifier: GPL-3.0-or-later
#include "maintenance/DuplicateCommands.h"

#include "catalogue/Catalogue.h"
#include "desktop/Guard.h"
#include "desktop/PreviewQuestion.h"
#include "maintenance/BulkChange.h"
#include "maintenance/DuplicatePreview.h"
#include "platform/store/RowKeys.h"
#include "songlist/DisplayedSet.h"
#include "songlist/MainScreen.h"

using namespace Qt::StringLiterals;

namespace quaverly {

namespace {

constexpr char16_t NoneFound[] = u"No duplicate songs found.";
constexpr char16_t NoneToDelete[] = u"No duplicate songs to delete.";
constexpr char16_t ShowTitle[] = u"Show Duplicate Songs";
constexpr char16_t DeleteErrorTitle[] = u"Duplicate Record Delete Error";

} // namespace

struct DuplicateCommands::View
{
    const char16_t *query;
    const char16_t *caption;
    const char16_t *empty;
};

struct DuplicateCommands::Rule
{
    const char16_t *toDelete;
    /** The stored query of all songs with duplicates. */
    const char16_t *groups;
    const char16_t *behindCount;
    const char16_t *command;
};

DuplicateCommands::DuplicateCommands(MaintenanceParts parts) : m_parts(std::move(parts))
{}

void DuplicateCommands::mnuShowDuplicates_Click()
{
    showView(
        {.query = u"qryDuplicateSongs", .caption = u"Showing All Songs With Duplicates", .empty = NoneFound});
}

void DuplicateCommands::mnuShowDuplicatesToDelete_Click()
{
    showView({.query = u"qryShowDuplicatesToBeDeleted",
              .caption = u"Showing Duplicate Songs To Delete from Quaverly",
              .empty = NoneToDelete});
}

void DuplicateCommands::mnuShowDuplicatesAlbum_Click()
{
    showView({.query = u"qryDuplicateSongsAlbum",
              .caption = u"Showing All Songs With Duplicates in Albums",
              .empty = NoneFound});
}

void DuplicateCommands::mnuShowDuplicatesToDeleteAlbum_Click()
{
    showView({.query = u"qryShowDuplicatesToBeDeletedAlbum",
              .caption = u"Showing Duplicate Songs To Delete in Albums from Quaverly",
              .empty = NoneToDelete});
}

void DuplicateCommands::mnuDeleteDuplicates_Click()
{
    deleteBy(
        {.toDelete = u"qryShowDuplicatesToBeDeleted",
         .groups = u"qryDuplicateSongs",
         .behindCount =
             u" duplicate songs from Quaverly.  Duplicates are defined as two or more songs with the same "
             "Song Name, Artist, and File Size.  All except one will be deleted.  This will not delete the "
             "actual music files from your computer.  To see which records will be deleted, respond NO, "
             "then choose \r\n\"Show Duplicate Songs to Delete\" from the Edit menu.\r\n\r\nAre you SURE "
             "you want to delete these duplicates?",
         .command = u"Delete Duplicate Songs"});
}

void DuplicateCommands::mnuDeleteDuplicatesAlbum_Click()
{
    deleteBy(
        {.toDelete = u"qryShowDuplicatesToBeDeletedAlbum",
         .groups = u"qryDuplicateSongsAlbum",
         .behindCount =
             u" duplicate songs within the same album from Quaverly.  Duplicates are defined as two or "
             "more songs with the same Song Name, Artist, and Album Name.  All except one will be deleted.  "
             "This will not delete the actual music files from your computer.\r\n\r\nAre you SURE you want "
             "to delete duplicates?",
         .command = u"Delete Duplicate Songs in Albums"});
}

void DuplicateCommands::showView(const View &view)
{
    guarded(m_parts.services.desktop, QString::fromUtf16(ShowTitle), [&] {
        const Hourglass hourglass(m_parts.services.desktop);
        m_parts.mainScreen.ShowAllMenu_Click();
        m_parts.mainScreen.cmdSortArtist_Click();
        if (!m_parts.set.duplicateView(QString::fromUtf16(view.query), QString::fromUtf16(view.caption))) {
            m_parts.services.desktop.resetPointer();
            tellNone(QString::fromUtf16(view.empty));
        }
    });
}

void DuplicateCommands::tellNone(const QString &message)
{
    m_parts.services.desktop.MessageBox(message, u"No duplicates"_s);
    m_parts.mainScreen.ShowAllMenu_Click();
}

void DuplicateCommands::deleteBy(const Rule &rule)
{
    guarded(m_parts.services.desktop, QString::fromUtf16(DeleteErrorTitle), [&] {
        if (!m_parts.set.duplicateView(QString::fromUtf16(rule.toDelete))) {
            tellNone(QString::fromUtf16(NoneToDelete));
            return;
        }
        // After a No the rows stay shown, with every button as it was, and that is meant.
        const auto songs = confirmedSongs(rule);
        if (!songs || !deleteSongs(rule, *songs))
            return;
        m_parts.services.desktop.MessageBox(
            QString::number(songs->size()) +
                u" Duplicates Deleted from the Quaverly database.  This does not "
                "delete the actual music file from your computer.  You can re-scan to "
                "put these duplicate songs back into Quaverly.\n\n"_s +
                waysBack(),
            u"Duplicates Deleted"_s);
    });
}

bool DuplicateCommands::deleteSongs(const Rule &rule, const Keys &songs)
{
    BulkChange::Work work = deletionOf(songs, *m_parts.services.catalogue.CatalogueDb);
    work.caption = u"Deleting Duplicate Records"_s;
    work.command = QString::fromUtf16(rule.command);
    work.showResult = [this] { m_parts.mainScreen.ShowAllMenu_Click(); };
    return BulkChange(m_parts).run(work);
}

std::optional<DuplicateCommands::Keys> DuplicateCommands::confirmedSongs(const Rule &rule)
{
    dao::Database &database = *m_parts.services.catalogue.CatalogueDb;
    DataControl &shown = m_parts.set.Data1();
    std::unique_ptr<DuplicatePreview> preview;
    const Question question{u"This will DELETE all "_s + QString::number(shown.Recordset().RecordCount()) +
                                QString::fromUtf16(rule.behindCount),
                            u"Delete Confirmation"_s, Icon::Information};
    if (!isConfirmed(m_parts.services.desktop, question, [&]() -> Preview & {
            preview = std::make_unique<DuplicatePreview>(SongPreview::Ground{database, shown},
                                                         QString::fromUtf16(rule.groups));
            return *preview;
        }))
        return std::nullopt;
    return preview ? preview->tickedSongs() : dao::keysOf(shown.Recordset());
}

} // namespace quaverly
