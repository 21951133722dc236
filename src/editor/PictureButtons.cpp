// SPDX-License-Identifier: GPL-3.0-or-later
#include "editor/PictureButtons.h"

#include "desktop/Icons.h"
#include "editor/EditorFields.h"

#include <QLineEdit>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace quaverly {

namespace {

constexpr QLatin1StringView Stem = "cmdPicture"_L1;

} // namespace

PictureButtons::PictureButtons(QWidget &screen, const std::function<void(int slot)> &showPicture)
{
    QPalette linked = screen.palette();
    linked.setColor(QPalette::Text, linked.color(QPalette::Link));
    for (int slot = 1; slot <= PictureSlots; ++slot) {
        auto *button = screen.findChild<QPushButton *>(Stem + QString::number(slot));
        button->setIcon(icon(u"pictures"_s));
        button->setEnabled(showPicture != nullptr);
        connect(button, &QPushButton::clicked, this, [showPicture, slot] { showPicture(slot); });
        screen.findChild<QLineEdit *>(u"txtPic%1File"_s.arg(slot))->setPalette(linked);
    }
}

int PictureButtons::slotOf(const QWidget &control)
{
    const QString name = control.objectName();
    return name.startsWith(Stem) ? name.mid(Stem.size()).toInt() : 0;
}

} // namespace quaverly
