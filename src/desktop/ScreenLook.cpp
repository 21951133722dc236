// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/ScreenLook.h"

#include "desktop/DisplayText.h"

#include <QAbstractButton>
#include <QAbstractSpinBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QRegularExpression>
#include <QScreen>
#include <QStyle>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quaverly {

namespace {

/** The most that a text takes of the screen's width. */
constexpr double ScreenShare = 0.8;

/** The field inside a box is laid out by the box. */
bool isPartOfBox(const QWidget &control)
{
    QWidget *parent = control.parentWidget();
    return qobject_cast<QComboBox *>(parent) || qobject_cast<QAbstractSpinBox *>(parent);
}

int widestLine(const QFontMetrics &metrics, const QString &text)
{
    int width = 0;
    for (const QString &line : text.split(u'\n'))
        width = std::max(width, metrics.horizontalAdvance(line));
    return width;
}

int longestLine(const QLabel &label)
{
    return std::min(label.fontMetrics().averageCharWidth() * LongestLine,
                    static_cast<int>(label.screen()->availableSize().width() * ScreenShare));
}

/** Breaks a line at blanks, and where a long word may be broken, so that no part is wider. */
QString foldedLine(const QFontMetrics &metrics, const QString &line, int width)
{
    // The blanks that a line begins with are meant, those at a fold are not.
    const QString text = line.trimmed();
    QString folded = line.first(line.indexOf(text));
    static const QRegularExpression breaks(u"(?<=[ \\x{200B}])"_s);
    QString part;
    for (const QString &piece : text.split(breaks)) {
        if (!part.isEmpty() && metrics.horizontalAdvance((part + piece).trimmed()) > width) {
            folded += part.trimmed() + u'\n';
            part.clear();
        }
        part += piece;
    }
    return folded + part;
}

} // namespace

void showFolded(QLabel &label, const QString &text)
{
    label.ensurePolished();
    const QFontMetrics metrics = label.fontMetrics();
    QStringList lines;
    for (const QString &line : displayText(text).split(u'\n'))
        lines.append(foldedLine(metrics, line, longestLine(label)));
    const QString folded = lines.join(u'\n');
    const QMargins margins = label.contentsMargins();
    label.setTextFormat(Qt::PlainText);
    label.setText(folded);
    label.setMinimumWidth(widestLine(metrics, folded) + metrics.averageCharWidth() + margins.left() +
                          margins.right() + 2 * label.margin() + std::max(0, label.indent()));
}

void showText(QLabel &label, const QString &text)
{
    label.ensurePolished();
    const QString shown = displayText(text);
    const QFontMetrics metrics = label.fontMetrics();
    const QMargins margins = label.contentsMargins();
    const int around = margins.left() + margins.right() + 2 * label.margin() + std::max(0, label.indent());
    const int width =
        std::min(widestLine(metrics, shown) + metrics.averageCharWidth(), longestLine(label)) + around;

    label.setTextFormat(Qt::PlainText);
    label.setWordWrap(true);
    label.setText(shown);
    label.setMinimumWidth(width);
    label.setMinimumHeight(label.heightForWidth(width));
}

void scaleFont(QWidget &control, double factor, bool bold)
{
    // Only what is set here is fixed; the family goes on following the screen's.
    QFont font;
    font.setPointSizeF(control.window()->font().pointSizeF() * factor);
    if (bold)
        font.setBold(true);
    control.setFont(font);
}

void arrangeButtons(QWidget &dialog)
{
    // Layout 3 has the accepting button last on the right and Cancel left of it, whatever the desktop does.
    dialog.setStyleSheet(u"QDialogButtonBox { button-layout: 3 }"_s);
    for (const QDialogButtonBox *box : dialog.findChildren<QDialogButtonBox *>()) {
        for (QAbstractButton *button : box->buttons())
            button->setIcon({});
    }
}

void sizeForFingers(QWidget &screen)
{
    for (QWidget *control : screen.findChildren<QWidget *>()) {
        const bool isTouched = qobject_cast<QAbstractButton *>(control) ||
                               qobject_cast<QLineEdit *>(control) || qobject_cast<QComboBox *>(control) ||
                               qobject_cast<QAbstractSpinBox *>(control);
        if (isTouched && !isPartOfBox(*control))
            control->setMinimumHeight(FingerHeight);
    }
}

QSize roomFor(const QWidget &screen)
{
    // The frame is the window manager's, who tells its measures only when the screen is shown.
    const QSize frame(0, 2 * screen.style()->pixelMetric(QStyle::PM_TitleBarHeight, nullptr, &screen));
    return screen.screen()->availableSize() - frame;
}

} // namespace quaverly
