// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class QPagedPaintDevice;
class QTextDocument;

namespace quaverly {

/** Margins from the edges of the paper, in twips. */
struct PrintMargins
{
    int left = 1440;
    int top = 1440;
    int right = 720;
    int bottom = 720;
};

/**
 * Prints a document page by page; a page also ends at a page break in the text. @throws dao::DaoError when
 * the printer does not take it.
 */
void PrintRichText(const QTextDocument &document, QPagedPaintDevice &printer, const PrintMargins &margins);

} // namespace quaverly
