// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/richtext/RtfState.h"

namespace richtext {

void change(CharState &state, const Word &word, std::optional<int> number)
{
    const bool on = number.value_or(1) != 0;
    switch (word.action) {
    case Action::Plain:
        state = {};
        break;
    case Action::Bold:
        state.bold = on;
        break;
    case Action::Italic:
        state.italic = on;
        break;
    case Action::Underline:
        state.underline = on && word.value != 0;
        break;
    case Action::StrikeOut:
        state.strikeOut = on;
        break;
    case Action::Hidden:
        state.hidden = on;
        break;
    case Action::Script:
    case Action::Raised:
        state.script = on ? word.value : 0;
        break;
    case Action::Font:
        state.font = number.value_or(-1);
        break;
    case Action::FontSize:
        state.halfPoints = number.value_or(CharState().halfPoints);
        break;
    case Action::Color:
        state.color = number.value_or(0);
        break;
    case Action::Background:
        state.background = number.value_or(0);
        break;
    default:
        break;
    }
}

void change(ParagraphState &state, const Word &word, int number)
{
    switch (word.action) {
    case Action::NewParagraphStyle:
        state = {};
        break;
    case Action::Align:
        state.align = static_cast<ParagraphState::Align>(word.value);
        break;
    case Action::LeftIndent:
        state.left = number;
        break;
    case Action::RightIndent:
        state.right = number;
        break;
    case Action::FirstLine:
        state.firstLine = number;
        break;
    case Action::SpaceBefore:
        state.before = number;
        break;
    case Action::SpaceAfter:
        state.after = number;
        break;
    case Action::BreakBefore:
        state.breakBefore = true;
        break;
    case Action::List:
        state.isListItem = number > 0;
        break;
    default:
        break;
    }
}

} // namespace richtext
