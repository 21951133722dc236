// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>

class QCheckBox;

namespace quaverly {

class Desktop;
class NoteText;

/** The controls beside a note's text that say how its letters look: they follow the cursor and change what is
 * selected. */
class NoteFormats final : public QObject
{
    Q_OBJECT

public:
    struct Boxes
    {
        QCheckBox &chkBold;
        QCheckBox &chkItalic;
        QCheckBox &chkUnderline;
    };

    /** All controls outlive this object. */
    NoteFormats(NoteText &text, const Boxes &boxes);

    /** The boxes as the text at the cursor is. */
    void show();
    /** Asks for a font and its colour. */
    void cmdFontColor_Click(Desktop &desktop);

private:
    NoteText &m_text;
    Boxes m_boxes;
};

} // namespace quaverly
