// SPDX-License-Identifier: GPL-3.0-or-later
#include "notes/NotesPlace.h"

#include "catalogue/Options.h"
#include "platform/options/OptionsStore.h"
#include "platform/text/Twips.h"

#include <QScreen>
#include <QStringList>
#include <QWidget>

#include <array>

using namespace Qt::StringLiterals;

namespace quaverly {

namespace {

constexpr char16_t NotesScreen[] = u"NotesScreen";

} // namespace

void restoreNotesPlace(QWidget &screen, const OptionsStore &store, const Options &options)
{
    const QRect available = screen.screen()->availableGeometry();
    screen.resize(screen.size().boundedTo(available.size()));
    const QStringList kept = option(store, NotesScreen).split(u',');
    if (!options.RememberWindowSize || kept.size() != 4)
        return;
    std::array<int, 4> pixels{};
    for (size_t i = 0; i < pixels.size(); ++i)
        pixels[i] = kept[static_cast<qsizetype>(i)].toInt() / TwipsPerPixel;
    const QRect place(pixels[0], pixels[1], pixels[2], pixels[3]);
    if (available.contains(place.center()) && place.width() >= screen.minimumSizeHint().width())
        screen.setGeometry(place.intersected(available));
}

void saveNotesPlace(const QWidget &screen, OptionsStore &store, const Options &options)
{
    if (!options.RememberWindowSize)
        return;
    QStringList twips;
    const QRect place = screen.geometry();
    for (const int pixels : {place.x(), place.y(), place.width(), place.height()})
        twips.append(QString::number(pixels * TwipsPerPixel));
    saveOption(store, NotesScreen, twips.join(u','));
}

} // namespace quaverly
