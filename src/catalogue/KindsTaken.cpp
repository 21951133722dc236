// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/KindsTaken.h"

#include "catalogue/Options.h"

namespace quaverly {

namespace {

constexpr char16_t KindsLeftOut[] = u"Music Kinds Left Out";

} // namespace

QStringList kindsLeftOut(const OptionsStore &store)
{
    return option(store, KindsLeftOut).toLower().split(u' ', Qt::SkipEmptyParts);
}

void keepKindsLeftOut(OptionsStore &store, const QStringList &endings)
{
    saveOption(store, KindsLeftOut, endings.join(u' '));
}

} // namespace quaverly
