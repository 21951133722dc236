// SPDX-License-Identifier: GPL-3.0-or-later
#include "tags/TagJob.h"

#include "catalogue/Catalogue.h"
#include "catalogue/TagNotes.h"
#include "desktop/Desktop.h"
#include "desktop/FileHelpers.h"
#include "platform/shell/Columns.h"
#include "platform/shell/TagWriter.h"
#include "platform/text/Text.h"
#include "tags/TagPreview.h"

#include <QDateTime>
#include <QScopeGuard>

#include <algorithm>
#include <map>
#include <set>

using namespace Qt::StringLiterals;

namespace quaverly {

namespace {

const auto Title = u"Edit Tags"_s;
/** More of what went wrong is only counted. */
constexpr qsizetype MostNamed = 10;

std::set<int> songsOf(const std::vector<TagPlan> &plans)
{
    std::set<int> songs;
    for (const TagPlan &plan : plans)
        songs.insert(plan.song);
    return songs;
}

QString counted(int count, const QString &what)
{
    return QString::number(count) + u' ' + what + (count == 1 ? QString() : u"s"_s);
}

} // namespace

RecordSink rowSink(const Services &services)
{
    return [&services](const TaggedSong &song, const QMap<QString, QString> &texts) {
        dao::Database &database = *services.catalogue.CatalogueDb;
        dao::Transaction transaction(database.workspace());
        const auto row = database.OpenRecordset(
            u"Select * from tblContacts Where RecordID=%1"_s.arg(song.song), dao::RecordsetType::Dynaset);
        if (row->isEmpty())
            throw dao::DaoError(dao::RecordDeleted, u"Record is deleted."_s);
        row->Edit();
        for (auto text = texts.cbegin(); text != texts.cend(); ++text) {
            row->setValue(text.key(), EmptyToNull(*text));
            if (text.key() == "TrackText"_L1 && IsNumeric(*text))
                row->setValue(u"TrackNum"_s, Val(*text));
        }
        row->setValue(u"DateUpdated"_s, QDateTime::currentDateTime());
        row->Update();
        transaction.commit();
    };
}

QString TagReport::text() const
{
    QStringList lines{u"Files written: %1"_s.arg(files)};
    if (records > 0)
        lines += u"Records changed: %1"_s.arg(records);
    if (wasCancelled)
        lines += u"The rest was left as it is, since you pressed Cancel."_s;
    if (!failures.isEmpty()) {
        lines += u"\nLeft as they were: %1"_s.arg(failures.size());
        lines += failures.mid(0, MostNamed);
        if (failures.size() > MostNamed)
            lines += u"... and %1 more"_s.arg(failures.size() - MostNamed);
    }
    return lines.join(u'\n');
}

bool TagJob::run(const Wishes &wishes)
{
    const std::vector<TagPlan> plans = confirmed();
    bool splitLinks = false;
    if (plans.empty() || !mayBegin(plans, splitLinks))
        return false;
    const TagReport report = write(plans, wishes, splitLinks);
    m_services.desktop.MessageBox(report.text(), Title,
                                  report.failures.isEmpty() ? Icon::Information : Icon::Exclamation);
    return report.files + report.records > 0;
}

std::vector<TagPlan> TagJob::confirmed() const
{
    std::vector<TagPlan> plans = m_page.plans();
    if (plans.empty()) {
        m_services.desktop.MessageBox(u"Nothing is different from what the files and records hold already."_s,
                                      Title);
        return {};
    }
    TagPreview preview(m_page, std::move(plans));
    return m_services.desktop.ShowPreview(preview) ? preview.chosen() : std::vector<TagPlan>();
}

QString TagJob::shortage(const std::vector<TagPlan> &plans) const
{
    // One file after the other: the largest of a folder tells what is needed there.
    constexpr qint64 beside = 1024 * 1024;
    std::map<QString, qint64> needed;
    for (const TagPlan &plan : plans) {
        if (!plan.toFile)
            continue;
        const TaggedSong &song = m_page.song(plan.song);
        qint64 &size = needed[folderOf(song.path)];
        size = std::max(size, song.file.stamp.size + beside);
    }
    for (const auto &[folder, size] : needed) {
        const auto room = shell::freeSpace(folder);
        if (room && *room < size)
            return u"Writing tags needs %1 for a copy of the file, but only %2 are free in the folder\n%3"_s
                .arg(shell::sizeText(size), shell::sizeText(*room), folder);
    }
    return {};
}

bool TagJob::mayBegin(const std::vector<TagPlan> &plans, bool &splitLinks) const
{
    if (const QString why = shortage(plans); !why.isEmpty()) {
        m_services.desktop.MessageBox(why + u"\nNothing was written."_s, u"Not enough room"_s,
                                      Icon::Exclamation);
        return false;
    }
    std::set<int> linked;
    for (const TagPlan &plan : plans) {
        if (plan.toFile && m_page.song(plan.song).file.otherNames > 0)
            linked.insert(plan.song);
    }
    if (linked.empty())
        return true;
    splitLinks =
        m_services.desktop.MessageBox(
            u"%1 of these files have other names in other places (hard links), such as "_s.arg(
                linked.size()) +
                m_page.song(*linked.begin()).path +
                u"\n\nUnder their other names they will keep the tags that they have now.\n\nGo on?"_s,
            Title, Icon::Exclamation, Buttons::YesNo, Answer::No) == Answer::Yes;
    return splitLinks;
}

TagReport TagJob::write(const std::vector<TagPlan> &plans, const Wishes &wishes, bool splitLinks)
{
    dao::Database &database = *m_services.catalogue.CatalogueDb;
    database.endChange();
    database.describeChange(u"Edit tags"_s);
    database.holdChange(true);
    const auto ended = qScopeGuard([&] {
        database.holdChange(false);
        database.endChange();
    });
    const Hourglass hourglass(m_services.desktop);
    const std::set<int> songs = songsOf(plans);
    const auto wait = m_services.desktop.ShowWorkingForm(
        u"Writing tags"_s, counted(static_cast<int>(songs.size()), u"song"_s), true);
    wait->offerCancel();
    m_services.desktop.letEventsRun();
    TagReport report;
    qint64 done = 0;
    for (const int song : songs) {
        if (m_services.desktop.inputWaiting())
            m_services.desktop.letEventsRun();
        report.wasCancelled = wait->isClosed();
        if (report.wasCancelled)
            break;
        writeSong(song, plans, wishes, splitLinks, report);
        wait->setBar(static_cast<int>(++done * FullBarTwips / static_cast<qint64>(songs.size())));
    }
    return report;
}

void TagJob::writeSong(int song, const std::vector<TagPlan> &plans, const Wishes &wishes, bool splitLinks,
                       TagReport &report)
{
    const TaggedSong &tagged = m_page.song(song);
    const auto settle = [&](bool ofFile) {
        for (const TagPlan &plan : plans) {
            if (plan.song == song && plan.toFile == ofFile)
                m_page.settle(plan);
        }
    };
    try {
        if (const shell::TagEdit edit = m_page.edit(song, plans); !edit.isEmpty()) {
            shell::TagWriter writer(tagged.path, edit, tagged.file.stamp,
                                    {.keepTimes = wishes.keepTimes, .splitLinks = splitLinks});
            TagNotes(m_services.catalogue).write(tagged.song, tagged.path, writer);
            ++report.files;
            settle(true);
            m_page.setFile(song, shell::readFileTags(tagged.path));
        }
        if (const auto texts = m_page.recordEdit(song, plans); !texts.isEmpty()) {
            m_sink(tagged, texts);
            ++report.records;
            settle(false);
        }
    } catch (const dao::DaoError &error) {
        report.failures += fileNameOf(tagged.path) + u": "_s + error.description;
    }
}

} // namespace quaverly
