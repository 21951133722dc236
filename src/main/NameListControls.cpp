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

void NameList::show(const MainLook &look)
{
    using enum MainControl;
    m_stateLine.show(look);
    m_ui->File->setEnabled(look.enabled.testFlag(File));
    m_ui->AddMenu->setEnabled(look.enabled.testFlag(AddMenu));
    m_ui->FindEditMenu->setEnabled(look.enabled.testFlag(FindEditMenu));
    const std::pair<MainControl, QWidget *> controls[] = {{cmdAdd, m_ui->cmdAdd},
                                                          {cmdEdit, m_ui->cmdEdit},
                                                          {cmdDelete, m_ui->cmdDelete},
                                                          {cmdExit, m_ui->cmdExit},
                                                          {cmdPlay, m_ui->cmdPlay},
                                                          {cmdPlayAll, m_ui->cmdPlayAll},
                                                          {cmdFilter, m_ui->cmdFilter},
                                                          {cmdFind, m_ui->cmdFind},
                                                          {cmbSort, m_ui->cmbSort},
                                                          {cmdSortSong, m_ui->cmdSortSong},
                                                          {cmdSortArtist, m_ui->cmdSortArtist}};
    for (const auto &[control, widget] : controls)
        widget->setEnabled(look.enabled.testFlag(control));
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
