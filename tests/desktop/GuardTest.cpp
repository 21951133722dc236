// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/Guard.h"
#include "support/ScriptedDesktop.h"

using namespace Qt::StringLiterals;
using namespace quaverly;
using test::ScriptedDesktop;

namespace {

TEST(Guard, ShowsEveryKindOfErrorAndResetsThePointer)
{
    const std::pair<std::function<void()>, QString> cases[] = {
        {[] { throw dao::DaoError(3022, u"Déjà vu"_s); }, u"Déjà vu #3022"_s},
        {[] { throw std::runtime_error("plain"); }, u"plain #3001"_s},
        {[] { throw std::bad_alloc(); }, u"Out of memory #7"_s},
        {[] { throw 1; }, u"Unknown error #3001"_s},
    };
    for (const auto &[fail, text] : cases) {
        ScriptedDesktop desktop;
        desktop.willSee();
        const auto handler = [&desktop, &failure = fail] {
            desktop.setHourglass(true);
            failure();
        };
        EXPECT_FALSE(guarded(desktop, u"Title"_s, handler, withErrorNumber(u" #"_s)));
        EXPECT_EQ(desktop.lastCall().text, text);
        EXPECT_FALSE(desktop.isHourglassOn());
    }
}

TEST(Guard, TheHookRunsOnceAfterTheOutermostHandler)
{
    ScriptedDesktop desktop;
    QStringList order;
    desktop.handlers().afterHandler = [&order] { order += u"hook"_s; };
    const auto inner = [&order] {
        order += u"inner"_s;
        throw std::runtime_error("inner");
    };
    desktop.willSee(u"inner"_s).meanwhile([&order] { order += u"box"_s; });
    EXPECT_TRUE(guarded(desktop, u"T"_s, [&] {
        guarded(desktop, u"T"_s, inner);
        order += u"outer"_s;
    }));
    EXPECT_EQ(order, (QStringList{u"inner"_s, u"box"_s, u"outer"_s, u"hook"_s}));
}

TEST(Guard, TheHookRunsBeforeTheOuterBoxAndItsOwnErrorIsShownToo)
{
    ScriptedDesktop desktop;
    bool settled = false;
    desktop.handlers().afterHandler = [&settled] {
        settled = true;
        throw dao::DaoError(61, u"Disk full"_s);
    };
    desktop.willSee(u"first"_s).meanwhile([&settled] { EXPECT_TRUE(settled); }).willSee(u"Disk full"_s);
    EXPECT_FALSE(guarded(desktop, u"T"_s, [] { throw std::runtime_error("first"); }));
}

} // namespace
