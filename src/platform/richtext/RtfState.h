// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/richtext/RtfWords.h"

#include <QColor>
#include <QString>

#include <optional>

namespace richtext {

/** How characters look, in the measures of the file. */
struct CharState
{
    /** Number in the font table, -1 for the default font. */
    int font = -1;
    int halfPoints = 24;
    /** Numbers in the colour table; 0 is the reader's own colour. */
    int color = 0;
    int background = 0;
    bool bold = false;
    bool italic = false;
    bool underline = false;
    bool strikeOut = false;
    bool hidden = false;
    /** 1 above the line, -1 below it. */
    int script = 0;

    bool operator==(const CharState &) const = default;
};

/** How a paragraph stands, in twips. */
struct ParagraphState
{
    enum class Align { Left, Centre, Right, Justify };

    Align align = Align::Left;
    int left = 0;
    int right = 0;
    int firstLine = 0;
    int before = 0;
    int after = 0;
    bool breakBefore = false;
    /** Word processors put a number or bullet in front. */
    bool isListItem = false;

    bool operator==(const ParagraphState &) const = default;
};

struct FontEntry
{
    QString family;
    /** -1 when the entry names none. */
    int charset = -1;
    int codePage = -1;
};

/** What a word changes in how characters look. */
void change(CharState &state, const Word &word, std::optional<int> number);
/** What a word changes in how a paragraph stands. */
void change(ParagraphState &state, const Word &word, int number);

} // namespace richtext
