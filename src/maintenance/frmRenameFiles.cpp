// SPDX-License-Identifier: GPL-3.0-or-later
#include "maintenance/frmRenameFiles.h"

#include "catalogue/Catalogue.h"
#include "catalogue/Options.h"
#include "catalogue/SongFields.h"
#include "desktop/Desktop.h"
#include "desktop/FileHelpers.h"
#include "desktop/Guard.h"
#include "desktop/MusicFolder.h"
#include "desktop/ScreenLook.h"
#include "maintenance/PathChange.h"
#include "songlist/DisplayedSet.h"
#include "ui_frmRenameFiles.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quaverly {

namespace {

constexpr int CharactersWide = 90;
constexpr char16_t PatternKey[] = u"Rename Pattern";
constexpr char16_t FolderKey[] = u"Rename Folder";

/** "Track Number, two digits" for "TrackNum:2". */
QString captionOf(const QString &field)
{
    const SongField *known = songField(field);
    if (field.contains(u':'))
        return u"Track (two digits)"_s;
    return known == nullptr || known->heading.isEmpty() ? field : QString(known->heading);
}

} // namespace

frmRenameFiles::frmRenameFiles(const MaintenanceParts &parts, QWidget *parent)
    : ModalScreen(parent), m_ui(std::make_unique<Ui::frmRenameFiles>()), m_parts(parts), m_renames(parts)
{
    m_ui->setupUi(this);
    wire();
    Form_Load();
}

frmRenameFiles::~frmRenameFiles() = default;

void frmRenameFiles::wire()
{
    connect(m_ui->txtPattern, &QLineEdit::textChanged, this, &frmRenameFiles::txtPattern_Change);
    connect(m_ui->txtFolder, &QLineEdit::textChanged, this, &frmRenameFiles::txtPattern_Change);
    connect(m_ui->lstFields, &QListWidget::itemActivated, this, &frmRenameFiles::cmdInsert_Click);
    connect(m_ui->cmdInsert, &QPushButton::clicked, this, &frmRenameFiles::cmdInsert_Click);
    connect(m_ui->cmdBrowse, &QPushButton::clicked, this, &frmRenameFiles::cmdBrowse_Click);
    connect(m_ui->cmdShowChanges, &QPushButton::clicked, this, &frmRenameFiles::cmdShowChanges_Click);
    connect(m_ui->cmdCancel, &QPushButton::clicked, this, &frmRenameFiles::cmdCancel_Click);
}

void frmRenameFiles::Form_Load()
{
    if (m_parts.services.options.TabletActive)
        sizeForFingers(*this);
    for (const QString &field : RenamePattern::offeredFields()) {
        auto *item = new QListWidgetItem(captionOf(field), m_ui->lstFields);
        item->setData(Qt::UserRole, QString(u'%' + field + u'%'));
    }
    m_ui->lstFields->setCurrentRow(0);
    static_cast<void>(guarded(m_parts.services.desktop, windowTitle(), [this] {
        const Hourglass hourglass(m_parts.services.desktop);
        readExample();
        offerFolder();
    }));
    const QString pattern = option(m_parts.services.optionsStore, PatternKey);
    m_ui->txtPattern->setText(pattern.isEmpty() ? RenamePattern::usualText() : pattern);
    m_ui->txtPattern->setFocus();
    resize(QSize(CharactersWide * fontMetrics().averageCharWidth(), sizeHint().height())
               .boundedTo(roomFor(*this)));
}

void frmRenameFiles::readExample()
{
    const std::vector<qint64> songs = m_renames.songs();
    const QString count = countedSongs(static_cast<qint64>(songs.size()));
    m_ui->lblSongs->setText(m_renames.isOfMarked()
                                ? u"The files of the marked songs are renamed: %1."_s.arg(count)
                                : u"The files of all displayed songs are renamed: %1."_s.arg(count));
    m_ui->cmdShowChanges->setEnabled(!songs.empty());
    if (songs.empty())
        return;
    const auto row = m_parts.services.catalogue.CatalogueDb->OpenRecordset(
        u"Select * From tblContacts Where RecordID = %1"_s.arg(songs.front()), dao::RecordsetType::Dynaset);
    for (const dao::Field &field : row->Fields())
        m_song.insert(field.name, row->text(field.name));
}

// The last one, or where the music of the catalogue is.
void frmRenameFiles::offerFolder()
{
    QString folder = option(m_parts.services.optionsStore, FolderKey);
    if (!FolderExists(folder)) {
        const QStringList places = musicPlaces(*m_parts.services.catalogue.CatalogueDb);
        const auto there = std::ranges::find_if(
            places, [](const QString &place) { return place != "/"_L1 && FolderExists(place); });
        folder = there == places.end() ? musicFolder() : *there;
    }
    m_ui->txtFolder->setText(folder);
}

void frmRenameFiles::txtPattern_Change()
{
    const RenamePattern pattern(m_ui->txtPattern->text());
    const bool usesFolder = pattern.namesFolders();
    m_ui->txtFolder->setEnabled(usesFolder);
    m_ui->cmdBrowse->setEnabled(usesFolder);
    m_ui->lblExample->setText(pattern.complaint().isEmpty() ? example(pattern) : pattern.complaint());
}

QString frmRenameFiles::example(const RenamePattern &pattern) const
{
    const QString file = m_song.value(u"FileName"_s);
    const qsizetype dot = file.lastIndexOf(u'.');
    const RenamePattern::Name name = pattern.nameOf(
        [this](const QString &field) { return m_song.value(field); }, dot <= 0 ? QString() : file.mid(dot));
    if (!name.problem.isEmpty())
        return u"%1 in \"%2\"."_s.arg(name.problem, m_song.value(u"SongName"_s));
    return (pattern.namesFolders() ? CleanFolder(m_ui->txtFolder->text()) : m_song.value(u"PathName"_s)) +
           name.path;
}

void frmRenameFiles::cmdInsert_Click()
{
    if (const QListWidgetItem *item = m_ui->lstFields->currentItem())
        m_ui->txtPattern->insert(item->data(Qt::UserRole).toString());
    m_ui->txtPattern->setFocus();
}

void frmRenameFiles::cmdBrowse_Click()
{
    guarded(m_parts.services.desktop, windowTitle(), [this] {
        const QString folder =
            m_parts.services.desktop.BrowseForFolder(u"Pick the folder that the pattern's folders begin in"_s,
                                                     u"Select a Folder"_s, m_ui->txtFolder->text());
        if (!folder.isEmpty())
            m_ui->txtFolder->setText(folder);
    });
}

void frmRenameFiles::cmdShowChanges_Click()
{
    work(m_parts.services.desktop, [this] {
        const RenamePattern pattern(m_ui->txtPattern->text());
        const QString folder = m_ui->txtFolder->text().trimmed();
        QString complaint = pattern.complaint();
        if (complaint.isEmpty() && m_parts.services.options.FileRenameDisabled)
            complaint = u"Renaming of music files is switched off in the Options menu."_s;
        if (complaint.isEmpty() && pattern.namesFolders() && !FolderExists(folder))
            complaint = u"There is no such folder: "_s + folder;
        if (!complaint.isEmpty()) {
            m_parts.services.desktop.MessageBox(complaint, windowTitle(), Icon::Exclamation);
            return false;
        }
        saveOption(m_parts.services.optionsStore, PatternKey, m_ui->txtPattern->text().trimmed());
        if (pattern.namesFolders())
            saveOption(m_parts.services.optionsStore, FolderKey, folder);
        return m_renames.run(pattern, folder);
    });
}

void frmRenameFiles::cmdCancel_Click()
{
    reject();
}

} // namespace quaverly
