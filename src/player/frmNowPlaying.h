// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>

#include <memory>

namespace Ui {
class frmNowPlaying;
}

namespace quaverly {

/** The small window with the song that plays. */
class frmNowPlaying final : public QWidget
{
    Q_OBJECT

public:
    explicit frmNowPlaying(QWidget *owner);
    ~frmNowPlaying() override;

    void showSong(const QString &song);

Q_SIGNALS:
    void unloaded();

protected:
    void closeEvent(QCloseEvent *event) override;

private:
    std::unique_ptr<Ui::frmNowPlaying> m_ui;
};

} // namespace quaverly
