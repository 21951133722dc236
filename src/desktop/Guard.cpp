// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/Guard.h"

#include <new>

using namespace Qt::StringLiterals;

namespace quaverly {

namespace {

constexpr int OutOfMemory = 7;
/** No number of an error: the user knows. */
constexpr int Told = -1;

/** What @p work threw; nothing to say of what was told already. */
std::optional<dao::DaoError> errorOf(const std::function<void()> &work)
{
    try {
        work();
        return std::nullopt;
    } catch (const dao::DaoError &error) {
        return error;
    } catch (const AlreadyTold &) {
        return dao::DaoError(Told, {});
    } catch (const std::bad_alloc &) {
        return dao::DaoError(OutOfMemory, u"Out of memory"_s);
    } catch (const std::exception &error) {
        return dao::DaoError(dao::Internal, QString::fromUtf8(error.what()));
    } catch (...) {
        return dao::DaoError(dao::Internal, u"Unknown error"_s);
    }
}

void show(Desktop &desktop, const QString &title, const dao::DaoError &error, const ErrorBox &box)
{
    desktop.resetPointer();
    if (error.number == Told)
        return;
    desktop.MessageBox(box.text ? box.text(error) : error.description, title, box.icon);
}

} // namespace

ErrorBox withErrorNumber(const QString &between)
{
    return {[between](const dao::DaoError &error) {
                return error.description + between + QString::number(error.number);
            },
            Icon::Stop};
}

bool guarded(Desktop &desktop, const QString &title, const std::function<void()> &handler,
             const ErrorBox &box)
{
    HandlerState &state = desktop.handlers();
    ++state.depth;
    const std::optional<dao::DaoError> error = errorOf(handler);
    --state.depth;

    std::optional<dao::DaoError> lateError;
    if (state.depth == 0 && state.afterHandler)
        lateError = errorOf(state.afterHandler);

    if (error)
        show(desktop, title, *error, box);
    if (lateError)
        show(desktop, title, *lateError, box);
    return !error;
}

bool GuardedHandler::operator()(const std::function<void()> &handler) const
{
    const bool done = guarded(m_desktop, m_title(), handler, m_box);
    if (!done && m_afterError)
        guarded(m_desktop, m_title(), m_afterError, m_box);
    return done;
}

} // namespace quaverly
