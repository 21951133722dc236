// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPlainTextEdit>

namespace quaverly {

/** The current song in four lines: song, artist, album, file. Keys typed at it are keys for the list. */
class DescriptionBox final : public QPlainTextEdit
{
    Q_OBJECT

public:
    explicit DescriptionBox(QWidget *parent = nullptr);

    void setDescription(const QString &text);

Q_SIGNALS:
    /** A key is going to be obeyed, unless a receiver accepts it. */
    void KeyDown(QKeyEvent *event);

protected:
    bool event(QEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    void fitLines();
};

} // namespace quaverly
