// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>

#include <vector>

class QMenu;
class QToolButton;

namespace quaverly {

/**
 * The row of tool buttons. In a narrow window the captions go first, then the last groups before the
 * gap move into the menu of the button `cmdMore`, whose commands stay the buttons' own.
 */
class ToolRow final : public QWidget
{
    Q_OBJECT

public:
    using QWidget::QWidget;

    /** Takes in the buttons, separators and the gap that the layout holds by now, and gives them icons. */
    void setUp(const std::vector<std::pair<QToolButton *, QString>> &icons);

    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void resizeEvent(QResizeEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    /** Buttons between two separators, with the separator in front. */
    struct Group
    {
        QWidget *separator = nullptr;
        std::vector<QToolButton *> buttons;
    };

    void arrange();
    void fillMoreMenu();
    [[nodiscard]] int width(Qt::ToolButtonStyle style, std::size_t groups) const;
    void setStyle(Qt::ToolButtonStyle style);

    std::vector<Group> m_groups;
    /** Those behind the gap, which stay. */
    std::vector<QToolButton *> m_last;
    QToolButton *m_more = nullptr;
    QMenu *m_moreMenu = nullptr;
    std::size_t m_shown = 0;
};

} // namespace quaverly
