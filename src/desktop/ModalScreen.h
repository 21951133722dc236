// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDialog>

#include <functional>

namespace quaverly {

class Desktop;

/** A screen that stays over its owner until it is closed, and deletes itself then. */
class ModalScreen : public QDialog
{
public:
    using QDialog::QDialog;

    /** Shows the screen and returns. */
    void showModally();
    /** Not while a command works, whose wait windows let events run. */
    void reject() override;
    /** Gives the owner its focus back. */
    void done(int result) override;

protected:
    /**
     * Runs a command, one at a time, and accepts when that answers true. What it throws is told under the
     * window's title.
     */
    void work(Desktop &desktop, const std::function<bool()> &command);

private:
    bool m_working = false;
};

} // namespace quaverly
