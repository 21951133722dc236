// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/StoreTest.h"

#include <ctime>

using namespace Qt::StringLiterals;

namespace quaverly::test {

namespace {

/** Seconds that the processor spends, whatever else the machine does. */
class ProcessorTime
{
public:
    [[nodiscard]] double seconds() const { return double(std::clock() - m_start) / CLOCKS_PER_SEC; }

private:
    std::clock_t m_start = std::clock();
};

/** All of them too complex. */
QStringList hugeCriteria()
{
    QString towers = u"1"_s;
    for (int level = 0; level < 90; ++level)
        towers = u'(' + towers + u"+1"_s.repeated(400) + u')';
    return {
        u"Artist = '"_s + u"x"_s.repeated(1'000'001) + u"'"_s,
        u"("_s.repeated(100'000),
        u"("_s.repeated(150) + u"1"_s + u")"_s.repeated(150) + u" = 1"_s,
        u"Not "_s.repeated(100'000) + u"1"_s,
        u"-"_s.repeated(100'000) + u"1"_s,
        u"1"_s + u"=1"_s.repeated(100'000),
        u"1"_s + u" xor 1"_s.repeated(150'000),
        u"1"_s + u" is null"_s.repeated(100'000),
        u"1"_s + u" like 1"_s.repeated(100'000),
        u"1"_s + u"^1"_s.repeated(100'000),
        towers,
        u"Len("_s.repeated(90) + u"Artist"_s + u")"_s.repeated(90) + u"+1"_s.repeated(490),
        u"Exists (Select 1 From "_s + u"tblContacts,"_s.repeated(70'000) + u"tblContacts)"_s,
        u"RecordID In (Select RecordID From tblContacts Where "_s.repeated(60),
    };
}

} // namespace

TEST_F(SongCatalogue, BrokenAndHostileCriteriaAreRefusedByNumberAndChangeNothing)
{
    const QString before = everything();
    const auto all = open(u"Select * From tblContacts"_s);
    // A search tells a syntax error by its own number.
    const auto refuse = [&](const QString &text, int number) {
        SCOPED_TRACE(text.left(80).toStdString());
        const int searching = number == dao::SyntaxError ? int(dao::SyntaxErrorInCriteria) : number;
        const ProcessorTime timer;
        EXPECT_EQ(errorOf([&] { open(u"Select * From tblContacts Where "_s + text); }), number);
        EXPECT_EQ(errorOf([&] { all->FindFirst(text); }), searching);
        EXPECT_EQ(errorOf([&] { db().Execute(u"Delete * From tblContacts Where "_s + text); }), number);
        EXPECT_LT(timer.seconds(), 30);
    };
    for (const QStringList &broken : table(u"broken.tsv"_s, 2))
        refuse(broken[0], broken[1].toInt());
    for (const auto &text : {u"Artist = 'x%1y'"_s, u"Artist = 'x'%1"_s, u"[Art%1ist] = 'x'"_s})
        refuse(text.arg(QChar(0)), dao::SyntaxError);
    for (const QString &text : hugeCriteria())
        refuse(text, dao::TooComplex);
    EXPECT_EQ(everything(), before);
}

TEST_F(SongCatalogue, LongCriteriaThatMakeSenseAreAnswered)
{
    QStringList terms;
    for (int i = 0; i < 20'000; ++i)
        terms.append(i % 3 == 0   ? u"RecordID = %1"_s.arg(i * 2)
                     : i % 3 == 1 ? u"Artist = 'ZO%1'"_s.arg(i == 1 ? u"e"_s : u""_s)
                                  : u"PurchaseDate = '2001-%1-03'"_s.arg(i % 12, 2, 10, QChar(u'0')));
    const ProcessorTime quick;
    const QString some = terms.join(u" Or "_s);
    EXPECT_EQ(keys(u"Select * From qryContacts Where ("_s + some +
                   u") And CategoryNumber Is Null Order By RecordID"_s),
              u"2|10"_s);
    const auto all = open(u"Select * From tblContacts Order By SongName"_s);
    all->FindLast(some);
    EXPECT_EQ(all->text(u"RecordID"_s), u"6"_s);
    EXPECT_LT(quick.seconds(), 30);
    terms.clear();
    for (int i = 0; i < 20'000; ++i)
        terms.append(u"'z%1'"_s.arg(i));
    EXPECT_EQ(
        keys(u"Select RecordID From tblContacts Where Artist In ('zoe', "_s + terms.join(u", "_s) + u")"_s),
        u"10"_s);
    EXPECT_EQ(
        keys(u"Select RecordID From tblContacts Where Artist = '"_s + u"x"_s.repeated(900'000) + u"'"_s),
        u""_s);
    const QString stars = u"*e"_s.repeated(60);
    const ProcessorTime timer;
    db().Execute(u"Update tblContacts Set Notes = '"_s + u"e"_s.repeated(100'000) + u"x'"_s);
    EXPECT_EQ(keys(u"Select RecordID From tblContacts Where Notes Like '"_s + stars + u"z'"_s), u""_s);
    EXPECT_LT(timer.seconds(), 60);
    const QString bomb = u"Replace(Notes, 'e', Notes)"_s;
    EXPECT_EQ(errorOf([&] { static_cast<void>(keys(u"Select "_s + bomb + u" From tblContacts"_s)); }),
              dao::TooComplex);
}

TEST_F(SongCatalogue, WholeStatementsAreHeldToWhatTheyMayDo)
{
    for (const QStringList &c : table(u"statements.tsv"_s, 3)) {
        SCOPED_TRACE(c[0].toStdString());
        const dao::Transaction undone(db().workspace());
        EXPECT_EQ(errorOf([&] { static_cast<void>(open(c[0])); }), c[1].toInt());
        EXPECT_EQ(errorOf([&] { db().Execute(c[0]); }), c[2].toInt());
    }
    EXPECT_EQ(keys(u"Select Count(*) From tblContacts"_s), u"11"_s);
}

TEST_F(SongCatalogue, StoredQueriesThatNameEachOtherInARingAreRefused)
{
    db().CreateQueryDef(u"ring1"_s, u"Select * From ring2"_s);
    db().CreateQueryDef(u"ring2"_s, u"Select * From ring1"_s);
    EXPECT_EQ(errorOf([&] { static_cast<void>(open(u"ring1"_s)); }), dao::TooComplex);
    EXPECT_EQ(errorOf([&] { db().CreateQueryDef(u"RING1"_s, u"x"_s); }), dao::ObjectExists);
    EXPECT_EQ(errorOf([&] { static_cast<void>(db().QueryDefs(u"ring3"_s)); }), dao::ItemNotFound);
    db().CreateQueryDef(u"broken \"it's\""_s, u"Select  *\tFrom \"x\n"_s);
    store.reopen();
    EXPECT_EQ(db().QueryDefs(u"BROKEN \"it's\""_s).SQL, u"Select  *\tFrom \"x\n"_s);
    EXPECT_EQ(errorOf([&] { static_cast<void>(open(u"Select * From [broken \"it's\"]"_s)); }),
              dao::SyntaxError);
}

} // namespace quaverly::test
