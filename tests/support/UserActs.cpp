// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/UserActs.h"

#include <QAction>
#include <QDeadlineTimer>
#include <QMenu>
#include <QPointer>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace quaverly::test {

namespace {

constexpr int DialogPatienceMs = 5000;
constexpr int LookAgainMs = 5;

bool isThere(const QWidget *widget)
{
    if (!widget) {
        ADD_FAILURE() << "There is no such control.";
        return false;
    }
    const std::string name = widget->objectName().toStdString();
    EXPECT_TRUE(widget->isVisible()) << name << " is hidden.";
    EXPECT_TRUE(widget->isEnabled()) << name << " is disabled.";
    return widget->isVisible() && widget->isEnabled();
}

/** The menus over an action, from the bar down. */
QList<QMenu *> menusOver(const QWidget &window, QAction *action)
{
    QList<QMenu *> path;
    const QList<QMenu *> menus = window.findChildren<QMenu *>();
    for (bool found = true; found;) {
        found = false;
        for (QMenu *menu : menus) {
            if (menu->actions().contains(action) && !path.contains(menu)) {
                path.prepend(menu);
                action = menu->menuAction();
                found = true;
                break;
            }
        }
    }
    return path;
}

/** A dialog that is still up when nobody will act any more would hold the test for ever. */
void closeIfForgotten(QWidget &dialog)
{
    const QPointer<QWidget> watched = &dialog;
    QTimer::singleShot(DialogPatienceMs, &dialog, [watched] {
        if (!watched || !watched->isVisible())
            return;
        ADD_FAILURE() << "The dialog \"" << watched->windowTitle().toStdString() << "\" was left open.";
        watched->close();
    });
}

void actWhenUp(const std::function<void(QWidget &)> &act, const QDeadlineTimer &deadline)
{
    QWidget *dialog = QApplication::activeModalWidget();
    if (dialog && dialog->isVisible()) {
        closeIfForgotten(*dialog);
        try {
            act(*dialog);
        } catch (const std::exception &error) {
            ADD_FAILURE() << error.what();
        }
    } else if (deadline.hasExpired()) {
        ADD_FAILURE() << "No dialog came up.";
    } else {
        QTimer::singleShot(LookAgainMs, qApp, [act, deadline] { actWhenUp(act, deadline); });
    }
}

} // namespace

void click(QWidget *widget)
{
    if (isThere(widget))
        QTest::mouseClick(widget, Qt::LeftButton);
}

void click(const QWidget &screen, const QString &name)
{
    click(child<QWidget>(screen, name));
}

void type(QWidget *field, const QString &text)
{
    if (!isThere(field))
        return;
    field->setFocus();
    for (const QChar c : text)
        QTest::sendKeyEvent(QTest::Click, field, Qt::Key_unknown, QString(c), Qt::NoModifier);
}

void retype(QWidget *field, const QString &text)
{
    if (!isThere(field))
        return;
    field->setFocus();
    QTest::keyClick(field, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(field, Qt::Key_Delete);
    type(field, text);
}

void key(QWidget *widget, Qt::Key key, Qt::KeyboardModifiers modifiers)
{
    if (!isThere(widget))
        return;
    widget->setFocus();
    QTest::keyClick(widget, key, modifiers);
}

void chooseMenu(const QWidget &window, const QString &name)
{
    auto *action = child<QAction>(window, name);
    for (QMenu *menu : menusOver(window, action)) {
        EXPECT_TRUE(menu->menuAction()->isEnabled() && menu->menuAction()->isVisible())
            << "The menu " << menu->title().toStdString() << " is not open to the user.";
        QMetaObject::invokeMethod(menu, "aboutToShow");
    }
    // Looked at now: opening a menu is when its entries are set.
    EXPECT_TRUE(action->isVisible()) << name.toStdString() << " is hidden.";
    EXPECT_TRUE(action->isEnabled()) << name.toStdString() << " is disabled.";
    const bool isOpen = action->isVisible() && action->isEnabled();
    for (QMenu *menu : menusOver(window, action))
        QMetaObject::invokeMethod(menu, "aboutToHide");
    if (isOpen)
        action->trigger();
}

QStringList rowsOf(const QWidget &screen, const QString &table)
{
    const QAbstractItemModel &model = *child<QTableView>(screen, table)->model();
    QStringList rows;
    for (int row = 0; row < model.rowCount(); ++row) {
        QStringList cells;
        for (int column = 0; column < model.columnCount(); ++column)
            cells += model.index(row, column).data().toString();
        const QVariant tick = model.index(row, 0).data(Qt::CheckStateRole);
        rows += (tick.toInt() == Qt::Checked ? QStringLiteral("x ") : QStringLiteral("- ")) +
                cells.join(QStringLiteral(" | "));
    }
    return rows;
}

void tickRow(const QWidget &screen, int row, const QString &table)
{
    auto *view = child<QTableView>(screen, table);
    view->selectRow(row);
    key(view, Qt::Key_Space);
}

void inDialog(const std::function<void(QWidget &)> &act)
{
    const QDeadlineTimer deadline(DialogPatienceMs);
    QTimer::singleShot(0, qApp, [act, deadline] { actWhenUp(act, deadline); });
}

} // namespace quaverly::test
