// SPDX-License-Identifier: GPL-3.0-or-later
#include "intake/ScanSummary.h"

#include "catalogue/Catalogue.h"
#include "intake/ScanReport.h"

#include <QStringList>

using namespace Qt::StringLiterals;

namespace quaverly {

namespace {

struct Kind
{
    PassedOver what;
    QLatin1StringView one;
    QLatin1StringView many;
};

constexpr Kind Kinds[] = {
    {PassedOver::Folder, "folder that can't be read"_L1, "folders that can't be read"_L1},
    {PassedOver::RefusedName, "name that the system refuses"_L1, "names that the system refuses"_L1},
    {PassedOver::LongPath, "path of more than 255 characters"_L1, "paths of more than 255 characters"_L1},
    {PassedOver::NoFile, "file that can't be reached"_L1, "files that can't be reached"_L1},
    {PassedOver::NotStored, "song that the database refused"_L1, "songs that the database refused"_L1},
};

} // namespace

QString doneText(const ScanCounts &counts, const QString &passedOver)
{
    return u"Number of songs added to database: "_s + QString::number(counts.added) + u"\r\n"_s +
           u"Number of songs not added because they were already in database: "_s +
           QString::number(counts.known) + u"\r\n\r\n"_s +
           (passedOver.isEmpty() ? QString() : passedOver + u"\r\n\r\n"_s) + u"Total elapsed time: "_s +
           QString::number(counts.seconds) + (counts.seconds == 1 ? u" second"_s : u" seconds"_s) +
           u" (about "_s + QString::number(counts.seconds / 60) + u" min.)"_s + u"\r\n\r\n"_s +
           u"After loading many songs, it is a good idea to choose Compact Database from the File menu.  "
           "This will remove unused space from your database file."_s;
}

QString passedOverSentence(const ScanReport &report)
{
    QStringList parts;
    for (const Kind &kind : Kinds) {
        if (const int count = report.count(kind.what); count > 0)
            parts.append(QString::number(count) + u' ' + (count == 1 ? kind.one : kind.many));
    }
    if (parts.isEmpty())
        return {};
    const QString last = parts.takeLast();
    return u"Passed over: "_s + (parts.isEmpty() ? last : parts.join(u", "_s) + u" and "_s + last) + u'.';
}

QString diskFullText(const DiskFullOutcome &outcome)
{
    QString text = u"The disk with the database '%1' is full.\n\n"_s.arg(outcome.catalogueFile);
    if (outcome.lost > 0) {
        text += u"The scan has stopped.  %1 that it had read did not reach the disk.  "_s.arg(
            outcome.lost == 1 ? u"1 song"_s : u"%1 songs"_s.arg(outcome.lost));
        text += outcome.reportPath.isEmpty()
                    ? u"There was no room for a list of the files either.\n\n"_s
                    : u"The list of the files is in '%1'.\n\n"_s.arg(outcome.reportPath);
        text += u"Make room on that disk and add the same folder again: only what is missing is added."_s;
    }
    if (outcome.lacksIndexes)
        text += (outcome.lost > 0 ? u"\n\n"_s : QString()) + slowerText();
    return text;
}

} // namespace quaverly
