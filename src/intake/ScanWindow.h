// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "intake/ScanScreen.h"

#include <QDialog>

class QLabel;
class QProgressBar;

namespace quaverly {

/** What the two scan screens have in common: counts, bar, and staying usable during a scan. */
class ScanWindow : public QDialog, public ScanScreen
{
    Q_OBJECT

public:
    explicit ScanWindow(QWidget *parent);

    void setCaption(const QString &caption) override;
    void setCountLabels(const QString &read, const QString &added) override;
    void setFilesRead(int count) override;
    void setSongsAdded(int count) override;
    [[nodiscard]] int barWidth() const override { return m_barWidth; }
    void setBarWidth(int twips) override;
    void unload() override;

    /** Esc closes the window as its close box does. */
    void reject() override;

protected:
    struct Controls
    {
        QLabel *lblRecsReadLabel;
        QLabel *lblRecsRead;
        QLabel *lblRecsAddedLabel;
        QLabel *lblRecsAdded;
        QProgressBar *bar;
    };
    void setControls(const Controls &controls);
    /** No counts, and the bar at its start. */
    void clearProgress();
    /** The large message of a running scan. */
    static void showLarge(QLabel &label, const QString &message);

    void changeEvent(QEvent *event) override;

private:
    Controls m_controls{};
    int m_barWidth = 0;
};

} // namespace quaverly
