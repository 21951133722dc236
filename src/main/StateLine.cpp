// SPDX-License-Identifier: GPL-3.0-or-later
#include "main/StateLine.h"

#include "ui_NameList.h"

using namespace Qt::StringLiterals;

namespace quaverly {

void StateLine::setCategory(const QString &caption)
{
    m_ui.lblCategory->setText(caption);
    m_ui.lblCategory->setVisible(!caption.isEmpty());
}

void StateLine::setSelectedCount(const QString &caption)
{
    m_ui.lblSelectedCount->setText(caption);
    m_ui.lblSelectedCount->setVisible(!caption.isEmpty());
}

void StateLine::setArtistButton(const QString &caption)
{
    // A very long artist must not push the other buttons off the screen.
    constexpr int MostPixels = 420;
    QPushButton &button = *m_ui.cmdShowArtistSongs;
    button.setMaximumWidth(MostPixels);
    button.setProperty("caption", caption);
    button.setAccessibleName(QString(caption).replace(u"&&"_s, u"&"_s));
    button.setText(button.fontMetrics().elidedText(caption, Qt::ElideRight, MostPixels - 32));
}

QString StateLine::artistButton() const
{
    return m_ui.cmdShowArtistSongs->property("caption").toString();
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
