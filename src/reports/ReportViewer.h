// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <memory>

class QTextDocument;

namespace quaverly {

/** What is known of the report on the screen. */
struct ReportState
{
    /** "Stats" alone is asked for, and no command of the program makes one. */
    QString ReportKind;
};

/** Shows reports, one at a time: a new one takes the last one's place. */
class ReportViewer
{
public:
    virtual ~ReportViewer() = default;

    /** Does not block. */
    virtual void show(std::unique_ptr<QTextDocument> report) = 0;
    /** Closes the screen if it is open. */
    virtual void unload() = 0;
};

} // namespace quaverly
