// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/About.h"

#include "desktop/ScreenLook.h"
#include "ui_About.h"

namespace quaverly {

About::About(std::function<void()> openWebSite, QWidget *parent)
    : QDialog(parent), m_ui(std::make_unique<Ui::About>()), m_openWebSite(std::move(openWebSite))
{
    m_ui->setupUi(this);
    scaleFont(*m_ui->lblTitle, HeadingScale, true);
    m_ui->Command1->setFocus();
    wire();
}

About::~About() = default;

void About::wire()
{
    connect(m_ui->Label2, &QLabel::linkActivated, this, &About::Label2_Click);
    connect(m_ui->Command1, &QPushButton::clicked, this, &About::Command1_Click);
}

void About::Label2_Click()
{
    if (m_openWebSite)
        m_openWebSite();
}

void About::Command1_Click()
{
    accept();
}

} // namespace quaverly
