// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>

#include <functional>

class QKeyEvent;
class QLineEdit;
class QPoint;
class QWidget;

namespace Ui {
class NameEdit;
}

namespace quaverly {

/** What keys and mouse lead to in the editor, beside what every control does with them. */
struct FieldActions
{
    std::function<void()> enlargeNotes;
    /** A field with a link in it was double clicked. */
    std::function<void(const QString &text)> openLink;
    /** True when the control has a menu of its own. */
    std::function<bool(const QWidget &control, QPoint globalPlace)> showMenu;
};

/**
 * Enter and the arrows go from field to field, F2 and double clicks open what a field has, names get capital
 * letters as they are typed, and the wheel changes no box that it only rolls past. Goes with the screen.
 */
class FieldKeys final : public QObject
{
    Q_OBJECT

public:
    FieldKeys(QWidget &screen, Ui::NameEdit &ui, FieldActions actions);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    [[nodiscard]] bool keyDown(QWidget &control, const QKeyEvent &key);
    [[nodiscard]] bool enlargeNotes(const QWidget &control);
    [[nodiscard]] bool focusLabel(const QWidget &field);
    [[nodiscard]] bool capitalise(QLineEdit &field, const QKeyEvent &key) const;
    void doubleClick(const QWidget &control);

    QWidget &m_screen;
    Ui::NameEdit &m_ui;
    FieldActions m_actions;
};

} // namespace quaverly
