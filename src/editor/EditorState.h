// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QtGlobal>

namespace quaverly {

/** Run-wide state of the record editor, shared with the main screen. */
struct EditorState
{
    /** True while the editor shows an existing record, false for a new one that has not been saved. Set by
     * whoever opens the editor. */
    bool EditMode = false;
    /** A field was changed since the record was loaded. */
    bool RecordDirty = false;
    /** A record was written since the editor was opened. */
    bool RecordSaved = false;
    /** A row was added that the displayed set has not followed yet. */
    bool NewRecordSaved = false;
    /** RecordID of the row written last. */
    qint64 CurrentRecordID = 0;
    /** The picture screen changed a picture that is linked to the record. */
    bool PictureChanged = false;
    /** The picture screen deleted pictures of that sitting, which the next save ends: with it they are one
     * change of the history. Empty without one. */
    QString PictureSitting;
    /** Tells the main screen, at its next activation, to step the grid off its mark column. */
    bool RecordJustSaved = false;
    /** Where the editor stood when it was closed last, in twips; 0 for never. */
    int EditFormLeft = 0;
    int EditFormTop = 0;
};

} // namespace quaverly
