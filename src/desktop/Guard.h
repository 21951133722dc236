// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/Desktop.h"
#include "platform/store/DaoError.h"

#include <functional>

namespace quaverly {

/** How a command shows its errors. Without a text of its own, the error's sentence stands alone. */
struct ErrorBox
{
    std::function<QString(const dao::DaoError &)> text;
    Icon icon = Icon::Stop;
};

/** Thrown by what has told the user already why the command can't go on: the handler ends without a box. */
struct AlreadyTold
{};

/** The error's sentence, @p between, and its number. */
[[nodiscard]] ErrorBox withErrorNumber(const QString &between = QStringLiteral(".  Error number: "));

/**
 * Runs a handler. Whatever it throws ends here: the pointer is reset and the error shown under
 * @p title, so that no exception reaches the event loop. When the outermost guarded handler has
 * ended, Desktop::handlers().afterHandler runs, before any box, and its own error is shown as well.
 * True when the handler came to its end.
 */
bool guarded(Desktop &desktop, const QString &title, const std::function<void()> &handler,
             const ErrorBox &box = {});

/** guarded() for the handlers of a screen, which all tell their errors alike. */
class GuardedHandler final
{
public:
    /** @p title is asked for at each error. What @p afterError does is guarded as well. */
    GuardedHandler(Desktop &desktop, std::function<QString()> title, ErrorBox box = {},
                   std::function<void()> afterError = {})
        : m_desktop(desktop), m_title(std::move(title)), m_box(std::move(box)),
          m_afterError(std::move(afterError))
    {}

    /** True when the handler came to its end. */
    bool operator()(const std::function<void()> &handler) const;

private:
    Desktop &m_desktop;
    std::function<QString()> m_title;
    ErrorBox m_box;
    std::function<void()> m_afterError;
};

/** Runs what a command does; a failure stops the command and nobody is told, as its users expect. */
template <typename Command> void quietly(Command &&command)
{
    try {
        command();
    } catch (const std::exception &) { // NOLINT(bugprone-empty-catch)
    }
}

} // namespace quaverly
