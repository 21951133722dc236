// SPDX-License-Identifier: GPL-3.0-or-later
#include "notes/NoteFormats.h"

#include "desktop/ColorNumber.h"
#include "desktop/Desktop.h"
#include "notes/NoteText.h"

#include <QCheckBox>
#include <QShortcut>

using namespace Qt::StringLiterals;

namespace quaverly {

NoteFormats::NoteFormats(NoteText &text, const Boxes &boxes) : m_text(text), m_boxes(boxes)
{
    const auto on = [this](QCheckBox &box, QKeySequence::StandardKey key, auto apply) {
        connect(&box, &QCheckBox::clicked, this, [this, apply](bool checked) {
            m_text.applyFormat([&](QTextCharFormat &format) { apply(format, checked); });
        });
        connect(new QShortcut(key, &m_text), &QShortcut::activated, &box, &QCheckBox::click);
    };
    on(m_boxes.chkBold, QKeySequence::Bold, [](QTextCharFormat &format, bool checked) {
        format.setFontWeight(checked ? QFont::Bold : QFont::Normal);
    });
    on(m_boxes.chkItalic, QKeySequence::Italic,
       [](QTextCharFormat &format, bool checked) { format.setFontItalic(checked); });
    on(m_boxes.chkUnderline, QKeySequence::Underline,
       [](QTextCharFormat &format, bool checked) { format.setFontUnderline(checked); });
    connect(&m_text, &QTextEdit::currentCharFormatChanged, this, &NoteFormats::show);
}

void NoteFormats::show()
{
    const QTextCharFormat format = m_text.currentCharFormat();
    m_boxes.chkBold.setChecked(format.fontWeight() >= QFont::Bold);
    m_boxes.chkItalic.setChecked(format.fontItalic());
    m_boxes.chkUnderline.setChecked(format.fontUnderline());
}

void NoteFormats::cmdFontColor_Click(Desktop &desktop)
{
    const QTextCharFormat now = m_text.currentCharFormat();
    const QFont font = now.font();
    const FontChoice start{font.family(), font.pointSizeF(), colorNumber(now.foreground().color())};
    const auto chosen = desktop.ShowFont(u"Choose font and color"_s, start);
    if (!chosen)
        return;
    m_text.applyFormat([&](QTextCharFormat &format) {
        format.setFontFamilies({chosen->family});
        format.setFontPointSize(chosen->pointSize);
        format.setForeground(colorOf(chosen->color));
    });
}

} // namespace quaverly
