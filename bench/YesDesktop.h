// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/Desktop.h"

#include <QImage>
#include <QPagedPaintDevice>
#include <QStringList>

namespace bench {

/** Shows nothing and says Yes to everything: a user who wants all of it. */
class YesDesktop : public quaverly::Desktop
{
public:
    /** The texts of all boxes. */
    QStringList told;

    quaverly::Answer MessageBox(const QString &text, const QString & /*title*/, quaverly::Icon /*icon*/,
                                quaverly::Buttons buttons,
                                std::optional<quaverly::Answer> /*defaultAnswer*/) override
    {
        told += text;
        return buttons == quaverly::Buttons::YesNo ? quaverly::Answer::Yes : quaverly::Answer::Ok;
    }
    quaverly::Answer MessageWithMore(const QString &text, const QString &title, quaverly::Icon icon,
                                     quaverly::Buttons buttons, std::optional<quaverly::Answer> defaultAnswer,
                                     const QString & /*more*/) override
    {
        return MessageBox(text, title, icon, buttons, defaultAnswer);
    }
    bool ShowPreview(quaverly::Preview & /*preview*/) override { return true; }
    QString InputPrompt(const QString & /*prompt*/, const QString & /*title*/,
                        const QString & /*defaultText*/, bool /*password*/) override
    {
        return {};
    }
    bool ShowWarning(const QString & /*text*/, const QString & /*key*/) override { return true; }
    std::optional<QString> ShowOpenDialog(const quaverly::FileQuestion & /*question*/) override { return {}; }
    std::optional<QString> ShowSaveDialog(const quaverly::FileQuestion & /*question*/) override { return {}; }
    std::optional<quint32> ShowColor(quint32 /*start*/) override { return {}; }
    std::optional<quaverly::FontChoice> ShowFont(const QString & /*title*/,
                                                 const quaverly::FontChoice & /*start*/) override
    {
        return {};
    }
    bool isPictureOnClipboard() override { return false; }
    bool takeFromClipboard(QImage & /*picture*/) override { return false; }
    QString BrowseForFolder(const QString & /*prompt*/, const QString & /*title*/,
                            const QString & /*startFolder*/) override
    {
        return {};
    }
    std::unique_ptr<quaverly::WorkingWindow>
    ShowWorkingForm(const QString & /*caption*/, const QString & /*msg*/, bool /*withBar*/) override
    {
        return std::make_unique<quaverly::WorkingWindow>();
    }
    void ShowHelp(const QString & /*heading*/, const QString & /*body*/) override {}
    bool ShowKeyboard() override { return false; }
    void setTabletActive(bool /*on*/) override {}
    bool isTabletWithoutMouse() override { return false; }
    std::shared_ptr<QPagedPaintDevice> ShowPrinterDialog() override { return nullptr; }
    void ShowPrintPreview(const QString & /*title*/,
                          const std::function<void(QPagedPaintDevice &)> & /*draw*/) override
    {}
    bool OpenUrl(const QUrl & /*url*/) override { return false; }
    void setHourglass(bool /*on*/) override {}
    void resetPointer() override {}
    void letEventsRun() override {}
    bool inputWaiting() override { return false; }
};

} // namespace bench
