// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/Desktop.h"
#include "support/QtPrinters.h"

#include <QWidget>

#include <QImage>
#include <QList>

#include <map>

namespace quaverly::test {

/** What the user was shown. */
enum class Shown {
    Message,
    Prompt,
    Warning,
    OpenDialog,
    SaveDialog,
    FolderDialog,
    ColorDialog,
    FontDialog,
    PrinterDialog,
    Preview
};

/** One thing that the program showed, with all that it said. */
struct DesktopCall
{
    Shown shown = Shown::Message;
    /** Text of the box, prompt or warning. */
    QString text{};
    QString title{};
    Icon icon = Icon::None;
    Buttons buttons = Buttons::Ok;
    std::optional<Answer> defaultAnswer{};
    /** The prompt's default, the dialog's first file name, or the caption of a box's own button. */
    QString offered{};
    bool password = false;
    /** The warning's entry in the options store. */
    QString key{};
    QString filter{};
    QString startFolder{};
    /** What the colour dialog started with. */
    quint32 color = 0;
};

/**
 * A desktop whose user is scripted: answers are queued with the will...() calls and used in order. A
 * dialog that no answer waits for fails the test at once and is cancelled; an answer that is left over,
 * or a busy pointer left on, fails it at the end. Every dialog shown is kept in calls().
 */
class ScriptedDesktop final : public Desktop
{
public:
    using Action = std::function<void()>;

    ScriptedDesktop() = default;
    ~ScriptedDesktop() override;
    ScriptedDesktop(const ScriptedDesktop &) = delete;
    ScriptedDesktop &operator=(const ScriptedDesktop &) = delete;

    /** The next dialog is a message box whose text holds @p part. */
    ScriptedDesktop &willAnswer(Answer answer, const QString &part = {});
    /** The same for a box that only informs. */
    ScriptedDesktop &willSee(const QString &part = {}) { return willAnswer(Answer::Ok, part); }
    /** The empty text is Cancel. */
    ScriptedDesktop &willType(const QString &text) { return willGive(Shown::Prompt, text); }
    ScriptedDesktop &willPassWarning(bool goOn);
    ScriptedDesktop &willOpen(const std::optional<QString> &path)
    {
        return willGive(Shown::OpenDialog, path);
    }
    ScriptedDesktop &willSave(const std::optional<QString> &path)
    {
        return willGive(Shown::SaveDialog, path);
    }
    /** The empty text is Cancel. */
    ScriptedDesktop &willBrowse(const QString &folder) { return willGive(Shown::FolderDialog, folder); }
    /** Nothing is Cancel. */
    ScriptedDesktop &willPickColor(std::optional<quint32> color);
    ScriptedDesktop &willPickFont(const std::optional<FontChoice> &font);
    /** Null is Cancel. */
    ScriptedDesktop &willPrintOn(std::shared_ptr<QPagedPaintDevice> printer);
    /** The next dialog is the preview; @p act goes on or gives up there. */
    ScriptedDesktop &willPreview(std::function<void(QWidget &preview)> act);
    /** Runs @p action while the dialog queued last is up. */
    ScriptedDesktop &meanwhile(Action action);

    /** Runs @p action at the @p nth time, from 1, that events are let run, before they do. */
    void atEvents(int nth, Action action) { m_actions[nth] = std::move(action); }
    /** The please-wait window that is up. */
    void closeWorkingForm() { m_isWorkingFormClosed = true; }

    [[nodiscard]] const QList<DesktopCall> &calls() const { return m_calls; }
    /** The call made last. @throws std::out_of_range without any. */
    [[nodiscard]] const DesktopCall &lastCall() const;
    /** What the browser was given to show. */
    [[nodiscard]] const QList<QUrl> &urls() const { return m_urls; }
    [[nodiscard]] int eventsRun() const { return m_eventsRun; }
    [[nodiscard]] bool isHourglassOn() const { return m_hourglasses > 0; }
    [[nodiscard]] qsizetype answersLeft() const { return m_script.size(); }

    /** What the clipboard holds; null for no picture. */
    QImage clipboard;

    Answer MessageBox(const QString &text, const QString &title, Icon icon, Buttons buttons,
                      std::optional<Answer> defaultAnswer) override;
    Answer MessageWithMore(const QString &text, const QString &title, Icon icon, Buttons buttons,
                           std::optional<Answer> defaultAnswer, const QString &more) override;
    /** The screen itself is shown, for the scripted user to act on; left alone, it gives up. */
    bool ShowPreview(Preview &preview) override;
    QString InputPrompt(const QString &prompt, const QString &title, const QString &defaultText,
                        bool password) override;
    bool ShowWarning(const QString &text, const QString &key) override;
    std::optional<QString> ShowOpenDialog(const FileQuestion &question) override;
    std::optional<QString> ShowSaveDialog(const FileQuestion &question) override;
    std::optional<quint32> ShowColor(quint32 start) override;
    std::optional<FontChoice> ShowFont(const QString &title, const FontChoice &start) override;
    QString BrowseForFolder(const QString &prompt, const QString &title, const QString &startFolder) override;
    std::unique_ptr<WorkingWindow> ShowWorkingForm(const QString &caption, const QString &msg,
                                                   bool withBar) override;
    std::shared_ptr<QPagedPaintDevice> ShowPrinterDialog() override;
    /** Is drawn on the printer that was scripted. */
    void ShowPrintPreview(const QString &title,
                          const std::function<void(QPagedPaintDevice &)> &draw) override;
    bool isPictureOnClipboard() override { return !clipboard.isNull(); }
    bool takeFromClipboard(QImage &picture) override
    {
        picture = clipboard.isNull() ? picture : clipboard;
        return !clipboard.isNull();
    }
    void ShowHelp(const QString & /*heading*/, const QString & /*body*/) override {}
    bool ShowKeyboard() override { return false; }
    void setTabletActive(bool /*on*/) override {}
    bool isTabletWithoutMouse() override { return false; }
    bool OpenUrl(const QUrl &url) override
    {
        m_urls += url;
        return true;
    }
    void setHourglass(bool on) override;
    void resetPointer() override { m_hourglasses = 0; }
    void letEventsRun() override;
    /** Always, so that no chance to let events run is missed. */
    bool inputWaiting() override { return true; }

private:
    struct Scripted
    {
        Shown shown = Shown::Message;
        Answer answer = Answer::Ok;
        std::optional<QString> text{};
        std::optional<quint32> color{};
        std::optional<FontChoice> font{};
        std::shared_ptr<QPagedPaintDevice> printer{};
        QString part{};
        Action meanwhile{};
        std::function<void(QWidget &)> preview{};
    };

    ScriptedDesktop &add(Scripted scripted);
    ScriptedDesktop &willGive(Shown shown, const std::optional<QString> &text);
    /** Records the call and takes the answer that waits for it, if it is one for such a dialog. */
    std::optional<Scripted> take(const DesktopCall &call);
    std::optional<QString> takeText(const DesktopCall &call);
    std::optional<QString> takeFile(Shown shown, const FileQuestion &question);

    QList<Scripted> m_script;
    QList<DesktopCall> m_calls;
    QList<QUrl> m_urls;
    std::map<int, Action> m_actions;
    int m_eventsRun = 0;
    int m_hourglasses = 0;
    bool m_isWorkingFormClosed = false;
};

} // namespace quaverly::test
