// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QTextCursor>

#include <optional>

class QTextDocument;

namespace quaverly {

class Desktop;

/** Finds a text in a document, without regard to case; a miss is told. */
class TextSearch final
{
public:
    explicit TextSearch(Desktop &desktop) : m_desktop(desktop) {}

    /** Asks for the text and looks for it from the beginning. The hit as a selection, or nothing. */
    [[nodiscard]] std::optional<QTextCursor> cmdFind(const QTextDocument &document);
    /** Looks for the same text behind @p from; asks when there was none yet. */
    [[nodiscard]] std::optional<QTextCursor> cmdFindNext(const QTextDocument &document,
                                                         const QTextCursor &from);

private:
    void tell(const QString &title, const QString &message);

    Desktop &m_desktop;
    QString m_text;
};

} // namespace quaverly
