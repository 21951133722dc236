// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>

#include <memory>

class QTextDocument;
class QWindow;

namespace Ui {
class RichTextForm;
}

namespace quaverly {

class Desktop;
struct Options;
struct ReportState;

/** Shows a report, lets it be touched up, saved and printed. */
class RichTextForm final : public QWidget
{
    Q_OBJECT

public:
    /** All references outlive the screen. */
    RichTextForm(Desktop &desktop, const Options &options, ReportState &state, QWidget *parent = nullptr);
    ~RichTextForm() override;

    /** Shows the report from its beginning, locked, in place of the one before. */
    void setReport(std::unique_ptr<QTextDocument> report);

protected:
    void closeEvent(QCloseEvent *event) override;

private:
    void wire();
    void Form_Load(const Options &options);
    void Form_Activate();
    void cmdLock_Click();
    void cmdSave_Click();
    void cmdPreview_Click();
    void cmdPrint_Click();
    void cmdClose_Click();

    void lock(bool locked);
    void letGo();
    void save();
    void windowFocused(const QWindow *window);

    std::unique_ptr<Ui::RichTextForm> m_ui;
    Desktop &m_desktop;
    ReportState &m_state;
    QTextDocument *m_report = nullptr;
    bool m_wasElsewhere = false;
};

} // namespace quaverly
