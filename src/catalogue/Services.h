// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace quaverly {

class Desktop;
class OptionsStore;
struct Catalogue;
struct Options;

/** What nearly every command and screen works with. All of it outlives them. */
struct Services
{
    Desktop &desktop;
    Catalogue &catalogue;
    Options &options;
    OptionsStore &optionsStore;
};

} // namespace quaverly
