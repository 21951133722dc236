// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/Guard.h"
#include "platform/store/ReadProbe.h"
#include "songlist/SavedFilters.h"

#include <QDialog>

#include <functional>
#include <memory>

class QListWidgetItem;

namespace Ui {
class CriteriaForm;
}

namespace quaverly {

class CriteriaProbe;
class Desktop;
class DisplayedSet;
class MainScreen;
class SettingsRows;
struct Catalogue;
struct Options;

/**
 * Limits the displayed songs by criteria in the store's SQL, helps to write them, and keeps them under
 * names. Shown modally with open(); it goes when it is closed. While the user types, it says how many
 * songs would be shown.
 */
class CriteriaForm final : public QDialog
{
    Q_OBJECT

public:
    /** @throws dao::DaoError when the catalogue can't be read. */
    CriteriaForm(DisplayedSet &set, MainScreen &mainScreen, SettingsRows &settings, Catalogue &catalogue,
                 Desktop &desktop, const Options &options, QWidget *parent = nullptr);
    ~CriteriaForm() override;

    /** Esc and the close box: as the Exit button. */
    void reject() override;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void showEvent(QShowEvent *event) override;

private:
    void wire();
    void Form_Load();
    void Form_Activate();
    void listFieldNames_DblClick(QListWidgetItem *item);
    void listFieldNames_Enter();
    void listFilters_Click();
    void cmbGenre_Change(const QString &text);
    void cmbRating_Change(const QString &text);
    void txtCriteria_Change();
    void txtCriteria_RefusedPaste();
    void cmdAddCriteria_Click();
    void cmdCurrentAlbum_Click();
    void cmdRestore_Click();
    void cmdClear_Click();
    void cmdSaveFilter_Click();
    void cmdRenameFilter_Click();
    void cmdDeleteFilter_Click();
    void cmdShowAll_Click();
    void cmdExit_Click();
    void cmdApplyCriteria_Click();
    void probe_Counted(qint64 songs);
    void probe_Refused(const QString &text);

    void fillGenres();
    void showFilters(const QString &selected);
    void showState(const QString &text);
    void enableChoice(const QString &text);
    void clearChoices();
    void tellInvalid();
    void apply();
    /** The songs that the criteria show; nothing when the user didn't wait for them. @throws dao::DaoError */
    [[nodiscard]] std::optional<dao::ReadRows> readSongs();
    [[nodiscard]] QString criteria() const;
    [[nodiscard]] QString selectedFilter() const;

    GuardedHandler handle;
    std::unique_ptr<Ui::CriteriaForm> m_ui;
    DisplayedSet &m_set;
    MainScreen &m_mainScreen;
    Catalogue &m_catalogue;
    Desktop &m_desktop;
    SavedFilters m_filters;
    CriteriaProbe *m_probe;
    bool m_tabletActive = false;
    bool m_firstActivation = true;
    bool m_applying = false;
};

} // namespace quaverly
