// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "reports/ReportRun.h"

#include <QTextCursor>

#include <memory>

class QTextDocument;

namespace quaverly {

/** A report as a document. Runs that look alike go in together: a long report is as fast as its text. */
class ReportDocument final : public ReportSink
{
public:
    ReportDocument();
    ~ReportDocument() override;

    void write(QStringView text, const RunFormat &format) override;
    /** The whole document; nothing is written afterwards. */
    [[nodiscard]] std::unique_ptr<QTextDocument> take();

private:
    void flush();

    std::unique_ptr<QTextDocument> m_document;
    QTextCursor m_cursor;
    QString m_pending;
    RunFormat m_format;
};

} // namespace quaverly
