// SPDX-License-Identifier: GPL-3.0-or-later
#include "maintenance/SearchAndReplace.h"

#include "catalogue/Catalogue.h"
#include "desktop/Desktop.h"
#include "platform/text/Text.h"
#include "songlist/DisplayedSet.h"

using namespace Qt::StringLiterals;

namespace quaverly {

namespace {

const auto Songs = u"tblContacts"_s;

bool isNullWord(const QString &text)
{
    return text.toLower() == "null"_L1;
}

QString countStatement(const ReplaceRequest &request)
{
    const QString head = u"Select count(*) as NumRecs from tblContacts Where "_s;
    if (isNullWord(request.original))
        return head + request.field + u" is null or "_s + request.field + u"=''"_s;
    return head + likeTest(request.field, request.original);
}

QString question(const ReplaceRequest &request, qint64 records)
{
    const QString forEach = u" for every one of these records in your database?"_s;
    if (isNullWord(request.original))
        return u"The number of records that contain no data in the selected field is: "_s +
               QString::number(records) +
               u".  Are you sure you want to set the selected field equal to \""_s + request.replacement +
               u"\""_s + forEach;
    const QString head =
        u"The number of records that contain  "_s + request.original + u"  is: "_s + QString::number(records);
    if (isNullWord(request.replacement))
        return head + u".  Are you sure you want to remove the data from the selected field"_s + forEach;
    return head + u".  Are you sure you want to replace this part of the selected field with  "_s +
           request.replacement + u" "_s + forEach;
}

} // namespace

QString withoutDoubleQuotes(QString text)
{
    return text.remove(u'"').remove(QChar(0));
}

dao::Database &SearchAndReplace::database() const
{
    return *m_parts.catalogue.CatalogueDb;
}

bool SearchAndReplace::run(ReplaceRequest &request)
{
    if (!isComplete(request))
        return false;
    const qint64 records = numRecs(database(), countStatement(request));
    if (records == 0) {
        m_parts.desktop.MessageBox(
            u"The text you specified was not found in the selected field in any records."_s, u"Not found"_s);
        return false;
    }
    if (!isConfirmed(request, records) || !m_parts.beforeBulk())
        return false;
    {
        const Hourglass hourglass(m_parts.desktop);
        if (isNullWord(request.replacement))
            request.replacement.clear();
        changing(m_parts.set.Data1(), [&] { update(request); });
        m_parts.set.Data1().Refresh();
    }
    m_parts.desktop.MessageBox(u"Update completed."_s, u"Finished"_s);
    return true;
}

bool SearchAndReplace::isComplete(const ReplaceRequest &request)
{
    if (request.field.isEmpty()) {
        m_parts.desktop.MessageBox(u"You must indicate which field you want to change."_s,
                                   u"Field not indicated"_s, Icon::Exclamation);
        return false;
    }
    if (!isGreaterThanBlank(request.original) || !isGreaterThanBlank(request.replacement)) {
        m_parts.desktop.MessageBox(
            u"Both the original text and the new replacement text must be specified.  If you want to find "
            "records with no data in a field or delete all data from a field, type the word NULL instead of "
            "leaving blank."_s,
            u"Text not specified"_s, Icon::Exclamation);
        return false;
    }
    return true;
}

bool SearchAndReplace::isConfirmed(const ReplaceRequest &request, qint64 records)
{
    return m_parts.desktop.MessageBox(question(request, records), u"Confirmation"_s, Icon::None,
                                      Buttons::YesNo, Answer::No) == Answer::Yes;
}

void SearchAndReplace::update(const ReplaceRequest &request)
{
    const TextField place{Songs, request.field};
    const QString head = u"Update tblContacts Set "_s + request.field + u"="_s;
    if (isNullWord(request.original)) {
        assertFits(database(), place, request.replacement);
        database().Execute(head + quoted(request.replacement) + u" Where "_s + request.field +
                           u" is null or "_s + request.field + u"= ''"_s);
    } else if (!request.replacement.isEmpty()) {
        replaceInAllRows(database(), place, request.original, request.replacement);
    } else {
        // The whole field goes, not only the part that matches, as the question said.
        database().Execute(head + u"\"\""_s + u" Where "_s + likeTest(request.field, request.original));
    }
}

} // namespace quaverly
