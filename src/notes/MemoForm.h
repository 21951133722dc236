// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/Guard.h"
#include "notes/OpenNote.h"
#include "notes/TextSearch.h"

#include <QDialog>
#include <QTimer>

#include <functional>
#include <memory>

namespace Ui {
class MemoForm;
}

namespace quaverly {

class NoteFormats;
struct Options;

/**
 * The catalogue's notes: a title and a formatted text each. Shown modally with open(); it goes when it is
 * closed. What is typed is saved at leaving the box and every half minute; Cancel takes it back. What the
 * catalogue doesn't take is kept as a draft, and offered when the screen is shown next.
 */
class MemoForm final : public QDialog
{
    Q_OBJECT

public:
    /** The references outlive the screen. @throws dao::DaoError when the notes can't be read. */
    MemoForm(NoteBook book, NoteDrafts drafts, Desktop &desktop, const Options &options,
             QWidget *parent = nullptr);
    ~MemoForm() override;

    /** Esc and the close box: as the Exit button. */
    void reject() override;

private:
    void wire();
    void Form_Load(const Options &options);
    void cmbTitle_Click(int index);
    void cmbTitle_Validate();
    void cmdAdd_Click();
    void cmdDelete_Click();
    void cmdFind_Click();
    void cmdFindNext_Click();
    void cmdCancel_Click();
    void cmdExit_Click();
    void cmdPreview_Click();
    void cmdPrint_Click();
    void cmdPicture_Click();
    void ImageKeyboard_Click();
    void txtNotes_Change();

    /** The notes' titles anew, and that one's note. */
    void showTitles(int index);
    void fillTitles(const QStringList &titles, qsizetype index);
    void showNote(const QString &title);
    void showText(const QString &rtf);
    void saveNote();
    /** Without a box: the user is on the way to something else. */
    void saveQuietly();
    void tellUnsaved(const QString &text);
    void offerDrafts();
    void showDraft(const NoteDraft &draft);
    void takeTitle(const QString &title);
    [[nodiscard]] bool tellFault(TitleFault fault, const QString &title);
    void select(const std::optional<QTextCursor> &hit);

    GuardedHandler handle;
    std::unique_ptr<Ui::MemoForm> m_ui;
    NoteBook m_book;
    NoteDrafts m_drafts;
    OpenNote m_note;
    Desktop &m_desktop;
    TextSearch m_search;
    QTimer m_autosave;
    std::unique_ptr<NoteFormats> m_formats;
    /** A typed title was refused a moment ago. */
    bool m_titleRefused = false;
};

} // namespace quaverly
