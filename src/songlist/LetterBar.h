// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>

namespace quaverly {

/**
 * The letters and digits above the list: A to Z, 0 to 9, a blank and Backspace, each as good as its key.
 * One row, or two when it is narrow.
 */
class LetterBar final : public QWidget
{
    Q_OBJECT

public:
    explicit LetterBar(QWidget *parent = nullptr);

    static constexpr int LabelCount = 38;
    /** The character that a label stands for. */
    [[nodiscard]] static char16_t characterOf(int index);

    [[nodiscard]] QRect labelRect(int index) const;
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;
    [[nodiscard]] int heightForWidth(int width) const override;
    [[nodiscard]] bool hasHeightForWidth() const override { return true; }

Q_SIGNALS:
    void lblAlphabet_Click(int index);

protected:
    void paintEvent(QPaintEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void leaveEvent(QEvent *event) override;
    bool event(QEvent *event) override;

private:
    [[nodiscard]] int labelAt(QPoint place) const;
    [[nodiscard]] int rows(int width) const;
    [[nodiscard]] int cellWidth() const;
    [[nodiscard]] int wideCellWidth() const;
    void setHovered(int index);

    int m_hovered = -1;
};

} // namespace quaverly
