// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/FileFilter.h"

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

QString defaultExtension(const QList<FileFilter> &filters)
{
    if (filters.isEmpty())
        return {};
    const QString pattern = filters.first().patterns.first();
    const QString extension = pattern.section(u'.', -1);
    const bool isOne = pattern.contains(u'.') && !extension.contains(u'*') && !extension.contains(u'?');
    return isOne ? extension : QString();
}

} // namespace quaverly
