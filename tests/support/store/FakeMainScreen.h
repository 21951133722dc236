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
 * follows the current row. Without a displayed set it only keeps and counts.
 */
class FakeMainScreen : public MainScreen, public DataListener
{
public:
    explicit FakeMainScreen(DisplayedSet *set = nullptr);
    ~FakeMainScreen() override;
    FakeMainScreen(const FakeMainScreen &) = delete;
    FakeMainScreen &operator=(const FakeMainScreen &) = delete;

    /** Controls are enabled and visible until told otherwise. */
    [[nodiscard]] bool isEnabled(MainControl control) const { return m_enabled.value(control, true); }

    QList<QPoint> scrolls;
    int row = 0;
    int screens = 1;
    int showAlls = 0;
    int gridFocuses = 0;
    int pics3Unloads = 0;
    int playFormUnloads = 0;

    void setEnabled(MainControl control, bool enabled) override { m_enabled[control] = enabled; }
    void setVisible(MainControl control, bool visible) override { m_visible[control] = visible; }
    [[nodiscard]] bool isVisible(MainControl control) const override
    {
        return m_visible.value(control, true);
    }
    void set_lblCategory(const QString &caption) override;
    [[nodiscard]] QString lblCategory() const override { return m_lblCategory; }
    void set_lblFilterMsg(const QString &caption) override { m_lblFilterMsg = caption; }
    [[nodiscard]] QString lblFilterMsg() const override { return m_lblFilterMsg; }
    void set_lblSelectedCount(const QString & /*caption*/) override {}
    void set_cmdShowArtistSongs(const QString &caption) override { m_cmdShowArtistSongs = caption; }
    [[nodiscard]] QString cmdShowArtistSongs() const override { return m_cmdShowArtistSongs; }
    void set_txtLocate(const QString & /*text*/) override {}
    void set_txtName(const QString & /*text*/) override {}
    [[nodiscard]] QString cmbSort() const override { return m_cmbSort; }
    void set_cmbSort(const QString &label) override;
    void cmbSort_Click() override { m_set->applySort(m_cmbSort); }
    void cmdSortArtist_Click() override;
    void cmdSortSong_Click() override;
    void ShowAllMenu_Click() override;
    [[nodiscard]] QString firstColumnField() const override { return m_firstColumn; }
    [[nodiscard]] int gridRow() const override { return row; }
    void scrollGrid(int columns, int rows) override { scrolls.append({columns, rows}); }
    void clearGridMarkArmed() override {}
    void focusGrid() override { ++gridFocuses; }
    void setScreenEnabled(bool /*enabled*/) override {}
    [[nodiscard]] int openScreens() const override { return screens; }
    void unloadPics3() override { ++pics3Unloads; }
    void unloadPlayForm() override { ++playFormUnloads; }

    void setRebuilt() override { rowChanged(); }
    void rowChanged() override { m_set->showArtistButton(); }

private:
    DisplayedSet *m_set;
    QMap<MainControl, bool> m_enabled;
    QMap<MainControl, bool> m_visible;
    QString m_lblCategory;
    QString m_lblFilterMsg;
    QString m_cmdShowArtistSongs;
    QString m_cmbSort;
    QString m_firstColumn = QStringLiteral("SongName");
};

} // namespace quaverly::test
