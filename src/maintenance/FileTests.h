// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStringList>

#include <chrono>
#include <functional>
#include <memory>
#include <vector>

namespace quaverly {

/**
 * Looks on a thread of its own whether files are there, since a file system may answer slowly or never. An
 * object that goes before all answers are in leaves a test that hangs to itself: nobody waits for it.
 */
class FileTests final
{
public:
    using Test = std::function<bool(const QString &)>;

    /** @p test is called on the other thread, and perhaps still when this object is gone. */
    explicit FileTests(Test test);
    ~FileTests();
    FileTests(const FileTests &) = delete;
    FileTests &operator=(const FileTests &) = delete;

    /** Puts more paths behind those asked for; the empty path is never there. */
    void ask(const QStringList &paths);
    /**
     * Answers that came in, in the order of asking. Waits for all that were asked for, but no longer than
     * @p patience; may be empty.
     */
    [[nodiscard]] std::vector<bool> answers(std::chrono::milliseconds patience);

private:
    struct State;
    static void work(const std::shared_ptr<State> &state);

    std::shared_ptr<State> m_state;
};

} // namespace quaverly
