// SPDX-License-Identifier: GPL-3.0-or-later
#include "main/NameList.h"
#include "ui_NameList.h"

#include "catalogue/SortOrders.h"
#include "desktop/ColorNumber.h"
#include "desktop/Desktop.h"
#include "main/BackColor.h"
#include "main/Session.h"
#include "platform/text/Twips.h"
#include "songlist/ColumnMoves.h"
#include "songlist/GridHandlers.h"

#include <QApplication>

using namespace Qt::StringLiterals;

namespace quaverly {

/** Null for what is a menu's entry alone. */
QWidget *NameList::controlOf(MainControl control) const
{
    switch (control) {
    case MainControl::cmdShowArtistSongs:
        return m_ui->cmdShowArtistSongs;
    case MainControl::cmdShowSelected:
        return m_ui->cmdShowSelected;
    case MainControl::cmbSort:
        return m_ui->cmbSort;
    case MainControl::cmdSortSong:
        return m_ui->cmdSortSong;
    case MainControl::cmdSortArtist:
        return m_ui->cmdSortArtist;
    case MainControl::cmdAdd:
        return m_ui->cmdAdd;
    case MainControl::cmdEdit:
        return m_ui->cmdEdit;
    case MainControl::cmdDelete:
        return m_ui->cmdDelete;
    case MainControl::cmdPlay:
        return m_ui->cmdPlay;
    case MainControl::cmdPlayAll:
        return m_ui->cmdPlayAll;
    case MainControl::cmdExit:
        return m_ui->cmdExit;
    case MainControl::cmdFilter:
        return m_ui->cmdFilter;
    case MainControl::cmdFind:
        return m_ui->cmdFind;
    case MainControl::File:
        return m_ui->File;
    case MainControl::lblFilterMsg:
        return m_ui->lblFilterMsg;
    case MainControl::AddMenu:
    case MainControl::FindEditMenu:
        break;
    }
    return nullptr;
}

void NameList::setEnabled(MainControl control, bool enabled)
{
    if (control == MainControl::FindEditMenu)
        m_ui->FindEditMenu->setEnabled(enabled);
    if (control == MainControl::AddMenu)
        m_ui->AddMenu->setEnabled(enabled);
    if (QWidget *widget = controlOf(control))
        widget->setEnabled(enabled);
}

void NameList::setVisible(MainControl control, bool visible)
{
    if (QWidget *widget = controlOf(control))
        widget->setVisible(visible);
}

bool NameList::isVisible(MainControl control) const
{
    const QWidget *widget = controlOf(control);
    return widget != nullptr && !widget->isHidden();
}

void NameList::set_lblCategory(const QString &caption)
{
    m_stateLine.setCategory(caption);
    if (caption.startsWith("Records containing"_L1) || caption.startsWith("Showing"_L1))
        setEnabled(MainControl::cmdAdd, false);
}

QString NameList::lblCategory() const
{
    return m_ui->lblCategory->text();
}

void NameList::set_lblFilterMsg(const QString &caption)
{
    m_ui->lblFilterMsg->setText(caption);
}

QString NameList::lblFilterMsg() const
{
    return m_ui->lblFilterMsg->text();
}

void NameList::set_lblSelectedCount(const QString &caption)
{
    m_stateLine.setSelectedCount(caption);
}

void NameList::set_cmdShowArtistSongs(const QString &caption)
{
    m_stateLine.setArtistButton(caption);
}

QString NameList::cmdShowArtistSongs() const
{
    return m_stateLine.artistButton();
}

void NameList::set_txtLocate(const QString &text)
{
    m_ui->txtLocate->setText(text);
}

void NameList::set_txtName(const QString &text)
{
    m_ui->txtName->setDescription(text);
}

QString NameList::cmbSort() const
{
    return m_ui->cmbSort->currentText();
}

void NameList::set_cmbSort(const QString &label)
{
    if (m_ui->cmbSort->count() == 0) {
        for (const SortOrder &order : sortOrders())
            m_ui->cmbSort->addItem(order.label);
    }
    m_ui->cmbSort->setCurrentText(QString(sortOrder(label).label));
    cmbSort_Click();
}

QString NameList::firstColumnField() const
{
    return m_ui->Table1->songs().column(1).dataField;
}

int NameList::gridRow() const
{
    return m_ui->Table1->Row();
}

void NameList::scrollGrid(int columns, int rows)
{
    m_ui->Table1->Scroll(columns, rows);
}

void NameList::clearGridMarkArmed()
{
    m_gridHandlers->clearGridMarkArmed();
}

void NameList::focusGrid()
{
    m_ui->Table1->setFocus();
}

// The scan's own screens are windows of this one: only the content is disabled, so they stay alive.
void NameList::setScreenEnabled(bool enabled)
{
    m_ui->content->setEnabled(enabled);
    m_ui->menuBar->setEnabled(enabled);
}

int NameList::openScreens() const
{
    int open = 0;
    for (const QWidget *window : QApplication::topLevelWidgets())
        open +=
            window->isVisible() && (window == this || qobject_cast<const QMainWindow *>(window) != nullptr)
                ? 1
                : 0;
    return open;
}

QString NameList::mnuOptionWindowSize() const
{
    return m_ui->mnuOptionWindowSize->text();
}

void NameList::set_mnuOptionWindowSize(const QString &caption)
{
    m_ui->mnuOptionWindowSize->setText(caption);
}

QString NameList::mnuOptionFileRename() const
{
    return m_ui->mnuOptionFileRename->text();
}

void NameList::set_mnuOptionFileRename(const QString &caption)
{
    m_ui->mnuOptionFileRename->setText(caption);
}

void NameList::set_BackColor(quint32 color)
{
    m_backColor = color;
    const QColor back = colorOf(color);
    QPalette colours = m_ui->background->palette();
    colours.setColor(QPalette::Window, back);
    m_ui->background->setPalette(colours);
    m_stateLine.setTextColor(textColorOn(back), back);
}

// The family stays that of the screens: only size and weight belong to the mode.
void NameList::applyLook(const ModeLook &look)
{
    QFont font;
    font.setPointSizeF(look.fontSize);
    font.setBold(look.bold);
    for (QWidget *control : {static_cast<QWidget *>(m_ui->Table1), static_cast<QWidget *>(m_ui->cmbSort),
                             static_cast<QWidget *>(m_ui->txtLocate)})
        control->setFont(font);
    // It measures its contents anew only when its policy changes.
    m_ui->cmbSort->setSizeAdjustPolicy(QComboBox::AdjustToContentsOnFirstShow);
    m_ui->cmbSort->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    m_ui->Table1->setRowHeight(look.rowHeight);
    m_session.desktop().setTabletActive(m_session.options().TabletActive);
    m_ui->txtLocate->setMinimumHeight(look.locateHeight / TwipsPerPixel);
    m_letters.place(width());
}

void NameList::enableModes(bool tabletMode, bool desktopMode)
{
    m_ui->TabletMode->setEnabled(tabletMode);
    m_ui->DesktopMode->setEnabled(desktopMode);
}

} // namespace quaverly
