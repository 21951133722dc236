// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/options/SingleInstance.h"
#include "support/QtPrinters.h"

#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <csignal>
#include <sys/wait.h>
#include <unistd.h>

using namespace Qt::StringLiterals;
using namespace quaverly;

namespace {

class TheProgram : public ::testing::Test
{
protected:
    [[nodiscard]] QString folder() const { return m_folder.path() + u'/'; }

private:
    QTemporaryDir m_folder;
};

TEST_F(TheProgram, ASecondStartFindsTheFirstAndRaisesItWithItsToken)
{
    SingleInstance first(folder());
    QSignalSpy raised(&first, &SingleInstance::raiseRequested);
    EXPECT_FALSE(first.PrevInstance());
    for (int start = 1; start <= 2; ++start) {
        SingleInstance second(folder());
        EXPECT_TRUE(second.PrevInstance());
        qputenv("XDG_ACTIVATION_TOKEN", "token-7");
        EXPECT_TRUE(second.raiseOther());
        qunsetenv("XDG_ACTIVATION_TOKEN");
        EXPECT_TRUE(QTest::qWaitFor([&] { return raised.count() == start; }));
        EXPECT_EQ(qgetenv("XDG_ACTIVATION_TOKEN"), QByteArray("token-7"));
    }
    qunsetenv("XDG_ACTIVATION_TOKEN");
}

TEST_F(TheProgram, AKilledHolderDoesNotBlockTheNextStart)
{
    int ready[2] = {};
    ASSERT_EQ(::pipe(ready), 0);
    const pid_t holder = ::fork();
    if (holder == 0) {
        const SingleInstance running(folder());
        const char held = running.PrevInstance() ? 'n' : 'y';
        [[maybe_unused]] const auto written = ::write(ready[1], &held, 1);
        for (;;)
            ::pause();
    }
    char held = 0;
    ASSERT_EQ(::read(ready[0], &held, 1), 1);
    EXPECT_EQ(held, 'y');
    EXPECT_TRUE(SingleInstance(folder()).PrevInstance());
    ASSERT_EQ(::kill(holder, SIGKILL), 0);
    ASSERT_EQ(::waitpid(holder, nullptr, 0), holder);
    ::close(ready[0]);
    ::close(ready[1]);

    SingleInstance next(folder());
    EXPECT_FALSE(next.PrevInstance());
    QSignalSpy raised(&next, &SingleInstance::raiseRequested);
    EXPECT_TRUE(SingleInstance(folder()).raiseOther()) << "the dead one's socket is in the way";
    EXPECT_TRUE(QTest::qWaitFor([&] { return raised.count() == 1; }));
}

TEST_F(TheProgram, StartsWithoutAUsableFolder)
{
    SingleInstance lonely(folder() + u"missing/"_s);
    EXPECT_FALSE(lonely.PrevInstance());
    EXPECT_FALSE(lonely.raiseOther());
}

} // namespace
