// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/SettingsRows.h"

#include "catalogue/SortOrders.h"

#include "platform/text/Text.h"

#include <cmath>
#include <limits>

using namespace Qt::StringLiterals;

namespace quaverly {

namespace {

QString kind(const char16_t *type)
{
    return QString::fromUtf16(type);
}

/** A whole number between the bounds, or nothing. */
std::optional<qint64> wholeNumber(const QString &text, double lowest, double highest)
{
    if (!IsNumeric(text))
        return std::nullopt;
    const double value = Val(text);
    if (!(value >= lowest && value <= highest))
        return std::nullopt;
    return static_cast<qint64>(value);
}

SettingsRow rowOf(const dao::Recordset &rows)
{
    return {NullToEmpty(rows.value(u"Name"_s)), NullToEmpty(rows.value(u"Setting1"_s)),
            NullToEmpty(rows.value(u"Setting8"_s))};
}

std::optional<SettingsRow> firstRow(const dao::Recordset &rows)
{
    return rows.isEmpty() ? std::nullopt : std::optional(rowOf(rows));
}

} // namespace

bool isTrueText(const QString &text)
{
    const QString trimmed = text.trimmed();
    return trimmed.compare("True"_L1, Qt::CaseInsensitive) == 0 || (IsNumeric(trimmed) && Val(trimmed) == -1);
}

std::unique_ptr<dao::Recordset> SettingsRows::open(const QString &type,
                                                   const std::optional<QString> &name) const
{
    QString sql = u"Select * from tblSettings Where Type='"_s + type + u'\'';
    if (name)
        sql += u" and Name='"_s + ReplaceText(*name, u"'"_s, u"''"_s) + u'\'';
    return m_catalogue.CatalogueDb->OpenRecordset(sql, dao::RecordsetType::Dynaset);
}

void SettingsRows::write(const QString &type, dao::Recordset &rows,
                         const std::function<void(dao::Recordset &)> &fill)
{
    if (rows.isEmpty())
        rows.AddNew();
    else
        rows.Edit();
    rows.setValue(u"Type"_s, type);
    fill(rows);
    rows.Update();
}

bool SettingsRows::canRemember() const
{
    return m_catalogue.CatalogueDb->Updatable();
}

QString SettingsRows::nameOf(const char16_t *type) const
{
    const auto row = find(kind(type));
    return row ? row->Name : QString();
}

std::optional<SettingsRow> SettingsRows::find(const QString &type) const
{
    return firstRow(*open(type));
}

std::optional<SettingsRow> SettingsRows::find(const QString &type, const QString &name) const
{
    return firstRow(*open(type, name));
}

QList<SettingsRow> SettingsRows::all(const QString &type) const
{
    QList<SettingsRow> found;
    for (const auto rows = open(type); !rows->atEOF(); rows->MoveNext())
        found.append(rowOf(*rows));
    return found;
}

void SettingsRows::store(const QString &type, const QString &name, const std::optional<QString> &setting1)
{
    write(type, *open(type), [&](dao::Recordset &row) {
        row.setValue(u"Name"_s, name);
        if (setting1)
            row.setValue(u"Setting1"_s, *setting1);
    });
}

void SettingsRows::storeNamed(const QString &type, const QString &name, const QString &setting8)
{
    write(type, *open(type, name), [&](dao::Recordset &row) {
        row.setValue(u"Name"_s, name);
        row.setValue(u"Setting8"_s, setting8);
    });
}

bool SettingsRows::rename(const QString &type, const QString &oldName, const QString &newName)
{
    const auto rows = open(type, oldName);
    if (rows->isEmpty())
        return false;
    rows->Edit();
    rows->setValue(u"Name"_s, newName);
    rows->Update();
    return true;
}

void SettingsRows::remove(const QString &type)
{
    if (const auto rows = open(type); !rows->isEmpty())
        rows->Delete();
}

void SettingsRows::remove(const QString &type, const QString &name)
{
    if (const auto rows = open(type, name); !rows->isEmpty())
        rows->Delete();
}

std::optional<QString> SettingsRows::gridSortOrder() const
{
    const QString label = nameOf(settings::GridSortOrder);
    return isGreaterThanBlank(label) ? std::optional(label) : std::nullopt;
}

void SettingsRows::storeGridSortOrder(const QString &label)
{
    // Start and Show All come through here too: a choice that stands already needs no write to the disk.
    if (canRemember() && gridSortOrder().value_or(DefaultSortLabel) != label)
        store(kind(settings::GridSortOrder), label);
}

bool SettingsRows::tablet() const
{
    return isTrueText(nameOf(settings::Tablet));
}

void SettingsRows::storeTablet(bool on)
{
    store(kind(settings::Tablet), on ? u"True"_s : u"False"_s);
}

std::optional<SettingsRow> SettingsRows::category() const
{
    return find(kind(settings::Category));
}

void SettingsRows::storeCategory(const QString &name, const QString &clause)
{
    if (canRemember())
        store(kind(settings::Category), name, clause);
}

void SettingsRows::removeCategory()
{
    if (canRemember())
        remove(kind(settings::Category));
}

bool SettingsRows::categoryAtStartup() const
{
    // The box is stored as 1; True and -1 stand in catalogues from elsewhere.
    const QString stored = nameOf(settings::CategoryStartup);
    return isTrueText(stored) || wholeNumber(stored, 1, 1);
}

int SettingsRows::categoryStartupBox() const
{
    return categoryAtStartup() ? 1 : 0;
}

void SettingsRows::storeCategoryStartupBox(int value)
{
    store(kind(settings::CategoryStartup), QString::number(value));
}

qint16 SettingsRows::assignCategoryOnAdd() const
{
    constexpr double Limit = std::numeric_limits<qint16>::max();
    return static_cast<qint16>(
        std::abs(wholeNumber(nameOf(settings::AssignCategoryOnAdd), -Limit, Limit).value_or(0)));
}

void SettingsRows::storeAssignCategoryOnAdd(qint16 value)
{
    store(kind(settings::AssignCategoryOnAdd), QString::number(value));
}

qint64 SettingsRows::templateRecordID() const
{
    constexpr double Limit = std::numeric_limits<qint32>::max();
    return wholeNumber(nameOf(settings::TemplateRecordID), 0, Limit).value_or(0);
}

void SettingsRows::storeTemplateRecordID(qint64 recordId)
{
    const QString type = kind(settings::TemplateRecordID);
    write(type, *open(type), [&](dao::Recordset &row) {
        row.setValue(u"Name"_s, recordId == 0 ? QVariant() : QString::number(recordId));
    });
}

std::optional<quint32> SettingsRows::backColor() const
{
    const auto colour = wholeNumber(nameOf(settings::BackColor), 0, 0xFFFFFF);
    return colour ? std::optional(static_cast<quint32>(*colour)) : std::nullopt;
}

void SettingsRows::storeBackColor(quint32 colour)
{
    store(kind(settings::BackColor), QString::number(colour));
}

} // namespace quaverly
