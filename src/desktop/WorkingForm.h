// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>

#include <memory>

namespace Ui {
class WorkingForm;
}

namespace quaverly {

/** The please-wait window. A click or a key that types unloads it, and it deletes itself then. */
class WorkingForm final : public QWidget
{
    Q_OBJECT

public:
    explicit WorkingForm(QWidget *owner = nullptr);
    ~WorkingForm() override;

    /** Caption of the window, repeated as its heading. */
    void setCaption(const QString &caption);
    /** Line feeds around the text are left out: the window centres it by itself. */
    void setMsg(const QString &text);
    void showBar();
    void offerCancel();
    /** 0 to FullBarTwips; painted at once, without events running. */
    void setBar(int twips);

protected:
    void mousePressEvent(QMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    std::unique_ptr<Ui::WorkingForm> m_ui;
};

} // namespace quaverly
