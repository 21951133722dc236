// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/PreviewModel.h"

#include <QDialog>

#include <memory>

namespace Ui {
class frmPreview;
}

namespace quaverly {

class Desktop;

/** Lists what a command would do, lets the user untick rows, and goes on or gives up. */
class frmPreview final : public QDialog
{
    Q_OBJECT

public:
    /** Both outlive the screen. */
    frmPreview(Desktop &desktop, Preview &preview, QWidget *parent = nullptr);
    ~frmPreview() override;

    /** The space bar ticks the selected rows. */
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void wire();
    void Form_Load();
    void showCounts();
    void guard(const std::function<void()> &handler);
    void cmdAll_Click();
    void cmdNone_Click();
    void cmdSelected_Click();
    void cmdShowSong_Click();
    void cmbRule_Click(int rule);
    void cmdGoOn_Click();

    std::unique_ptr<Ui::frmPreview> m_ui;
    Desktop &m_desktop;
    Preview &m_preview;
    PreviewModel m_rows;
};

} // namespace quaverly
