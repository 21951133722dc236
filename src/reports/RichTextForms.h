// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "reports/ReportViewer.h"
#include "reports/RichTextForm.h"

#include <QPointer>

namespace quaverly {

/** Makes the screen for the first report; it goes when it is closed. */
class RichTextForms final : public ReportViewer
{
public:
    /** All references outlive this object. */
    RichTextForms(Desktop &desktop, const Options &options, ReportState &state)
        : m_desktop(desktop), m_options(options), m_state(state)
    {}
    ~RichTextForms() override;
    RichTextForms(const RichTextForms &) = delete;
    RichTextForms &operator=(const RichTextForms &) = delete;

    void show(std::unique_ptr<QTextDocument> report) override;
    void unload() override;

    /** Null while no report is shown. */
    [[nodiscard]] RichTextForm *form() const { return m_form; }

private:
    Desktop &m_desktop;
    const Options &m_options;
    ReportState &m_state;
    QPointer<RichTextForm> m_form;
};

} // namespace quaverly
