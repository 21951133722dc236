// SPDX-License-Identifier: GPL-3.0-or-later
#include "maintenance/SearchAndReplace.h"

#include "catalogue/Catalogue.h"
#include "catalogue/SongFields.h"
#include "desktop/PreviewQuestion.h"
#include "maintenance/BulkChange.h"
#include "maintenance/TextPreview.h"
#include "platform/text/Text.h"
#include "songlist/DisplayedSet.h"

using namespace Qt::StringLiterals;

namespace quaverly {

namespace {

bool isNullWord(const QString &text)
{
    return text.toLower() == "null"_L1;
}

TextChange changeOf(const ReplaceRequest &request)
{
    const TextField place{.table = u"tblContacts"_s, .field = request.field, .key = u"RecordID"_s};
    const QString replacement = isNullWord(request.replacement) ? QString() : request.replacement;
    if (isNullWord(request.original))
        return allReplaced(place, request.field + u" is null or "_s + request.field + u"=''"_s, replacement);
    // The whole field goes, not only the part that matches, as the question says.
    if (replacement.isEmpty())
        return allReplaced(place, likeTest(request.field, request.original), {});
    return partReplaced(place, request.original, replacement);
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

/** "tblContacts.Genre" is "Genre" to the user. */
QString sentence(const ReplaceRequest &request)
{
    const QString name = request.field.section(u'.', -1).trimmed();
    const SongField *field = songField(name);
    const QString heading = field != nullptr && !field->heading.isEmpty() ? QString(field->heading) : name;
    return u"Replace \"%1\" by \"%2\" in %3"_s.arg(request.original, request.replacement, heading);
}

} // namespace

QString withoutDoubleQuotes(QString text)
{
    return text.remove(u'"').remove(QChar(0));
}

dao::Database &SearchAndReplace::database() const
{
    return *m_parts.services.catalogue.CatalogueDb;
}

bool SearchAndReplace::run(ReplaceRequest &request)
{
    if (!isComplete(request))
        return false;
    TextChange change = changeOf(request);
    qint64 records = countRows(database(), change);
    if (records == 0) {
        m_parts.services.desktop.MessageBox(
            u"The text you specified was not found in the selected field in any records."_s, u"Not found"_s);
        return false;
    }
    if (!isConfirmed(request, change, records))
        return false;
    const bool done = BulkChange(m_parts).run({
        .caption = u"Search and Replace"_s,
        .command = u"Find and Replace Text"_s,
        .sentence = sentence(request),
        .change = [&](const dao::GoesOn &goesOn) { return changeTexts(database(), change, goesOn); },
        .showResult = [this] { m_parts.set.Data1().Refresh(); },
        .changesRows = changesRows(database(), change),
    });
    if (!done)
        return false;
    if (isNullWord(request.replacement))
        request.replacement.clear();
    m_parts.services.desktop.MessageBox(u"Update completed.  Records changed: "_s + QString::number(records),
                                        u"Finished"_s);
    return true;
}

bool SearchAndReplace::isComplete(const ReplaceRequest &request)
{
    if (request.field.isEmpty()) {
        m_parts.services.desktop.MessageBox(u"You must indicate which field you want to change."_s,
                                            u"Field not indicated"_s, Icon::Exclamation);
        return false;
    }
    if (!isGreaterThanBlank(request.original) || !isGreaterThanBlank(request.replacement)) {
        m_parts.services.desktop.MessageBox(
            u"Both the original text and the new replacement text must be specified.  If you want to find "
            "records with no data in a field or delete all data from a field, type the word NULL instead of "
            "leaving blank."_s,
            u"Text not specified"_s, Icon::Exclamation);
        return false;
    }
    return true;
}

bool SearchAndReplace::isConfirmed(const ReplaceRequest &request, TextChange &change, qint64 &records)
{
    std::unique_ptr<TextPreview> preview;
    if (!quaverly::isConfirmed(
            m_parts.services.desktop, {question(request, records), u"Confirmation"_s}, [&]() -> Preview & {
                preview = std::make_unique<TextPreview>(SongPreview::Ground{database(), m_parts.set.Data1()},
                                                        sentence(request), std::vector{change});
                return *preview;
            }))
        return false;
    if (preview) {
        change = preview->chosen().front();
        records = preview->ticked();
    }
    return true;
}

} // namespace quaverly
