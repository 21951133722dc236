// SPDX-License-Identifier: GPL-3.0-or-later
#include "tags/TagPreview.h"

#include "desktop/FileHelpers.h"

#include <set>

using namespace Qt::StringLiterals;

namespace quaverly {

TagPreview::TagPreview(const TagPage &page, std::vector<TagPlan> plans)
    : m_page(page), m_plans(std::move(plans))
{
    std::set<int> files;
    std::set<int> records;
    for (const TagPlan &plan : m_plans)
        (plan.toFile ? files : records).insert(plan.song);
    QStringList parts;
    if (!files.empty())
        parts += u"Write tags into music files: %1."_s.arg(files.size());
    if (!records.empty())
        parts += u"Change records: %1."_s.arg(records.size());
    setRows(parts.join(u"  "_s), m_plans.size());
}

ChangedRowTexts TagPreview::row(int row) const
{
    const TagPlan &plan = m_plans[static_cast<std::size_t>(row)];
    const QString field = plan.field.isEmpty() ? u"Pictures"_s : TagPage::label(plan.field);
    return {fileNameOf(m_page.song(plan.song).path), field + (plan.toFile ? u" (file)"_s : u" (record)"_s),
            plan.before, plan.after};
}

QStringList TagPreview::headings() const
{
    return {u"File"_s, u"Field"_s, u"Before"_s, u"After"_s};
}

std::vector<TagPlan> TagPreview::chosen() const
{
    std::vector<TagPlan> ticked;
    for (int row = 0; row < count(); ++row) {
        if (isTicked(row))
            ticked.push_back(m_plans[static_cast<std::size_t>(row)]);
    }
    return ticked;
}

} // namespace quaverly
