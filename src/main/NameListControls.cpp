// SPDX-License-Identifier: GPL-3.0-or-later
#include "main/NameList.h"
#include "ui_NameList.h"

#include "catalogue/SortOrders.h"

#include <QApplication>

using namespace Qt::StringLiterals;

namespace quaverly {

// Controls whose commands are still to come have no widget here; asking for them changes nothing.
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
    case MainControl::File:
        return m_ui->File;
    case MainControl::lblFilterMsg:
        return m_ui->lblFilterMsg;
    default:
        return nullptr;
    }
}

void NameList::setEnabled(MainControl control, bool enabled)
{
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
    m_ui->lblCategory->setText(caption);
    m_ui->lblCategory->setVisible(!caption.isEmpty());
}

QString NameList::lblCategory() const
{
    return m_ui->lblCategory->text();
}

void NameList::set_lblFilterMsg(const QString &caption)
{
    m_ui->lblFilterMsg->setText(caption);
}

void NameList::set_lblSelectedCount(const QString &caption)
{
    m_ui->lblSelectedCount->setText(caption);
    m_ui->lblSelectedCount->setVisible(!caption.isEmpty());
}

void NameList::set_cmdShowArtistSongs(const QString &caption)
{
    // A very long artist must not push the other buttons off the screen.
    constexpr int MostPixels = 420;
    m_ui->cmdShowArtistSongs->setMaximumWidth(MostPixels);
    m_ui->cmdShowArtistSongs->setProperty("caption", caption);
    const QFontMetrics metrics = m_ui->cmdShowArtistSongs->fontMetrics();
    m_ui->cmdShowArtistSongs->setText(metrics.elidedText(caption, Qt::ElideRight, MostPixels - 32));
}

QString NameList::cmdShowArtistSongs() const
{
    return m_ui->cmdShowArtistSongs->property("caption").toString();
}

void NameList::set_txtLocate(const QString &)
{}

void NameList::set_txtName(const QString &text)
{
    m_ui->txtName->setPlainText(text);
    m_ui->txtName->setToolTip(text);
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
{}

void NameList::focusGrid()
{
    m_ui->Table1->setFocus();
}

// The scan's own screens are windows of this one: only the content is disabled, so they stay alive.
void NameList::setScreenEnabled(bool enabled)
{
    m_ui->background->setEnabled(enabled);
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

void NameList::unloadPics3()
{}

void NameList::unloadPlayForm()
{}

} // namespace quaverly
