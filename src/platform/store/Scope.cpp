// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/store/Scope.h"

#include "platform/store/Sqlite.h"

#include <algorithm>

namespace dao {

ValueType valueType(FieldType type)
{
    switch (type) {
    case FieldType::Long:
    case FieldType::Double:
        return ValueType::Number;
    case FieldType::Date:
        return ValueType::Date;
    case FieldType::Text:
    case FieldType::Memo:
        return ValueType::Text;
    }
    return ValueType::Unknown;
}

const TableInfo *LoadedNames::table(const QString &name) const
{
    const auto found = tables.find(name.toLower());
    return found == tables.end() ? nullptr : &found->second;
}

std::optional<QString> LoadedNames::query(const QString &name) const
{
    for (auto it = queries.cbegin(); it != queries.cend(); ++it) {
        if (it.key().compare(name, Qt::CaseInsensitive) == 0)
            return it.value();
    }
    return std::nullopt;
}

const Column *Source::column(const QString &name) const
{
    const auto found = std::ranges::find_if(
        columns, [&](const Column &c) { return c.name.compare(name, Qt::CaseInsensitive) == 0; });
    return found == columns.end() ? nullptr : &*found;
}

std::optional<Resolved> Scope::resolve(const QString &qualifier, const QString &name,
                                       const NameCatalogue &names) const
{
    const auto isNamed = [&](const Source &source) {
        return source.alias.compare(qualifier, Qt::CaseInsensitive) == 0;
    };
    const bool known = !qualifier.isEmpty() && std::ranges::any_of(sources, isNamed);
    const bool passOver = !known && !qualifier.isEmpty() && names.table(qualifier) != nullptr;
    for (auto it = sources.rbegin(); it != sources.rend(); ++it) {
        const Source &source = *it;
        if (!qualifier.isEmpty() && !passOver && !isNamed(source))
            continue;
        if (const Column *column = source.column(name)) {
            return Resolved{quotedName(source.alias) + '.' + quotedName(column->name),
                            valueType(column->type), column};
        }
    }
    return outer != nullptr ? outer->resolve(qualifier, name, names) : std::nullopt;
}

} // namespace dao
