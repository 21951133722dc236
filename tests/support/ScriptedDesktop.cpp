// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/ScriptedDesktop.h"

#include <QCoreApplication>

#include <gtest/gtest.h>

#include <array>

using namespace Qt::StringLiterals;

namespace quaverly::test {

namespace {

const char *nameOf(Shown shown)
{
    constexpr std::array names = {"message box", "prompt",      "warning",
                                  "open dialog", "save dialog", "folder dialog"};
    return names.at(static_cast<std::size_t>(shown));
}

std::string describe(const DesktopCall &call)
{
    return std::string(nameOf(call.shown)) + ", title \"" + call.title.toStdString() + "\", text \"" +
           call.text.toStdString() + '"';
}

bool offers(Buttons buttons, Answer answer)
{
    if (buttons == Buttons::YesNo)
        return answer == Answer::Yes || answer == Answer::No;
    return answer == Answer::Ok || (buttons == Buttons::OkCancel && answer == Answer::Cancel);
}

/** What a user presses who wants nothing to happen. */
Answer safeAnswer(Buttons buttons)
{
    switch (buttons) {
    case Buttons::OkCancel:
        return Answer::Cancel;
    case Buttons::YesNo:
        return Answer::No;
    case Buttons::Ok:
        break;
    }
    return Answer::Ok;
}

class RecordingWindow final : public WorkingWindow
{
public:
    explicit RecordingWindow(std::shared_ptr<WorkingRecord> record) : m_record(std::move(record)) {}
    ~RecordingWindow() override { m_record->isOpen = false; }
    void setMsg(const QString &text) override { m_record->msgs += text; }
    void setBar(int twips) override
    {
        WorkingWindow::setBar(twips);
        m_record->bars += twips;
    }

private:
    std::shared_ptr<WorkingRecord> m_record;
};

} // namespace

ScriptedDesktop::~ScriptedDesktop()
{
    for (const Scripted &scripted : std::as_const(m_script)) {
        ADD_FAILURE() << "The scripted " << nameOf(scripted.shown)
                      << " never came: " << (scripted.part + scripted.text.value_or(QString())).toStdString();
    }
    if (isHourglassOn())
        ADD_FAILURE() << "The busy pointer is still on.";
}

ScriptedDesktop &ScriptedDesktop::add(Scripted scripted)
{
    m_script += std::move(scripted);
    return *this;
}

ScriptedDesktop &ScriptedDesktop::willAnswer(Answer answer, const QString &part)
{
    return add({Shown::Message, answer, {}, part, {}});
}

ScriptedDesktop &ScriptedDesktop::willType(const QString &text)
{
    return add({Shown::Prompt, Answer::Ok, text, {}, {}});
}

ScriptedDesktop &ScriptedDesktop::willPassWarning(bool goOn)
{
    return add({Shown::Warning, goOn ? Answer::Ok : Answer::Cancel, {}, {}, {}});
}

ScriptedDesktop &ScriptedDesktop::willOpen(const std::optional<QString> &path)
{
    return add({Shown::OpenDialog, Answer::Ok, path, {}, {}});
}

ScriptedDesktop &ScriptedDesktop::willSave(const std::optional<QString> &path)
{
    return add({Shown::SaveDialog, Answer::Ok, path, {}, {}});
}

ScriptedDesktop &ScriptedDesktop::willBrowse(const QString &folder)
{
    return add({Shown::FolderDialog, Answer::Ok, folder, {}, {}});
}

ScriptedDesktop &ScriptedDesktop::meanwhile(Action action)
{
    if (m_script.isEmpty())
        ADD_FAILURE() << "No dialog is queued that something could happen in.";
    else
        m_script.last().meanwhile = std::move(action);
    return *this;
}

std::optional<ScriptedDesktop::Scripted> ScriptedDesktop::take(const DesktopCall &call)
{
    m_calls += call;
    if (m_script.isEmpty() || m_script.first().shown != call.shown) {
        ADD_FAILURE() << "Unexpected " << describe(call);
        return std::nullopt;
    }
    Scripted scripted = m_script.takeFirst();
    EXPECT_TRUE(call.text.contains(scripted.part))
        << describe(call) << " was to hold \"" << scripted.part.toStdString() << '"';
    if (scripted.meanwhile)
        scripted.meanwhile();
    return scripted;
}

Answer ScriptedDesktop::MessageBox(const QString &text, const QString &title, Icon icon, Buttons buttons,
                                   std::optional<Answer> defaultAnswer)
{
    DesktopCall call;
    call.text = text;
    call.title = title;
    call.icon = icon;
    call.buttons = buttons;
    call.defaultAnswer = defaultAnswer;
    const std::optional<Scripted> scripted = take(call);
    if (!scripted)
        return safeAnswer(buttons);
    EXPECT_TRUE(offers(buttons, scripted->answer))
        << "The scripted answer is no button of " << describe(call);
    return scripted->answer;
}

QString ScriptedDesktop::InputPrompt(const QString &prompt, const QString &title, const QString &defaultText,
                                     bool password)
{
    DesktopCall call;
    call.shown = Shown::Prompt;
    call.text = prompt;
    call.title = title;
    call.offered = defaultText;
    call.password = password;
    const std::optional<Scripted> scripted = take(call);
    return scripted ? scripted->text.value_or(QString()) : QString();
}

bool ScriptedDesktop::ShowWarning(const QString &text, const QString &key)
{
    DesktopCall call;
    call.shown = Shown::Warning;
    call.text = text;
    call.key = key;
    const std::optional<Scripted> scripted = take(call);
    return scripted && scripted->answer == Answer::Ok;
}

std::optional<QString> ScriptedDesktop::askForFile(Shown shown, const FileQuestion &question)
{
    DesktopCall call;
    call.shown = shown;
    call.title = question.title;
    call.filter = question.filter;
    call.startFolder = question.startFolder;
    call.offered = question.fileName;
    const std::optional<Scripted> scripted = take(call);
    return scripted ? scripted->text : std::nullopt;
}

std::optional<QString> ScriptedDesktop::ShowOpenDialog(const FileQuestion &question)
{
    return askForFile(Shown::OpenDialog, question);
}

std::optional<QString> ScriptedDesktop::ShowSaveDialog(const FileQuestion &question)
{
    return askForFile(Shown::SaveDialog, question);
}

QString ScriptedDesktop::BrowseForFolder(const QString &prompt, const QString &title,
                                         const QString &startFolder)
{
    DesktopCall call;
    call.shown = Shown::FolderDialog;
    call.text = prompt;
    call.title = title;
    call.startFolder = startFolder;
    const std::optional<Scripted> scripted = take(call);
    return scripted ? scripted->text.value_or(QString()) : QString();
}

std::unique_ptr<WorkingWindow> ScriptedDesktop::ShowWorkingForm(const QString &caption, const QString &msg,
                                                                bool withBar)
{
    auto record = std::make_shared<WorkingRecord>();
    record->caption = caption;
    record->msgs += msg;
    record->withBar = withBar;
    m_working.push_back(record);
    return std::make_unique<RecordingWindow>(std::move(record));
}

void ScriptedDesktop::ShowHelp(const QString &heading, const QString &body)
{
    m_helps.append({heading, body});
}

bool ScriptedDesktop::ShowKeyboard()
{
    ++m_keyboardsShown;
    return true;
}

bool ScriptedDesktop::OpenUrl(const QUrl &url)
{
    m_urls += url;
    return m_urlsOpen;
}

void ScriptedDesktop::setHourglass(bool on)
{
    m_hourglasses += on ? 1 : (m_hourglasses > 0 ? -1 : 0);
    m_wasHourglassOn = m_wasHourglassOn || on;
}

void ScriptedDesktop::letEventsRun()
{
    ++m_eventsRun;
    if (const auto action = m_actions.find(m_eventsRun); action != m_actions.end())
        action->second();
    QCoreApplication::processEvents();
}

const DesktopCall &ScriptedDesktop::lastCall() const
{
    if (m_calls.isEmpty())
        throw std::out_of_range("the desktop has shown nothing");
    return m_calls.last();
}

QStringList ScriptedDesktop::messages() const
{
    QStringList texts;
    for (const DesktopCall &call : m_calls) {
        if (call.shown == Shown::Message)
            texts += call.text;
    }
    return texts;
}

} // namespace quaverly::test
