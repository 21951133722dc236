// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDialog>

#include <functional>
#include <memory>

namespace Ui {
class About;
}

namespace quaverly {

/** What the program is called and which version it is. */
class About final : public QDialog
{
    Q_OBJECT

public:
    /** @p openWebSite runs at a click on the web site's name. */
    explicit About(std::function<void()> openWebSite, QWidget *parent = nullptr);
    ~About() override;

private:
    void wire();
    void Label2_Click();
    void Command1_Click();

    std::unique_ptr<Ui::About> m_ui;
    std::function<void()> m_openWebSite;
};

} // namespace quaverly
