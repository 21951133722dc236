// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/Guard.h"
#include "notes/TextSearch.h"

#include <QDialog>

#include <functional>
#include <memory>

namespace Ui {
class NotesForm;
}

namespace quaverly {

class OptionsStore;
struct Options;

/** One song's notes in a large window. Shown modally with open(); it goes when it is closed. */
class NotesForm final : public QDialog
{
    Q_OBJECT

public:
    /** Runs once, when the screen is closed, with the text as it is then. */
    using Closed = std::function<void(const QString &text, bool changed)>;

    /** The references outlive the screen. */
    NotesForm(const QString &text, Desktop &desktop, const Options &options, OptionsStore &store,
              Closed closed, QWidget *parent = nullptr);
    ~NotesForm() override;

    /** Every way out takes the text along. */
    void done(int result) override;

private:
    void wire();
    void Form_Load(const QString &text);
    void cmdFind_Click();
    void cmdFindNext_Click();
    void cmdExit_Click();
    void cmdPreview_Click();
    void cmdPrint_Click();
    void ImageKeyboard_Click();
    void select(const std::optional<QTextCursor> &hit);

    GuardedHandler handle;
    std::unique_ptr<Ui::NotesForm> m_ui;
    Desktop &m_desktop;
    const Options &m_options;
    OptionsStore &m_store;
    TextSearch m_search;
    Closed m_closed;
};

} // namespace quaverly
