// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPlainTextEdit>

namespace quaverly {

/** Most characters of a criteria text: a layout of more would hold the screen up. */
inline constexpr qsizetype LongestCriteria = 200'000;

/** The field for a criteria text. Enter, which would break the line, says that the text is ready. */
class CriteriaEdit final : public QPlainTextEdit
{
    Q_OBJECT

public:
    explicit CriteriaEdit(QWidget *parent = nullptr) : QPlainTextEdit(parent) {}

    /** The text exactly as typed; no-break spaces, which names of songs may hold, stay such. */
    [[nodiscard]] QString criteria() const;
    /** Puts the text in, as an edit that the user can undo, and the focus and the cursor behind it. */
    void setCriteria(const QString &text);

Q_SIGNALS:
    void entered();
    /** What was pasted or dropped would make the text too long, and was left out. */
    void refusedPaste();

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void insertFromMimeData(const QMimeData *source) override;
};

/** True for Enter on either part of the keyboard, without a second key. */
[[nodiscard]] bool isPlainEnter(const QKeyEvent &key);

} // namespace quaverly
