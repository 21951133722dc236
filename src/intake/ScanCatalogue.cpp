// SPDX-License-Identifier: GPL-3.0-or-later
#include "intake/ScanCatalogue.h"

#include "catalogue/Catalogue.h"
#include "desktop/FileHelpers.h"
#include "intake/NewSong.h"

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace quaverly {

ScanCatalogue::ScanCatalogue(Catalogue &catalogue, ScanReport &report)
    : m_catalogue(catalogue), m_report(report)
{}

ScanCatalogue::~ScanCatalogue() = default;

template <typename Statement> bool ScanCatalogue::attempt(Statement &&statement)
{
    return m_report.attempt([&] {
        try {
            statement();
        } catch (const dao::DaoError &error) {
            m_failure = error.description;
            m_diskFull = m_diskFull || error.number == dao::DiskFull;
            throw;
        }
    });
}

void ScanCatalogue::open()
{
    attempt([&] {
        m_contacts = database().OpenRecordset(u"tblContacts"_s, dao::RecordsetType::Table);
        m_contacts->setIndex(u"PathFile"_s);
        m_facts.emplace(database());
        rememberOtherForms();
    });
    m_report.settle(m_catalogue.DatabaseFile);
}

void ScanCatalogue::close()
{
    m_contacts.reset();
    m_facts.reset();
}

/** A slash typed twice, or a dot, names the same folder and would bring all its songs in a second time. */
void ScanCatalogue::rememberOtherForms()
{
    const auto rows =
        database().OpenRecordset(u"SELECT DISTINCT PathName FROM tblContacts WHERE InStr(PathName, '//') > 0 "
                                 "Or InStr(PathName, '/./') > 0 Or InStr(PathName, '/../') > 0"_s,
                                 dao::RecordsetType::Snapshot);
    for (; !rows->atEOF(); rows->MoveNext()) {
        const QString written = rows->text(u"PathName"_s);
        m_otherForms[CleanFolder(written)].append(written);
    }
}

bool ScanCatalogue::holds(const QString &folder, const QString &fileName)
{
    bool found = false;
    attempt([&] {
        found = seek(folder, fileName);
        if (found || m_otherForms.isEmpty())
            return;
        const QStringList others = m_otherForms.value(folder);
        found = std::ranges::any_of(others, [&](const QString &other) { return seek(other, fileName); });
    });
    return found;
}

bool ScanCatalogue::seek(const QString &folder, const QString &fileName)
{
    contacts().Seek(u"="_s, {folder, fileName});
    return !contacts().NoMatch();
}

void ScanCatalogue::describe(const QString &sentence)
{
    if (m_catalogue.CatalogueDb)
        m_catalogue.CatalogueDb->describeChange(sentence);
}

void ScanCatalogue::startLoad()
{
    attempt([&] { m_load.emplace(database(), u"tblContacts"_s); });
}

void ScanCatalogue::beginFolder()
{
    // Where it can't begin, each song is written for itself, and what keeps it out is told under its own
    // name.
    try {
        database().workspace().BeginTrans();
        m_inFolder = true;
    } catch (const dao::DaoError &error) {
        m_failure = error.description;
    }
}

void ScanCatalogue::add(const NewSong &song, const QString &fullPath,
                        const std::optional<shell::FileStamp> &stamp)
{
    attempt([&] { contacts().AddNew(); });
    for (const auto &entry : song)
        attempt([&] { contacts().setValue(entry.first, entry.second); });
    const bool stored = attempt([&] { contacts().Update(); });
    if (stored && stamp && m_facts)
        attempt([&] { m_facts->add({contacts().LastModified().key, *stamp, {}, tagsOf(song)}); });
    if (m_contacts && m_contacts->editing())
        attempt([&] { m_contacts->CancelUpdate(); });
    if (!stored && m_diskFull) {
        ++m_lost;
        return;
    }
    // A row that the store refused counts as well.
    ++m_added;
    if (stored)
        m_underWay.append(fullPath);
    else
        m_report.passOver(PassedOver::NotStored, m_failure);
}

void ScanCatalogue::endFolder()
{
    if (!std::exchange(m_inFolder, false))
        return;
    if (!attempt([&] { database().workspace().CommitTrans(); }))
        countLost();
    else if (!database().workspace().isPending())
        m_underWay.clear();
}

bool ScanCatalogue::finishStep()
{
    bool more = false;
    if (!attempt([&] { more = m_load && m_load->finishStep(); }))
        countLost();
    else
        m_underWay.clear();
    return more;
}

void ScanCatalogue::endLoad()
{
    m_load.reset();
    m_report.settle(m_catalogue.DatabaseFile);
}

/** A commit covers many folders: when it fails, only a look tells which of their songs are there. */
void ScanCatalogue::countLost()
{
    const QString reason = m_failure;
    QStringList there;
    for (const QString &path : std::exchange(m_underWay, {})) {
        bool found = false;
        m_report.attempt([&] { found = seek(folderOf(path), fileNameOf(path)); });
        if (found) {
            there.append(path);
            continue;
        }
        --m_added;
        if (m_diskFull) {
            ++m_lost;
            m_report.note(reason);
        } else {
            m_report.passOver(PassedOver::NotStored, reason);
        }
        m_report.settle(path);
    }
    m_report.settle(m_catalogue.DatabaseFile);
    if (m_catalogue.CatalogueDb && m_catalogue.CatalogueDb->workspace().isPending())
        m_underWay = there;
}

bool ScanCatalogue::lacksIndexes() const
{
    return m_catalogue.CatalogueDb && m_catalogue.CatalogueDb->lacksIndexes();
}

dao::Database &ScanCatalogue::database()
{
    if (!m_catalogue.CatalogueDb)
        throw dao::DaoError(dao::ObjectInvalid, u"No catalogue is open"_s);
    return *m_catalogue.CatalogueDb;
}

dao::Recordset &ScanCatalogue::contacts()
{
    if (!m_contacts)
        throw dao::DaoError(dao::ObjectInvalid, u"The song table is not open"_s);
    return *m_contacts;
}

} // namespace quaverly
