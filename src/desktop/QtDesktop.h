// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/Desktop.h"
#include "desktop/OnScreenKeyboard.h"
#include "desktop/TitleRoom.h"

#include <QElapsedTimer>

class QDialog;
class QPrinter;

namespace quaverly {

class OptionsStore;

/** The desktop that the user sits at. */
class QtDesktop : public Desktop
{
public:
    explicit QtDesktop(OptionsStore &options);
    ~QtDesktop() override;
    QtDesktop(const QtDesktop &) = delete;
    QtDesktop &operator=(const QtDesktop &) = delete;

    /** Prompts sized for fingers, with an on-screen keyboard. */
    void setTabletActive(bool active) override { m_tabletActive = active; }

    Answer MessageBox(const QString &text, const QString &title, Icon icon = Icon::None,
                      Buttons buttons = Buttons::Ok,
                      std::optional<Answer> defaultAnswer = std::nullopt) override;
    Answer MessageWithMore(const QString &text, const QString &title, Icon icon, Buttons buttons,
                           std::optional<Answer> defaultAnswer, const QString &more) override;
    bool ShowPreview(Preview &preview) override;
    QString InputPrompt(const QString &prompt, const QString &title, const QString &defaultText = {},
                        bool password = false) override;
    bool ShowWarning(const QString &text, const QString &key) override;
    std::optional<QString> ShowOpenDialog(const FileQuestion &question) override;
    std::optional<QString> ShowSaveDialog(const FileQuestion &question) override;
    std::optional<quint32> ShowColor(quint32 start) override;
    std::optional<FontChoice> ShowFont(const QString &title, const FontChoice &start) override;
    bool isPictureOnClipboard() override;
    bool takeFromClipboard(QImage &picture) override;
    QString BrowseForFolder(const QString &prompt, const QString &title, const QString &startFolder) override;
    std::unique_ptr<WorkingWindow> ShowWorkingForm(const QString &caption, const QString &msg,
                                                   bool withBar) override;
    void ShowHelp(const QString &heading, const QString &body) override;
    bool ShowKeyboard() override;
    bool isTabletWithoutMouse() override;
    std::shared_ptr<QPagedPaintDevice> ShowPrinterDialog() override;
    void ShowPrintPreview(const QString &title,
                          const std::function<void(QPagedPaintDevice &)> &draw) override;
    bool OpenUrl(const QUrl &url) override;
    void setHourglass(bool on) override;
    void resetPointer() override;
    void letEventsRun() override;
    bool inputWaiting() override;

private:
    [[nodiscard]] QPrinter &printer();

    OptionsStore &m_options;
    OnScreenKeyboard m_keyboard;
    TitleRoom m_titleRoom;
    /** Null until a printer was asked for. */
    std::shared_ptr<QPrinter> m_printer;
    QElapsedTimer m_sinceEventsRan;
    int m_hourglasses = 0;
    bool m_tabletActive = false;
};

} // namespace quaverly
