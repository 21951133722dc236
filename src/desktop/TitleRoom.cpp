// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/TitleRoom.h"

#include <QApplication>
#include <QEvent>
#include <QLabel>
#include <QMessageBox>
#include <QScreen>
#include <QStyle>

namespace quaverly {

namespace {

/** The frame belongs to the desktop, whose bold font may be a wider one. */
constexpr double FontReserve = 1.25;
/** Symbol and buttons beside a title, each as wide as the bar is high. */
constexpr int PartsBesideTitle = 6;

} // namespace

TitleRoom::TitleRoom()
{
    qApp->installEventFilter(this);
}

void TitleRoom::fit(QWidget &dialog)
{
    QFont font = dialog.font();
    font.setBold(true);
    const int title = QFontMetrics(font).horizontalAdvance(dialog.windowTitle());
    const int bar = dialog.style()->pixelMetric(QStyle::PM_TitleBarHeight, nullptr, &dialog);
    const int wanted = std::min(static_cast<int>(title * FontReserve) + PartsBesideTitle * bar,
                                dialog.screen()->availableSize().width());
    // A message box makes itself as wide as its text.
    QWidget *part = &dialog;
    if (qobject_cast<QMessageBox *>(part) != nullptr)
        part = dialog.findChild<QLabel *>(QStringLiteral("qt_msgbox_label"));
    if (part != nullptr && part->minimumWidth() < wanted)
        part->setMinimumWidth(wanted);
}

bool TitleRoom::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::Show || event->type() == QEvent::WindowTitleChange) {
        auto *dialog = qobject_cast<QWidget *>(watched);
        if (dialog != nullptr && dialog->windowType() == Qt::Dialog)
            fit(*dialog);
    }
    return QObject::eventFilter(watched, event);
}

} // namespace quaverly
