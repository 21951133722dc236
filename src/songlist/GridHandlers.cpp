// SPDX-License-Identifier: GPL-3.0-or-later
#include "songlist/GridHandlers.h"

#include "catalogue/Catalogue.h"
#include "catalogue/SongFields.h"
#include "desktop/Guard.h"
#include "desktop/KeySender.h"
#include "songlist/CellEdit.h"
#include "songlist/ColumnMoves.h"
#include "songlist/DisplayedSet.h"
#include "songlist/SongGrid.h"

#include <QDateTime>
#include <QKeyEvent>

using namespace Qt::StringLiterals;

namespace quaverly {

namespace {

/** Keys that move within a cell while it is typed into, and do nothing in the list. */
bool isCellKey(int key)
{
    return key == Qt::Key_Delete || key == Qt::Key_Home || key == Qt::Key_End || key == Qt::Key_Left ||
           key == Qt::Key_Insert;
}

QString headingOf(const QString &field)
{
    const SongField *known = songField(field);
    return known != nullptr ? QString(known->heading) : field;
}

QString refusal(const dao::DaoError &error)
{
    if (error.number == dao::DuplicateKey)
        return u"Another song has this value already."_s;
    return error.number == dao::FieldTooSmall ? u"This text is too long."_s : error.description;
}

} // namespace

GridHandlers::GridHandlers(SongGrid &grid, DisplayedSet &set, Desktop &desktop, ColumnMoves &columns,
                           GridActions actions)
    : m_grid(grid), m_set(set), m_desktop(desktop), m_columns(columns), m_actions(std::move(actions))
{
    wire();
}

void GridHandlers::wire()
{
    const auto on = [this](auto signal, auto handler) {
        connect(&m_grid, signal, this, [this, handler](auto... arguments) {
            static_cast<void>(
                guarded(m_desktop, QString::fromUtf16(ProductName), [&] { (this->*handler)(arguments...); }));
        });
    };
    on(&SongGrid::Click, &GridHandlers::Table1_Click);
    on(&SongGrid::RowColChange, &GridHandlers::Table1_RowColChange);
    on(&SongGrid::RightButtonDown, &GridHandlers::Table1_RightButtonDown);
    on(&SongGrid::MenuKey, &GridHandlers::Table1_MenuKey);
    on(&SongGrid::DblClick, &GridHandlers::Table1_DblClick);
    on(&SongGrid::KeyDown, &GridHandlers::Table1_KeyDown);
    connect(&m_grid.songs(), &SongGridModel::cellTyped, this, &GridHandlers::Table1_CellTyped);
}

void GridHandlers::Table1_Click()
{
    if (m_grid.Row() >= 0 && m_grid.Col() <= 0 && !m_gridNeverClicked)
        SendKeysInput(u"{right}"_s);
    m_gridNeverClicked = false;
    m_gridMarkArmed = true;
    if (std::exchange(m_rightClickPending, false))
        m_gridMarkArmed = false;
}

void GridHandlers::Table1_RowColChange(int lastCol)
{
    const bool onMark = lastCol >= 0 && m_grid.Col() <= 0 && m_set.Data1().hasRows();
    if (m_gridMarkArmed && onMark && !m_set.isDuplicateView()) {
        m_gridMarkArmed = false;
        m_set.toggleMark();
        // Off the column again, so that the same cell can be clicked once more.
        SendKeysInput(u"{right}"_s);
    }
    m_actions.showCurrentSong();
}

void GridHandlers::Table1_RightButtonDown(QPoint globalPlace)
{
    m_rightClickPending = true;
    Table1_MenuKey(globalPlace);
}

void GridHandlers::Table1_MenuKey(QPoint globalPlace)
{
    m_gridMarkArmed = false;
    m_actions.showPopup(globalPlace);
}

void GridHandlers::Table1_DblClick()
{
    m_gridMarkArmed = false;
    m_actions.cmdEdit_Click();
}

void GridHandlers::Table1_KeyDown(QKeyEvent *event)
{
    m_gridMarkArmed = false;
    m_columns.cancel();
    const int key = event->key();
    if (isCellKey(key)) {
        event->setAccepted(!m_grid.CellEditing());
    } else if (key == Qt::Key_Return || key == Qt::Key_Enter) {
        event->accept();
        // The Enter that ends the typing in a cell comes by here as well.
        if (!m_grid.CellEditing())
            m_actions.cmdEdit_Click();
    } else if (!m_grid.AllowUpdate() && forwardToLocate(*event)) {
        event->accept();
    }
}

// Typing on the list types into Locate.
bool GridHandlers::forwardToLocate(const QKeyEvent &event)
{
    const QString keys = literalKeys(event.text());
    const bool command =
        (event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) != 0;
    if (command || keys.isEmpty() || !event.text().at(0).isPrint())
        return false;
    m_actions.focusLocate();
    SendKeysInput(keys);
    return true;
}

void GridHandlers::Table1_CellTyped(int row, const QString &field, const QString &text)
{
    const auto write = [&] {
        DataControl &data = m_set.Data1();
        // Another command may have moved the current row already.
        std::optional<KeepRow> keep;
        if (data.Recordset().AbsolutePosition() != row) {
            keep.emplace(data);
            data.Recordset().setAbsolutePosition(row);
        }
        writeCell(data, field, text, QDateTime::currentDateTime());
    };
    const ErrorBox box{
        [&](const dao::DaoError &error) { return headingOf(field) + u": "_s + refusal(error); }};
    if (!guarded(m_desktop, QString::fromUtf16(ProductName), write, box))
        m_grid.refuseTyped();
}

} // namespace quaverly
