// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/store/KeyWalk.h"

#include <QAbstractEventDispatcher>

#include <limits>

using namespace Qt::StringLiterals;

namespace dao {

namespace {

/** About two milliseconds' worth. */
constexpr qint64 KeysAtATime = 20'000;
/** By then a list that has just been opened is on the screen. */
constexpr int MillisecondsUntilPainted = 50;

} // namespace

KeyWalk::KeyWalk(Statement rows, KeySet &keys, qint64 total)
    : m_rows(std::move(rows)), m_keys(keys), m_total(total)
{
    m_keys.reserve(total);
}

bool KeyWalk::readOn(qint64 count)
{
    if (!m_rows)
        return false;
    try {
        for (; count > 0; --count) {
            if (!m_rows.step()) {
                m_rows = Statement();
                return false;
            }
            m_keys.append(m_rows.integer(0));
        }
        return true;
    } catch (const DaoError &error) {
        // Kept for whoever needs the keys: here it is the idle event loop that reads, or a change that goes
        // on.
        m_failure = error;
        m_rows = Statement();
        return false;
    }
}

void KeyWalk::finish()
{
    static_cast<void>(readOn(std::numeric_limits<qint64>::max()));
}

void KeyWalk::abandon()
{
    if (m_rows)
        m_failure = DaoError(ObjectInvalid, u"Object invalid or no longer set."_s);
    m_rows = Statement();
}

void KeyWalk::assertWhole() const
{
    if (m_failure)
        throw *m_failure;
}

OpenWalks::OpenWalks()
{
    QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] { goOn(); });
}

OpenWalks::~OpenWalks()
{
    abandon();
}

void OpenWalks::add(const std::shared_ptr<KeyWalk> &walk)
{
    m_walks.push_back(walk);
    if (QAbstractEventDispatcher::instance() != nullptr)
        m_timer.start(MillisecondsUntilPainted);
}

void OpenWalks::finish()
{
    for (const auto &walk : m_walks) {
        if (const auto open = walk.lock())
            open->finish();
    }
    m_walks.clear();
    m_timer.stop();
}

void OpenWalks::abandon()
{
    for (const auto &walk : m_walks) {
        if (const auto open = walk.lock())
            open->abandon();
    }
    finish();
}

// A little at a time, so that a key or a click need not wait.
void OpenWalks::goOn()
{
    // The list opened last is the one on the screen.
    const auto open = m_walks.empty() ? nullptr : m_walks.back().lock();
    if (open && open->readOn(KeysAtATime))
        return m_timer.start(0);
    if (!m_walks.empty())
        m_walks.pop_back();
    if (m_walks.empty())
        m_timer.stop();
}

} // namespace dao
