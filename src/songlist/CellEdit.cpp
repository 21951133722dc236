// SPDX-License-Identifier: GPL-3.0-or-later
#include "songlist/CellEdit.h"

#include "catalogue/SongFields.h"
#include "platform/text/Text.h"
#include "songlist/DataControl.h"

using namespace Qt::StringLiterals;

namespace quaverly {

namespace {

QVariant valueFor(const QString &field, const QString &text)
{
    const SongField *known = songField(field);
    if (known == nullptr || known->type != dao::FieldType::Date || !isGreaterThanBlank(text))
        return EmptyToNull(text);
    const std::optional<QDateTime> date = parseDate(text);
    if (!date)
        throw dao::DaoError(dao::TypeMismatch, u"\"%1\" is not a date."_s.arg(text));
    return *date;
}

/** The store keeps wall times: no zone is meant. */
QDateTime wallTime(const QDateTime &now)
{
    return {now.date(), QTime(now.time().hour(), now.time().minute(), now.time().second()), Qt::UTC};
}

} // namespace

void writeCell(DataControl &data, const QString &field, const QString &text, const QDateTime &now)
{
    const QVariant value = valueFor(field, text);
    dao::Recordset &rows = data.Recordset();
    rows.Edit();
    try {
        rows.setValue(u"DateUpdated"_s, wallTime(now));
        rows.setValue(field, value);
        rows.Update();
    } catch (...) {
        if (rows.editing())
            rows.CancelUpdate();
        throw;
    }
    data.notifyRowChanged();
}

} // namespace quaverly
