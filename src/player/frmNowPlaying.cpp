// SPDX-License-Identifier: GPL-3.0-or-later
#include "player/frmNowPlaying.h"

#include "ui_frmNowPlaying.h"

#include <QCloseEvent>

using namespace Qt::StringLiterals;

namespace quaverly {

frmNowPlaying::frmNowPlaying(QWidget *owner)
    : QWidget(owner, Qt::Window), m_ui(std::make_unique<Ui::frmNowPlaying>())
{
    m_ui->setupUi(this);
}

frmNowPlaying::~frmNowPlaying() = default;

void frmNowPlaying::showSong(const QString &song)
{
    // An "&" is no access key here.
    m_ui->lblNowPlaying->setText(QString(song).replace(u'&', u"&&"_s));
    m_ui->lblNowPlaying->setToolTip(u"<p>"_s + song.toHtmlEscaped() + u"</p>"_s);
    m_ui->lblNowPlaying->setAccessibleName(song);
}

void frmNowPlaying::closeEvent(QCloseEvent *event)
{
    Q_EMIT unloaded();
    event->accept();
}

} // namespace quaverly
