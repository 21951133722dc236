// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/Desktop.h"

#include <QList>
#include <QStringList>

#include <map>
#include <vector>

namespace quaverly::test {

/** What the user was shown. */
enum class Shown { Message, Prompt, Warning, OpenDialog, SaveDialog, FolderDialog };

/** One thing that the program showed, with all that it said. */
struct DesktopCall
{
    Shown shown = Shown::Message;
    /** Text of the box, prompt or warning. */
    QString text;
    QString title;
    Icon icon = Icon::None;
    Buttons buttons = Buttons::Ok;
    std::optional<Answer> defaultAnswer;
    /** The prompt's default, or the dialog's first file name. */
    QString offered;
    bool password = false;
    /** The warning's entry in the options store. */
    QString key;
    QString filter;
    QString startFolder;
};

/** What a please-wait window has shown. */
struct WorkingRecord
{
    QString caption;
    QStringList msgs;
    QList<int> bars;
    bool withBar = false;
    bool isOpen = true;
};

/**
 * A desktop whose user is scripted: answers are queued with the will...() calls and used in order. A
 * dialog that no answer waits for fails the test at once and is cancelled; an answer that is left over,
 * or a busy pointer left on, fails it at the end. Everything shown is kept in calls().
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
    ScriptedDesktop &willType(const QString &text);
    ScriptedDesktop &willPassWarning(bool goOn);
    ScriptedDesktop &willOpen(const std::optional<QString> &path);
    ScriptedDesktop &willSave(const std::optional<QString> &path);
    /** The empty text is Cancel. */
    ScriptedDesktop &willBrowse(const QString &folder);
    /** Runs @p action while the dialog queued last is up. */
    ScriptedDesktop &meanwhile(Action action);

    /** Runs @p action at the @p nth time, from 1, that events are let run, before they do. */
    void atEvents(int nth, Action action) { m_actions[nth] = std::move(action); }
    /** Whether input waits; it always does unless said, so that no chance to let events run is missed. */
    void setInputWaiting(bool waiting) { m_inputWaiting = waiting; }
    void setUrlsOpen(bool open) { m_urlsOpen = open; }

    [[nodiscard]] const QList<DesktopCall> &calls() const { return m_calls; }
    /** Texts of all message boxes so far. */
    [[nodiscard]] QStringList messages() const;
    /** The call made last. @throws std::out_of_range without any. */
    [[nodiscard]] const DesktopCall &lastCall() const;
    [[nodiscard]] const QList<QUrl> &urls() const { return m_urls; }
    [[nodiscard]] const std::vector<std::shared_ptr<WorkingRecord>> &workingForms() const
    {
        return m_working;
    }
    /** Heading and body of each help window. */
    [[nodiscard]] const QList<std::pair<QString, QString>> &helps() const { return m_helps; }
    [[nodiscard]] int eventsRun() const { return m_eventsRun; }
    [[nodiscard]] int keyboardsShown() const { return m_keyboardsShown; }
    [[nodiscard]] bool isHourglassOn() const { return m_hourglasses > 0; }
    /** True when the busy pointer was on at some time. */
    [[nodiscard]] bool wasHourglassOn() const { return m_wasHourglassOn; }
    [[nodiscard]] qsizetype answersLeft() const { return m_script.size(); }

    Answer MessageBox(const QString &text, const QString &title, Icon icon, Buttons buttons,
                      std::optional<Answer> defaultAnswer) override;
    QString InputPrompt(const QString &prompt, const QString &title, const QString &defaultText,
                        bool password) override;
    bool ShowWarning(const QString &text, const QString &key) override;
    std::optional<QString> ShowOpenDialog(const FileQuestion &question) override;
    std::optional<QString> ShowSaveDialog(const FileQuestion &question) override;
    QString BrowseForFolder(const QString &prompt, const QString &title, const QString &startFolder) override;
    std::unique_ptr<WorkingWindow> ShowWorkingForm(const QString &caption, const QString &msg,
                                                   bool withBar) override;
    void ShowHelp(const QString &heading, const QString &body) override;
    bool ShowKeyboard() override;
    bool OpenUrl(const QUrl &url) override;
    void setHourglass(bool on) override;
    void resetPointer() override { m_hourglasses = 0; }
    void letEventsRun() override;
    bool inputWaiting() override { return m_inputWaiting; }

private:
    struct Scripted
    {
        Shown shown = Shown::Message;
        Answer answer = Answer::Ok;
        std::optional<QString> text;
        QString part;
        Action meanwhile;
    };

    ScriptedDesktop &add(Scripted scripted);
    /** Records the call and takes the answer that waits for it, if it is one for such a dialog. */
    std::optional<Scripted> take(const DesktopCall &call);
    std::optional<QString> askForFile(Shown shown, const FileQuestion &question);

    QList<Scripted> m_script;
    QList<DesktopCall> m_calls;
    QList<QUrl> m_urls;
    std::vector<std::shared_ptr<WorkingRecord>> m_working;
    QList<std::pair<QString, QString>> m_helps;
    std::map<int, Action> m_actions;
    int m_eventsRun = 0;
    int m_keyboardsShown = 0;
    int m_hourglasses = 0;
    bool m_wasHourglassOn = false;
    bool m_inputWaiting = true;
    bool m_urlsOpen = true;
};

} // namespace quaverly::test
