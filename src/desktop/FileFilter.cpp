// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/FileFilter.h"

#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace quaverly {

namespace {

const auto AllFiles = u"All files (*.*)"_s;

QStringList parsePatterns(const QString &text)
{
    QStringList patterns;
    for (const QString &part : text.split(u';', Qt::SkipEmptyParts)) {
        const QString pattern = part.trimmed();
        if (!pattern.isEmpty())
            patterns += pattern == u"*.*"_s ? u"*"_s : pattern;
    }
    return patterns.isEmpty() ? QStringList{u"*"_s} : patterns;
}

/** Of the first pattern, without the point; empty when it has none of its own. */
QString extensionOf(const FileFilter &filter)
{
    const QString pattern = filter.patterns.first();
    const QString extension = pattern.section(u'.', -1);
    const bool isOne = pattern.contains(u'.') && !extension.contains(u'*') && !extension.contains(u'?');
    return isOne ? extension : QString();
}

} // namespace

QList<FileFilter> parseFilter(const QString &filter)
{
    const QStringList parts = filter.split(u'|');
    QList<FileFilter> filters;
    for (qsizetype i = 0; i < parts.size(); i += 2) {
        const QString description = parts.at(i).trimmed();
        const QString patterns = parts.value(i + 1).trimmed();
        if (!description.isEmpty() || !patterns.isEmpty())
            filters.append({description.isEmpty() ? patterns : description, parsePatterns(patterns)});
    }
    if (filters.isEmpty())
        filters.append({AllFiles, {u"*"_s}});
    return filters;
}

QString withEnding(const QString &name, const QList<FileFilter> &filters, qsizetype chosen)
{
    static const QRegularExpression ending(u"\\.[A-Za-z][A-Za-z0-9]{0,4}$"_s);
    if (ending.match(name).hasMatch())
        return name;
    QString wanted = chosen >= 0 && chosen < filters.size() ? extensionOf(filters.at(chosen)) : QString();
    for (const FileFilter &filter : filters)
        wanted = wanted.isEmpty() ? extensionOf(filter) : wanted;
    if (wanted.isEmpty())
        return name;
    return (name.endsWith(u'.') ? name.chopped(1) : name) + u'.' + wanted;
}

} // namespace quaverly
