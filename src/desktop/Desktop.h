// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QUrl>

#include <functional>
#include <memory>
#include <optional>

class QImage;
class QPagedPaintDevice;

namespace quaverly {

class Preview;

enum class Icon { None, Information, Exclamation, Question, Stop };
enum class Buttons { Ok, OkCancel, YesNo };
enum class Answer { Ok, Cancel, Yes, No, More };

/** Caption of a question's own button that leads to the preview. */
inline constexpr char16_t ShowChangesCaption[] = u"&Show Changes ...";

/** What a file dialog is to ask. */
struct FileQuestion
{
    QString title;
    /** "Text|*.a;*.b|All Files (*.*)|*.*": descriptions and patterns in turn. */
    QString filter;
    QString startFolder;
    /** The name the box starts with; may be empty. */
    QString fileName;
};

/** A font and its colour, as the font dialog gives them. */
struct FontChoice
{
    QString family;
    double pointSize = 10;
    /** Red, green and blue from the lowest byte up. */
    quint32 color = 0;
};

/** Width of the please-wait window's whole bar. */
inline constexpr int FullBarTwips = 6456;

/** The please-wait window of a long command; it goes away with this object, or before when the user clicks
 * it. */
class WorkingWindow
{
public:
    virtual ~WorkingWindow() = default;

    virtual void setMsg(const QString & /*text*/) {}
    /** How far the bar has grown: 0 to FullBarTwips. */
    virtual void setBar(int twips) { m_bar = twips; }
    [[nodiscard]] int bar() const { return m_bar; }
    /** Shows a button that closes the window, for a command that may be given up. */
    virtual void offerCancel() {}
    /** True once the user has closed the window: a command that may be given up then ends. */
    [[nodiscard]] virtual bool isClosed() const { return false; }

protected:
    int m_bar = 0;
};

/** How deep guarded handlers are nested, and what runs when the outermost one has ended; see Guard.h. */
struct HandlerState
{
    int depth = 0;
    std::function<void()> afterHandler;
};

/**
 * Everything that asks or tells the user something, and everything that lets events run or waits.
 * No other class shows a message box or a system dialog, or runs a nested event loop. Calls block
 * until the user has answered and belong on the user-interface thread.
 */
class Desktop
{
public:
    virtual ~Desktop() = default;

    /** @p defaultAnswer is the button that Enter presses; the first one unless said. */
    virtual Answer MessageBox(const QString &text, const QString &title, Icon icon = Icon::None,
                              Buttons buttons = Buttons::Ok,
                              std::optional<Answer> defaultAnswer = std::nullopt) = 0;

    /** A box with one more button, captioned @p more: Answer::More. */
    virtual Answer MessageWithMore(const QString &text, const QString &title, Icon icon, Buttons buttons,
                                   std::optional<Answer> defaultAnswer, const QString &more) = 0;

    /** Shows what a command would do; true when it is to go on with the rows that are ticked by then. */
    [[nodiscard]] virtual bool ShowPreview(Preview &preview) = 0;

    /** The modal text prompt. Cancel and an empty answer are the same: the empty text. */
    virtual QString InputPrompt(const QString &prompt, const QString &title, const QString &defaultText = {},
                                bool password = false) = 0;

    /**
     * A warning that the user can switch off; @p key names its entry in the options store.
     * True when the command may go on: OK was pressed or the warning is switched off.
     */
    virtual bool ShowWarning(const QString &text, const QString &key) = 0;

    /** The full path chosen, or nothing on cancel. */
    virtual std::optional<QString> ShowOpenDialog(const FileQuestion &question) = 0;
    virtual std::optional<QString> ShowSaveDialog(const FileQuestion &question) = 0;

    /** A colour number (red, green, blue from the lowest byte up), or nothing on cancel. */
    virtual std::optional<quint32> ShowColor(quint32 start) = 0;

    /** Font and colour, or nothing on cancel. */
    virtual std::optional<FontChoice> ShowFont(const QString &title, const FontChoice &start) = 0;

    /** Whether the clipboard holds a picture; asked often, so it is not read. */
    [[nodiscard]] virtual bool isPictureOnClipboard() = 0;
    /** The picture on the clipboard; false, and @p picture as it was, when there is none. */
    virtual bool takeFromClipboard(QImage &picture) = 0;

    /** The folder chosen, with a trailing separator, or the empty text on cancel. */
    virtual QString BrowseForFolder(const QString &prompt, const QString &title,
                                    const QString &startFolder) = 0;

    /** The please-wait window, shown without blocking; let events run once and it is painted. */
    [[nodiscard]] virtual std::unique_ptr<WorkingWindow>
    ShowWorkingForm(const QString &caption, const QString &msg, bool withBar) = 0;

    /** The help window, until the user closes it. */
    virtual void ShowHelp(const QString &heading, const QString &body) = 0;

    /** The on-screen keyboard that the desktop offers; false when there is none. */
    virtual bool ShowKeyboard() = 0;

    /** Dialogs from now on are sized for fingers, or for a mouse again. */
    virtual void setTabletActive(bool on) = 0;

    /** A touch screen and no mouse; looked up afresh. */
    virtual bool isTabletWithoutMouse() = 0;

    /**
     * The printer dialog: the printer as it was set up there, ready to be drawn on, or null on cancel. The
     * next dialog starts with what was chosen.
     */
    [[nodiscard]] virtual std::shared_ptr<QPagedPaintDevice> ShowPrinterDialog() = 0;

    /** Shows what @p draw puts on the pages; it may be called again, for other paper or the printer itself.
     */
    virtual void ShowPrintPreview(const QString &title,
                                  const std::function<void(QPagedPaintDevice &)> &draw) = 0;

    /** Opens an address with the program that the desktop has for it; false when there is none. */
    virtual bool OpenUrl(const QUrl &url) = 0;

    /** The busy pointer. Calls nest: it goes off with the last `false`. */
    virtual void setHourglass(bool on) = 0;
    /** The default pointer again, however many calls are pending. */
    virtual void resetPointer() = 0;

    /** Lets pending events run. */
    virtual void letEventsRun() = 0;
    /** True when input or other events wait; cheap enough for an inner loop. */
    virtual bool inputWaiting() = 0;

    [[nodiscard]] HandlerState &handlers() { return m_handlers; }

private:
    HandlerState m_handlers;
};

/** The busy pointer for the length of a scope. */
class Hourglass final
{
public:
    explicit Hourglass(Desktop &desktop) : m_desktop(desktop) { m_desktop.setHourglass(true); }
    ~Hourglass() { m_desktop.setHourglass(false); }
    Hourglass(const Hourglass &) = delete;
    Hourglass &operator=(const Hourglass &) = delete;

private:
    Desktop &m_desktop;
};

} // namespace quaverly
