// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/ScriptedDesktop.h"

#include "desktop/frmPreview.h"

#include <QCoreApplication>

#include <array>

namespace quaverly::test {

namespace {

const char *nameOf(Shown shown)
{
    constexpr std::array names = {"message box",    "prompt",        "warning",      "open dialog",
                                  "save dialog",    "folder dialog", "color dialog", "font dialog",
                                  "printer dialog", "preview"};
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
    if (buttons == Buttons::Ok)
        return Answer::Ok;
    return buttons == Buttons::YesNo ? Answer::No : Answer::Cancel;
}

class ScriptedWorkingWindow final : public WorkingWindow
{
public:
    explicit ScriptedWorkingWindow(const bool &isWindowClosed) : m_isClosed(isWindowClosed) {}
    [[nodiscard]] bool isClosed() const override { return m_isClosed; }

private:
    const bool &m_isClosed;
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
    return add({.answer = answer, .part = part});
}

ScriptedDesktop &ScriptedDesktop::willPassWarning(bool goOn)
{
    return add({.shown = Shown::Warning, .answer = goOn ? Answer::Ok : Answer::Cancel});
}

ScriptedDesktop &ScriptedDesktop::willPrintOn(std::shared_ptr<QPagedPaintDevice> printer)
{
    return add({.shown = Shown::PrinterDialog, .printer = std::move(printer)});
}

ScriptedDesktop &ScriptedDesktop::willGive(Shown shown, const std::optional<QString> &text)
{
    return add({.shown = shown, .text = text});
}

ScriptedDesktop &ScriptedDesktop::willPickColor(std::optional<quint32> color)
{
    return add({.shown = Shown::ColorDialog, .color = color});
}

ScriptedDesktop &ScriptedDesktop::willPickFont(const std::optional<FontChoice> &font)
{
    return add({.shown = Shown::FontDialog, .font = font});
}

ScriptedDesktop &ScriptedDesktop::willPreview(std::function<void(QWidget &)> act)
{
    return add({.shown = Shown::Preview, .preview = std::move(act)});
}

ScriptedDesktop &ScriptedDesktop::meanwhile(Action action)
{
    EXPECT_FALSE(m_script.isEmpty()) << "No dialog is queued that something could happen in.";
    if (!m_script.isEmpty())
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

std::optional<QString> ScriptedDesktop::takeText(const DesktopCall &call)
{
    const std::optional<Scripted> scripted = take(call);
    return scripted ? scripted->text : std::nullopt;
}

std::optional<QString> ScriptedDesktop::takeFile(Shown shown, const FileQuestion &question)
{
    return takeText({.shown = shown,
                     .title = question.title,
                     .offered = question.fileName,
                     .filter = question.filter,
                     .startFolder = question.startFolder});
}

Answer ScriptedDesktop::MessageBox(const QString &text, const QString &title, Icon icon, Buttons buttons,
                                   std::optional<Answer> defaultAnswer)
{
    return MessageWithMore(text, title, icon, buttons, defaultAnswer, {});
}

Answer ScriptedDesktop::MessageWithMore(const QString &text, const QString &title, Icon icon, Buttons buttons,
                                        std::optional<Answer> defaultAnswer, const QString &more)
{
    const DesktopCall call{.text = text,
                           .title = title,
                           .icon = icon,
                           .buttons = buttons,
                           .defaultAnswer = defaultAnswer,
                           .offered = more};
    const std::optional<Scripted> scripted = take(call);
    if (!scripted)
        return safeAnswer(buttons);
    EXPECT_TRUE(offers(buttons, scripted->answer) || (scripted->answer == Answer::More && !more.isEmpty()))
        << "The scripted answer is no button of " << describe(call);
    return scripted->answer;
}

bool ScriptedDesktop::ShowPreview(Preview &preview)
{
    const std::optional<Scripted> scripted = take({.shown = Shown::Preview, .text = preview.sentence()});
    if (!scripted)
        return false;
    frmPreview form(*this, preview);
    form.show();
    scripted->preview(form);
    return form.result() == QDialog::Accepted;
}

QString ScriptedDesktop::InputPrompt(const QString &prompt, const QString &title, const QString &defaultText,
                                     bool password)
{
    return takeText({.shown = Shown::Prompt,
                     .text = prompt,
                     .title = title,
                     .offered = defaultText,
                     .password = password})
        .value_or(QString());
}

bool ScriptedDesktop::ShowWarning(const QString &text, const QString &key)
{
    const std::optional<Scripted> scripted = take({.shown = Shown::Warning, .text = text, .key = key});
    return scripted && scripted->answer == Answer::Ok;
}

std::optional<QString> ScriptedDesktop::ShowOpenDialog(const FileQuestion &question)
{
    return takeFile(Shown::OpenDialog, question);
}

std::optional<QString> ScriptedDesktop::ShowSaveDialog(const FileQuestion &question)
{
    return takeFile(Shown::SaveDialog, question);
}

std::optional<quint32> ScriptedDesktop::ShowColor(quint32 start)
{
    const std::optional<Scripted> scripted = take({.shown = Shown::ColorDialog, .color = start});
    return scripted ? scripted->color : std::nullopt;
}

std::optional<FontChoice> ScriptedDesktop::ShowFont(const QString &title, const FontChoice &start)
{
    const std::optional<Scripted> scripted =
        take({.shown = Shown::FontDialog, .title = title, .color = start.color});
    return scripted ? scripted->font : std::nullopt;
}

QString ScriptedDesktop::BrowseForFolder(const QString &prompt, const QString &title,
                                         const QString &startFolder)
{
    return takeText(
               {.shown = Shown::FolderDialog, .text = prompt, .title = title, .startFolder = startFolder})
        .value_or(QString());
}

std::unique_ptr<WorkingWindow> ScriptedDesktop::ShowWorkingForm(const QString & /*caption*/,
                                                                const QString & /*msg*/, bool /*withBar*/)
{
    m_isWorkingFormClosed = false;
    return std::make_unique<ScriptedWorkingWindow>(m_isWorkingFormClosed);
}

std::shared_ptr<QPagedPaintDevice> ScriptedDesktop::ShowPrinterDialog()
{
    const std::optional<Scripted> scripted = take({.shown = Shown::PrinterDialog});
    return scripted ? scripted->printer : nullptr;
}

void ScriptedDesktop::ShowPrintPreview(const QString &title,
                                       const std::function<void(QPagedPaintDevice &)> &draw)
{
    const std::optional<Scripted> scripted = take({.shown = Shown::PrinterDialog, .title = title});
    if (scripted && scripted->printer)
        draw(*scripted->printer);
}

void ScriptedDesktop::setHourglass(bool on)
{
    m_hourglasses += on ? 1 : (m_hourglasses > 0 ? -1 : 0);
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

} // namespace quaverly::test
