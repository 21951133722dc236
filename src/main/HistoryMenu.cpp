// SPDX-License-Identifier: GPL-3.0-or-later
#include "main/HistoryMenu.h"

#include "history/HistoryCommands.h"

#include <QMenu>

using namespace Qt::StringLiterals;

namespace quaverly {

namespace {

void caption(QAction &entry, const std::optional<QString> &text, const QString &alone)
{
    entry.setText(u'&' + text.value_or(alone));
    entry.setEnabled(text.has_value());
}

} // namespace

void captionHistory(QMenu &menu, QAction &undo, QAction &redo, const HistoryCommands &history)
{
    redo.setShortcuts({QKeySequence(u"Ctrl+Y"_s), QKeySequence(u"Ctrl+Shift+Z"_s)});
    QObject::connect(&menu, &QMenu::aboutToShow, &menu, [&undo, &redo, &history] {
        caption(undo, history.undoCaption(), u"Undo"_s);
        caption(redo, history.redoCaption(), u"Redo"_s);
    });
    // Their keys work while the menu is closed, whatever it said when it was open.
    QObject::connect(&menu, &QMenu::aboutToHide, &menu, [&undo, &redo] {
        undo.setEnabled(true);
        redo.setEnabled(true);
    });
}

} // namespace quaverly
