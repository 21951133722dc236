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
    /** The number of the list that the paragraph belongs to; 0 for none. */
    List,
    // What stands in the text.
    /** The character of that value. */
    Character,
    EndParagraph,
    /** A table's cell or row: shown as text. */
    Cell,
    Row,
    /** Text that the reader is to make: a page's number, a date. */
    Made,
    Unicode,
    UnicodeSkip,
    RawBytes,
    // What a group is for.
    Enter,
    /** Read as text, which it is not when the document is written. */
    EnterAndLose,
    /** A list item's number or bullet. */
    EnterListText,
    Skip,
    /** How the number or bullet of the paragraph outside is made. */
    SkipListItem,
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

/** What an action is about. */
enum class Part { None, Character, Paragraph, Text, Group, File };

[[nodiscard]] Part partOf(Action action);

struct Word
{
    Action action = Action::None;
    int value = 0;
};

/** None for a word that means nothing to a document. */
[[nodiscard]] Word wordOf(QByteArrayView name);

/** True for a group that is marked as left to who knows it, when nothing of the text is lost with it. */
[[nodiscard]] bool holdsNoText(QByteArrayView name);

} // namespace richtext
