// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "catalogue/Catalogue.h"

#include <QList>
#include <QVariant>

#include <functional>
#include <optional>

namespace quaverly {

/** Kinds of rows in tblSettings. All but Filter and Note have one row at most. */
namespace settings {
inline constexpr char16_t GridSortOrder[] = u"GRIDSORTORDER";
inline constexpr char16_t Tablet[] = u"TABLET";
inline constexpr char16_t Category[] = u"CATEGORY";
inline constexpr char16_t CategoryStartup[] = u"CATEGORYSTARTUP";
inline constexpr char16_t AssignCategoryOnAdd[] = u"ASSIGNCATGONADD";
inline constexpr char16_t TemplateRecordID[] = u"TEMPLATE RecordID";
inline constexpr char16_t BackColor[] = u"BACKCOLOR";
inline constexpr char16_t Filter[] = u"FILTER";
inline constexpr char16_t Note[] = u"NOTE";
inline constexpr char16_t LastNote[] = u"LASTNOTE";
} // namespace settings

struct SettingsRow
{
    QString Name;
    QString Setting1;
    QString Setting8;
};

/** "True" in any case, or the number -1. A ticked box stores 1, which is not that and stays so. */
[[nodiscard]] bool isTrueText(const QString &text);

/**
 * The rows of tblSettings: all that a catalogue remembers beside its songs. Missing rows and rows
 * with nonsense in them give the default. Every operation may throw dao::DaoError.
 */
class SettingsRows final
{
public:
    explicit SettingsRows(Catalogue &catalogue) : m_catalogue(catalogue) {}

    [[nodiscard]] std::optional<SettingsRow> find(const QString &type) const;
    [[nodiscard]] std::optional<SettingsRow> find(const QString &type, const QString &name) const;
    [[nodiscard]] QList<SettingsRow> all(const QString &type) const;

    /** Edits the kind's one row or adds it. Setting1 is only written when given. */
    void store(const QString &type, const QString &name, const std::optional<QString> &setting1 = {});
    /** Edits or adds the row of that kind and name, with its long text. */
    void storeNamed(const QString &type, const QString &name, const QString &setting8);
    /** False when no row bears the old name. */
    bool rename(const QString &type, const QString &oldName, const QString &newName);
    void remove(const QString &type);
    void remove(const QString &type, const QString &name);

    /** Label of the sort box; nothing when never chosen or blank. */
    [[nodiscard]] std::optional<QString> gridSortOrder() const;
    void storeGridSortOrder(const QString &label);

    [[nodiscard]] bool tablet() const;
    void storeTablet(bool on);

    /** Name of the category in force and its clause in Setting1. */
    [[nodiscard]] std::optional<SettingsRow> category() const;
    void storeCategory(const QString &name, const QString &clause);
    void removeCategory();

    /** Compared with True, so that the 1 of the check box does not count. */
    [[nodiscard]] bool categoryAtStartup() const;
    /** Value of the check box: 0 or 1. */
    [[nodiscard]] int categoryStartupBox() const;
    void storeCategoryStartupBox(int value);

    [[nodiscard]] qint16 assignCategoryOnAdd() const;
    void storeAssignCategoryOnAdd(qint16 value);

    /** 0 without a template. */
    [[nodiscard]] qint64 templateRecordID() const;
    void storeTemplateRecordID(qint64 recordId);

    /** Red, green and blue from the lowest byte up; nothing when the row holds no such number. */
    [[nodiscard]] std::optional<quint32> backColor() const;
    void storeBackColor(quint32 colour);

private:
    [[nodiscard]] std::unique_ptr<dao::Recordset> open(const QString &type,
                                                       const std::optional<QString> &name = {}) const;
    /** Edits the row found or adds one of that kind. */
    void write(const QString &type, dao::Recordset &rows, const std::function<void(dao::Recordset &)> &fill);
    /** False on read-only ground, where what the program only remembers is not worth a message. */
    [[nodiscard]] bool canRemember() const;
    [[nodiscard]] QString nameOf(const char16_t *type) const;

    Catalogue &m_catalogue;
};

} // namespace quaverly
