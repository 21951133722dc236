// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/richtext/PrintRichText.h"

class QString;

namespace quaverly {

class Desktop;

/** Asks for the printer and prints; the please-wait window's closing ends it. @throws dao::DaoError. */
void printDocument(Desktop &desktop, const QTextDocument &document, const richtext::PrintMargins &margins);

/** Shows the pages as they would be printed, the first hundred of a long document. */
void previewDocument(Desktop &desktop, const QString &title, const QTextDocument &document,
                     const richtext::PrintMargins &margins);

} // namespace quaverly
