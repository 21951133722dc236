// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/ModalScreen.h"

#include <memory>

namespace Ui {
class frmMusicKinds;
}

namespace quaverly {

class OptionsStore;

/** Ticks the kinds of music files that are taken when folders are added or played. */
class frmMusicKinds final : public ModalScreen
{
    Q_OBJECT

public:
    /** With @p tablet it is sized for fingers. All references outlive the screen. */
    frmMusicKinds(Desktop &desktop, OptionsStore &store, bool tablet, QWidget *parent = nullptr);
    ~frmMusicKinds() override;

private:
    void Form_Load(bool tablet);
    void cmdOK_Click();
    void cmdCancel_Click();

    std::unique_ptr<Ui::frmMusicKinds> m_ui;
    Desktop &m_desktop;
    OptionsStore &m_store;
};

} // namespace quaverly
