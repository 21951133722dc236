// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/Preview.h"
#include "tags/TagPage.h"

namespace quaverly {

/** File by file and field by field, what writing the tags would change. */
class TagPreview final : public Preview
{
public:
    /** @p page outlives this object. */
    TagPreview(const TagPage &page, std::vector<TagPlan> plans);

    [[nodiscard]] ChangedRowTexts row(int row) const override;
    [[nodiscard]] QStringList headings() const override;
    [[nodiscard]] std::vector<TagPlan> chosen() const;

private:
    const TagPage &m_page;
    std::vector<TagPlan> m_plans;
};

} // namespace quaverly
