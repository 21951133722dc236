// SPDX-License-Identifier: GPL-3.0-or-later
#include "main/ToolRow.h"

#include "desktop/Icons.h"

#include <QEvent>
#include <QLayout>
#include <QMenu>
#include <QToolButton>

using namespace Qt::StringLiterals;

namespace quaverly {

namespace {

constexpr int IconPixels = 22;
constexpr int SeparatorPixels = 6;

} // namespace

void ToolRow::setUp(const std::vector<std::pair<QToolButton *, QString>> &icons)
{
    m_groups.assign(1, Group());
    bool behindGap = false;
    for (int i = 0; i < layout()->count(); ++i) {
        QWidget *widget = layout()->itemAt(i)->widget();
        auto *button = qobject_cast<QToolButton *>(widget);
        if (widget == nullptr)
            behindGap = true;
        else if (button == nullptr)
            m_groups.push_back({widget, {}});
        else if (button->objectName() == "cmdMore"_L1)
            m_more = button;
        else if (behindGap)
            m_last.push_back(button);
        else
            m_groups.back().buttons.push_back(button);
    }
    for (const auto &[button, name] : icons) {
        button->setIcon(icon(name, *button));
        button->setIconSize({IconPixels, IconPixels});
    }
    m_moreMenu = new QMenu(this);
    m_more->setMenu(m_moreMenu);
    m_more->setPopupMode(QToolButton::InstantPopup);
    connect(m_moreMenu, &QMenu::aboutToShow, this, &ToolRow::fillMoreMenu);
    m_shown = m_groups.size();
    m_more->hide();
    setStyle(Qt::ToolButtonTextUnderIcon);
}

void ToolRow::setStyle(Qt::ToolButtonStyle style)
{
    for (auto *button : findChildren<QToolButton *>())
        button->setToolButtonStyle(style);
}

/** Of the first @p groups, with the buttons that always stay. */
int ToolRow::width(Qt::ToolButtonStyle style, std::size_t groups) const
{
    const int text = style == Qt::ToolButtonIconOnly ? 0 : 1;
    const int spacing = layout()->spacing();
    const auto widthOf = [&](const QToolButton *button) {
        const int caption = text * (fontMetrics().horizontalAdvance(button->text()) + 12);
        return std::max(IconPixels + 10, caption) + spacing;
    };
    int total = 0;
    for (std::size_t i = 0; i < groups; ++i) {
        for (const QToolButton *button : m_groups[i].buttons)
            total += widthOf(button);
        total += SeparatorPixels + spacing;
    }
    for (const QToolButton *button : m_last)
        total += widthOf(button);
    if (groups < m_groups.size())
        total += widthOf(m_more) + 10;
    return total;
}

void ToolRow::arrange()
{
    if (m_groups.empty())
        return;
    const int room = QWidget::width();
    const bool captions = width(Qt::ToolButtonTextUnderIcon, m_groups.size()) <= room;
    const Qt::ToolButtonStyle style = captions ? Qt::ToolButtonTextUnderIcon : Qt::ToolButtonIconOnly;
    std::size_t shown = m_groups.size();
    while (shown > 1 && width(style, shown) > room)
        --shown;
    setStyle(style);
    m_shown = shown;
    for (std::size_t i = 0; i < m_groups.size(); ++i) {
        if (m_groups[i].separator != nullptr)
            m_groups[i].separator->setVisible(i < shown);
        for (QToolButton *button : m_groups[i].buttons)
            button->setVisible(i < shown);
    }
    m_more->setVisible(shown < m_groups.size());
}

void ToolRow::fillMoreMenu()
{
    m_moreMenu->clear();
    for (std::size_t i = m_shown; i < m_groups.size(); ++i) {
        for (QToolButton *button : m_groups[i].buttons) {
            QAction *entry =
                m_moreMenu->addAction(button->icon(), button->text(), button, &QToolButton::click);
            entry->setEnabled(button->isEnabled());
        }
        m_moreMenu->addSeparator();
    }
}

QSize ToolRow::minimumSizeHint() const
{
    return {m_groups.empty() ? 0 : width(Qt::ToolButtonIconOnly, 1), QWidget::minimumSizeHint().height()};
}

void ToolRow::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    arrange();
}

void ToolRow::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::FontChange)
        arrange();
}

} // namespace quaverly
