// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/PaperEdit.h"

#include <functional>

namespace quaverly {

/** A box of formatted text that takes pictures: pasted, dropped, or from a file. */
class NoteText final : public PaperEdit
{
    Q_OBJECT

public:
    explicit NoteText(QWidget *parent = nullptr);

    /** In place of the selection, shown no wider than the box. False for bytes that are no picture. */
    bool insertPictureFile(const QByteArray &file);
    /** Switches an attribute of the selection, or of what is typed next. */
    void applyFormat(const std::function<void(QTextCharFormat &)> &change);

Q_SIGNALS:
    /** The keyboard's focus has left the box. */
    void left();

protected:
    [[nodiscard]] bool canInsertFromMimeData(const QMimeData *source) const override;
    void insertFromMimeData(const QMimeData *source) override;
    void focusOutEvent(QFocusEvent *event) override;

private:
    template <typename Picture> bool insertPicture(const Picture &picture);
};

} // namespace quaverly
