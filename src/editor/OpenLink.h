// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class QString;

namespace quaverly {

class Desktop;

/** Writes a mail to an address, or opens whatever else has a point in it: a file, a web page. */
void OpenLink(Desktop &desktop, const QString &text);

} // namespace quaverly
