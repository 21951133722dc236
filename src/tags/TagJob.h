// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "catalogue/Services.h"
#include "tags/TagPage.h"

#include <functional>

namespace quaverly {

/** Where what a song's record takes over from its file goes. @throws dao::DaoError */
using RecordSink = std::function<void(const TaggedSong &song, const QMap<QString, QString> &texts)>;

/** A sink that writes the song's row. @p services outlives it. */
[[nodiscard]] RecordSink rowSink(const Services &services);

/** What became of the plans. */
struct TagReport
{
    int files = 0;
    int records = 0;
    /** A line for each song that was left as it was. */
    QStringList failures;
    bool wasCancelled = false;

    [[nodiscard]] QString text() const;
};

/** Asks, writes tags and records, song by song, as one change of the history, and tells. */
class TagJob final
{
public:
    /** Both outlive this object. */
    TagJob(const Services &services, TagPage &page, RecordSink sink)
        : m_services(services), m_page(page), m_sink(std::move(sink))
    {}

    struct Wishes
    {
        bool keepTimes = false;
    };
    /** True when something was written. Nothing is when the user takes his wish back. */
    bool run(const Wishes &wishes);

private:
    [[nodiscard]] std::vector<TagPlan> confirmed() const;
    [[nodiscard]] bool mayBegin(const std::vector<TagPlan> &plans, bool &splitLinks) const;
    [[nodiscard]] QString shortage(const std::vector<TagPlan> &plans) const;
    [[nodiscard]] TagReport write(const std::vector<TagPlan> &plans, const Wishes &wishes, bool splitLinks);
    void writeSong(int song, const std::vector<TagPlan> &plans, const Wishes &wishes, bool splitLinks,
                   TagReport &report);

    const Services &m_services;
    TagPage &m_page;
    RecordSink m_sink;
};

} // namespace quaverly
