// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDialog>

#include <memory>

namespace Ui {
class frmHelp;
}

namespace quaverly {

/** A page of help: a heading and its paragraphs, which scroll when they are longer than the screen. */
class frmHelp final : public QDialog
{
    Q_OBJECT

public:
    frmHelp(const QString &heading, const QString &body, QWidget *parent = nullptr);
    ~frmHelp() override;

protected:
    void showEvent(QShowEvent *event) override;

private:
    void wire();
    void fitToScreen();
    void OKButton_Click();

    std::unique_ptr<Ui::frmHelp> m_ui;
};

} // namespace quaverly
