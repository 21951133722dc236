// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/RichTextForms.h"

#include <QTextDocument>

namespace quaverly {

RichTextForms::~RichTextForms()
{
    delete m_form.data();
}

void RichTextForms::show(std::unique_ptr<QTextDocument> report)
{
    // A closed screen deletes itself later; it is not shown again.
    if (!m_form || !m_form->isVisible()) {
        auto form = std::make_unique<RichTextForm>(m_desktop, m_options, m_state);
        form->setAttribute(Qt::WA_DeleteOnClose);
        m_form = form.release();
    }
    m_form->setReport(std::move(report));
    m_form->show();
    m_form->raise();
    m_form->activateWindow();
}

void RichTextForms::unload()
{
    if (m_form)
        m_form->close();
}

} // namespace quaverly
