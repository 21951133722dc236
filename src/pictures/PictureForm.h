// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/Guard.h"
#include "pictures/PictureLink.h"

#include <QDialog>

#include <memory>

namespace Ui {
class PictureForm;
}

namespace quaverly {

struct Options;

/** One of a song's pictures: shows it, exchanges it, deletes it. It goes when it is closed. */
class PictureForm final : public QDialog
{
    Q_OBJECT

public:
    /** With @p viewOnly nothing can be changed. */
    PictureForm(Desktop &desktop, const Options &options, std::unique_ptr<PictureLink> link, bool viewOnly,
                QWidget *parent = nullptr);
    ~PictureForm() override;

    /** Shows the screen over its owner and returns; @p closed is called when it is gone. */
    void showModally(const std::function<void()> &closed);

    /** Escape: as the Cancel button. */
    void reject() override;

protected:
    void changeEvent(QEvent *event) override;
    /** The close box: saves, unless Cancel or Delete has the focus. */
    void closeEvent(QCloseEvent *event) override;

private:
    void wire();
    void Form_Load(const Options &options);
    [[nodiscard]] QSize wantedBox() const;
    /** True when the screen may go. */
    [[nodiscard]] bool Form_Unload();
    void cmdLoadFile_Click();
    void cmdClipboardPaste_Click();
    void cmdDelete_Click();
    void cmdCancel_Click();
    void cmdClose_Click();
    void cmdPrev_Click();
    void cmdNext_Click();

    void showPasteButton();
    void showLink();
    void focusNext();
    void showOthers(bool shown);

    GuardedHandler handle;
    std::unique_ptr<Ui::PictureForm> m_ui;
    Desktop &m_desktop;
    std::unique_ptr<PictureLink> m_link;
    bool m_viewOnly;
};

} // namespace quaverly
