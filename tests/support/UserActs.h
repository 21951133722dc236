// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "support/QtPrinters.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTableView>
#include <QTest>

#include <functional>
#include <stdexcept>

/**
 * What a user does at a screen. Each act fails the test when the control isn't there for the user:
 * missing, hidden or disabled.
 */
namespace quaverly::test {

/** The control of that object name. @throws std::runtime_error, which fails the test, without one. */
template <typename T> [[nodiscard]] T *child(const QObject &parent, const QString &name)
{
    if (auto *found = parent.findChild<T *>(name))
        return found;
    throw std::runtime_error(
        QStringLiteral("%1 has no such control: %2").arg(parent.objectName(), name).toStdString());
}

/** A click with the left button in the middle. */
void click(QWidget *widget);
void click(const QWidget &screen, const QString &name);

/** Goes to the field and types @p text behind what stands there. */
void type(QWidget *field, const QString &text);
/** Goes to the field and types @p text in place of what stands there. */
void retype(QWidget *field, const QString &text);

/** Presses a key in a control. */
void key(QWidget *widget, Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);

/** Opens the menus that lead to the entry of that object name and chooses it. */
void chooseMenu(const QWidget &window, const QString &name);

/** The rows of a table, cells with " | " in between, an "x " before a ticked row and "- " before another. */
[[nodiscard]] QStringList rowsOf(const QWidget &screen, const QString &table = QStringLiteral("listRows"));
/** Goes to a row of the table and presses the space bar there. */
void tickRow(const QWidget &screen, int row, const QString &table = QStringLiteral("listRows"));

/**
 * Runs @p act on the dialog that a coming call will show and wait in; fails the test when none is up
 * within five seconds. Call it before what shows the dialog.
 */
void inDialog(const std::function<void(QWidget &)> &act);

} // namespace quaverly::test
