// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArrayView>

namespace richtext {

/** What a word of the file asks for; its value in the table goes with it where one is named. */
enum class Action {
    None,
    // How characters look. A toggle is off with the number 0.
    Plain,
    Bold,
    Italic,
    /** The value says on or off where no number does. */
    Underline,
    StrikeOut,
    Hidden,
    Script,
    /** The same, by a number of half points. */
    Raised,
    Font,
    FontSize,
    Color,
    Background,
    // How a paragraph stands.
    NewParagraphStyle,
    Align,
    LeftIndent,
    RightIndent,
    FirstLine,
    SpaceBefore,
    SpaceAfter,
    BreakBefore,
    // What stands in the text.
    /** The character of that value. */
    Character,
    EndParagraph,
    /** A table's cell or row: shown as text. */
    Cell,
    Row,
    Unicode,
    UnicodeSkip,
    RawBytes,
    // What a group is for.
    Enter,
    Skip,
    /** Skipped, and not there any more when the document is written. */
    SkipAndLose,
    SkipFirstGroup,
    Fonts,
    Colors,
    Picture,
    // Of the file and its tables.
    DocumentCodePage,
    FixedCodePage,
    DefaultFont,
    FontCharset,
    FontCodePage,
    Red,
    Green,
    Blue,
};

struct Word
{
    Action action = Action::None;
    int value = 0;
};

/** None for a word that means nothing to a document. */
[[nodiscard]] Word wordOf(QByteArrayView name);

} // namespace richtext
