// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "songlist/DisplayedSet.h"
#include "songlist/MainScreen.h"

#include <QMap>
#include <QPoint>

namespace quaverly::test {

/**
 * A main screen without widgets. It keeps what it is told and does what the real one does on its own:
 * the sort box sorts, the two sort buttons exchange the principal columns, and the artist button
 * follows the current row.
 */
class FakeMainScreen final : public MainScreen, public DataListener
{
public:
    explicit FakeMainScreen(DisplayedSet &set);
    ~FakeMainScreen() override;
    FakeMainScreen(const FakeMainScreen &) = delete;
    FakeMainScreen &operator=(const FakeMainScreen &) = delete;

    /** Controls are enabled and visible until told otherwise. */
    [[nodiscard]] bool isEnabled(MainControl control) const { return m_enabled.value(control, true); }
    [[nodiscard]] QString lblFilterMsg() const { return m_lblFilterMsg; }
    [[nodiscard]] QString txtName() const { return m_txtName; }
    [[nodiscard]] QString txtLocate() const { return m_txtLocate; }
    [[nodiscard]] const QList<QPoint> &scrolls() const { return m_scrolls; }
    void setGridRow(int row) { m_gridRow = row; }

    int rebuilt = 0;
    int rowChanges = 0;
    int markArmedCleared = 0;

    void setEnabled(MainControl control, bool enabled) override { m_enabled[control] = enabled; }
    void setVisible(MainControl control, bool visible) override { m_visible[control] = visible; }
    [[nodiscard]] bool isVisible(MainControl control) const override
    {
        return m_visible.value(control, true);
    }
    void set_lblCategory(const QString &caption) override;
    [[nodiscard]] QString lblCategory() const override { return m_lblCategory; }
    void set_lblFilterMsg(const QString &caption) override { m_lblFilterMsg = caption; }
    void set_lblSelectedCount(const QString &caption) override { m_lblSelectedCount = caption; }
    void set_cmdShowArtistSongs(const QString &caption) override { m_cmdShowArtistSongs = caption; }
    [[nodiscard]] QString cmdShowArtistSongs() const override { return m_cmdShowArtistSongs; }
    void set_txtLocate(const QString &text) override { m_txtLocate = text; }
    void set_txtName(const QString &text) override { m_txtName = text; }
    [[nodiscard]] QString cmbSort() const override { return m_cmbSort; }
    void set_cmbSort(const QString &label) override;
    void cmbSort_Click() override;
    void cmdSortArtist_Click() override;
    void cmdSortSong_Click() override;
    void ShowAllMenu_Click() override;
    [[nodiscard]] QString firstColumnField() const override { return m_firstColumn; }
    [[nodiscard]] int gridRow() const override { return m_gridRow; }
    void scrollGrid(int columns, int rows) override { m_scrolls.append({columns, rows}); }
    void clearGridMarkArmed() override { ++markArmedCleared; }
    void focusGrid() override {}
    void setScreenEnabled(bool) override {}
    [[nodiscard]] int openScreens() const override { return 1; }
    void unloadPics3() override {}
    void unloadPlayForm() override {}

    void setRebuilt() override;
    void rowChanged() override;

private:
    DisplayedSet &m_set;
    QMap<MainControl, bool> m_enabled;
    QMap<MainControl, bool> m_visible;
    QString m_lblCategory;
    QString m_lblFilterMsg;
    QString m_lblSelectedCount;
    QString m_cmdShowArtistSongs;
    QString m_txtLocate;
    QString m_txtName;
    QString m_cmbSort;
    QString m_firstColumn = QStringLiteral("SongName");
    QList<QPoint> m_scrolls;
    int m_gridRow = 0;
};

} // namespace quaverly::test
