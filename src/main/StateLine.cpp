// SPDX-License-Identifier: GPL-3.0-or-later
#include "main/StateLine.h"

#include "songlist/MainLook.h"
#include "ui_NameList.h"

using namespace Qt::StringLiterals;

namespace quaverly {

void StateLine::show(const MainLook &look)
{
    using enum MainControl;
    m_ui.lblCategory->setText(look.lblCategory);
    m_ui.lblCategory->setVisible(!look.lblCategory.isEmpty());
    m_ui.lblFilterMsg->setText(look.lblFilterMsg);
    m_ui.lblFilterMsg->setVisible(look.shown.testFlag(lblFilterMsg));
    m_ui.cmdShowSelected->setVisible(look.shown.testFlag(cmdShowSelected));
    m_ui.cmdShowArtistSongs->setVisible(look.shown.testFlag(cmdShowArtistSongs));
    m_ui.cmdShowArtistSongs->setEnabled(look.enabled.testFlag(cmdShowArtistSongs));
    showArtistButton(look.cmdShowArtistSongs);
}

void StateLine::showArtistButton(const QString &caption)
{
    // A very long artist must not push the other buttons off the screen.
    constexpr int MostPixels = 420;
    QPushButton &button = *m_ui.cmdShowArtistSongs;
    button.setMaximumWidth(MostPixels);
    button.setAccessibleName(QString(caption).replace(u"&&"_s, u"&"_s));
    button.setText(button.fontMetrics().elidedText(caption, Qt::ElideRight, MostPixels - 32));
}

void StateLine::keepRoom()
{
    const int button = m_ui.cmdShowArtistSongs->sizeHint().height();
    m_ui.stateSpacer->changeSize(0, std::max(button, m_ui.lblCategory->sizeHint().height()),
                                 QSizePolicy::Expanding, QSizePolicy::Minimum);
    m_ui.stateLayout->invalidate();
}

void StateLine::setTextColor(const QColor &text, const QColor &back)
{
    for (QWidget *label : std::initializer_list<QWidget *>{
             m_ui.lblCategory, m_ui.lblFilterMsg, m_ui.lblSelectedCount, m_ui.lblNotice, m_ui.txtName}) {
        QPalette own = label->palette();
        own.setColor(QPalette::WindowText, text);
        own.setColor(QPalette::Text, text);
        own.setColor(QPalette::Base, back);
        label->setPalette(own);
    }
}

} // namespace quaverly
