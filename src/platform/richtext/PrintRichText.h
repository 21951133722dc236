// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>

class QPagedPaintDevice;
class QTextDocument;

namespace richtext {

/** Margins from the edges of the paper, in twips. */
struct PrintMargins
{
    int left = 1440;
    int top = 1440;
    int right = 1440;
    int bottom = 1440;
};

struct PrintOptions
{
    PrintMargins margins{};
    /** No more pages than that; 0 for all of them. */
    int mostPages = 0;
    /** Called behind each page with the share of the text that is done, 0 to 1; false ends the printing. */
    std::function<bool(double)> goesOn{};
};

/**
 * Prints a document page by page, those of the printer's page ranges; a page also ends at a page break in the
 * text. False when it was ended before the last page. @throws dao::DaoError when the printer doesn't take it.
 */
bool PrintRichText(const QTextDocument &document, QPagedPaintDevice &printer, const PrintOptions &options);

} // namespace richtext
