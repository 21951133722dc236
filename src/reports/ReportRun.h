// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringView>

namespace quaverly {

/** Colour numbers of a report: red, green and blue from the lowest byte up. */
namespace reportcolors {
inline constexpr quint32 Black = 0;
inline constexpr quint32 Blue = 0xFF0000;
inline constexpr quint32 White = 0xFFFFFF;
} // namespace reportcolors

/** Ends a page, in white, so that it doesn't show. */
inline constexpr char16_t ReportPageBreak[] = u"\f";

/** How a run of a report's text looks. */
struct RunFormat
{
    QString font = QStringLiteral("Arial");
    /** In points. */
    int size = 10;
    bool bold = false;
    quint32 color = reportcolors::Black;

    bool operator==(const RunFormat &) const = default;
};

/** Takes a report's text as it is composed, run by run. */
class ReportSink
{
public:
    virtual ~ReportSink() = default;
    virtual void write(QStringView text, const RunFormat &format) = 0;
};

} // namespace quaverly
