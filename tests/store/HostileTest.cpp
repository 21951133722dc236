// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/StoreTest.h"

#include <QElapsedTimer>

using namespace Qt::StringLiterals;

namespace quaverly::test {

namespace {

struct Hostile
{
    QString text;
    /** Of the criteria behind WHERE; a search tells a syntax error by its own number. */
    int number;
};

QList<Hostile> brokenCriteria()
{
    return {
        {u""_s, dao::SyntaxError},
        {u"Artist = \"abc"_s, dao::SyntaxError},
        {u"Artist = 'O'Neil'"_s, dao::SyntaxError},
        {u"[Artist = 'x'"_s, dao::SyntaxError},
        {u"Artist] = 'x'"_s, dao::SyntaxError},
        {u"[] = 1"_s, dao::SyntaxError},
        {u"PurchaseDate = #2001-02-03"_s, dao::SyntaxError},
        {u"PurchaseDate = #2001-02-31#"_s, dao::SyntaxError},
        {u"PurchaseDate = ##"_s, dao::SyntaxError},
        {u"(((Artist = 'x')"_s, dao::SyntaxError},
        {u"Artist = 'x')"_s, dao::SyntaxError},
        {u"Artist like"_s, dao::SyntaxError},
        {u"Artist = = 'x'"_s, dao::SyntaxError},
        {u"Artist 'x'"_s, dao::SyntaxError},
        {u"Artist = 'x' And"_s, dao::SyntaxError},
        {u"Artist In ()"_s, dao::SyntaxError},
        {u"Artist Between 1"_s, dao::SyntaxError},
        {u"Left(Artist) = 'x'"_s, dao::SyntaxError},
        {u"Left(*) = 'x'"_s, dao::SyntaxError},
        {u"Artist = @p Or ?1 = $x"_s, dao::SyntaxError},
        {u"0x41 = 1"_s, dao::SyntaxError},
        {u"1=1; Delete * from tblContacts"_s, dao::SyntaxError},
        {u"1=1 /* x */"_s, dao::SyntaxError},
        {u"1=1 Union Select * From sysMeta"_s, dao::SyntaxError},
        {u"RecordID In (Delete * From tblContacts)"_s, dao::SyntaxError},
        {u"(Update tblContacts Set Selected='x')"_s, dao::SyntaxError},
        {u"Artist = `x`"_s, dao::SyntaxError},
        {u"Artist = 'x%1y'"_s.arg(QChar(0)), dao::SyntaxError},
        {u"Artist = 'x'"_s + QChar(0), dao::SyntaxError},
        {u"[Art%1ist] = 'x'"_s.arg(QChar(0)), dao::SyntaxError},
        {u"Sum(TrackNum) > 1"_s, dao::SyntaxError},
        {u"TrackNum = (Select * From tblContacts)"_s, dao::SyntaxError},
        {u"Mid(Artist, 0) = 'x'"_s, dao::SyntaxError},
        {u"1=1 -- comment"_s, dao::UnknownField},
        {u"Nope = 1"_s, dao::UnknownField},
        {u"tblContacts!Nope = 1"_s, dao::UnknownField},
        {u"tblNope.Artist = 'x'"_s, dao::UnknownField},
        {u"rowid = 1 Or [~key] = 2"_s, dao::UnknownField},
        {u"sqlite_version = 'x'"_s, dao::UnknownField},
        {u"load_extension('x') = 1"_s, dao::UndefinedFunction},
        {u"randomblob(1000000000) = 1"_s, dao::UndefinedFunction},
        {u"dao_like('a', 'b')"_s, dao::UndefinedFunction},
        {u"Exists (Select * From sysMeta)"_s, dao::UnknownTable},
        {u"RecordID In (Select name From sqlite_schema)"_s, dao::UnknownTable},
        {u"RecordID In (Select name From pragma_table_list)"_s, dao::UnknownTable},
    };
}

QList<Hostile> hugeCriteria()
{
    const QString chained = u"1"_s;
    QString towers = u"1"_s;
    for (int level = 0; level < 90; ++level)
        towers = u'(' + towers + u"+1"_s.repeated(400) + u')';
    return {
        {u"Artist = '"_s + u"x"_s.repeated(1'000'001) + u"'"_s, dao::TooComplex},
        {u"("_s.repeated(400'000), dao::TooComplex},
        {u"("_s.repeated(150) + u"1"_s + u")"_s.repeated(150) + u" = 1"_s, dao::TooComplex},
        {u"Not "_s.repeated(200'000) + u"1"_s, dao::TooComplex},
        {u"-"_s.repeated(400'000) + u"1"_s, dao::TooComplex},
        {chained + u"=1"_s.repeated(400'000), dao::TooComplex},
        {chained + u" xor 1"_s.repeated(150'000), dao::TooComplex},
        {chained + u" is null"_s.repeated(100'000), dao::TooComplex},
        {chained + u" like 1"_s.repeated(100'000), dao::TooComplex},
        {chained + u"^1"_s.repeated(400'000), dao::TooComplex},
        {towers, dao::TooComplex},
        {u"Len("_s.repeated(90) + u"Artist"_s + u")"_s.repeated(90) + u"+1"_s.repeated(490), dao::TooComplex},
        {u"Exists (Select 1 From "_s + u"tblContacts,"_s.repeated(70'000) + u"tblContacts)"_s,
         dao::TooComplex},
        {u"RecordID In (Select RecordID From tblContacts Where "_s.repeated(60), dao::TooComplex},
    };
}

} // namespace

TEST_F(SongCatalogue, BrokenAndHostileCriteriaAreRefusedByNumberAndChangeNothing)
{
    const QString before = everything();
    const auto all = open(u"Select * From tblContacts"_s);
    for (const Hostile &hostile : brokenCriteria() + hugeCriteria()) {
        SCOPED_TRACE(hostile.text.left(80).toStdString());
        const bool syntax = hostile.number == dao::SyntaxError;
        QElapsedTimer timer;
        timer.start();
        EXPECT_EQ(errorOf([&] { open(u"Select * From tblContacts Where "_s + hostile.text); }),
                  hostile.number);
        EXPECT_EQ(errorOf([&] { all->FindFirst(hostile.text); }),
                  syntax ? dao::SyntaxErrorInCriteria : hostile.number);
        EXPECT_EQ(errorOf([&] { db().Execute(u"Delete * From tblContacts Where "_s + hostile.text); }),
                  hostile.number);
        EXPECT_LT(timer.elapsed(), 5000);
    }
    EXPECT_EQ(everything(), before);
}

TEST_F(SongCatalogue, ASyntaxErrorSaysWhere)
{
    try {
        static_cast<void>(open(u"Select * From tblContacts Where Artist = = 'x'"_s));
        FAIL();
    } catch (const dao::DaoError &error) {
        EXPECT_TRUE(error.description.contains(u"character 42, near '= 'x''"_s)) << error.what();
    }
}

TEST_F(SongCatalogue, LongCriteriaThatMakeSenseAreAnswered)
{
    QStringList terms;
    for (int i = 0; i < 20'000; ++i)
        terms.append(u"RecordID = %1"_s.arg(i * 3));
    EXPECT_EQ(keys(u"Select RecordID From tblContacts Where "_s + terms.join(u" Or "_s)), u"3|6|9"_s);
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
    QElapsedTimer timer;
    timer.start();
    db().Execute(u"Update tblContacts Set Notes = '"_s + u"e"_s.repeated(100'000) + u"x'"_s);
    EXPECT_EQ(keys(u"Select RecordID From tblContacts Where Notes Like '"_s + stars + u"z'"_s), u""_s);
    EXPECT_LT(timer.elapsed(), 10'000);
    const QString bomb = u"Replace(Notes, 'e', Notes)"_s;
    EXPECT_EQ(errorOf([&] { static_cast<void>(keys(u"Select "_s + bomb + u" From tblContacts"_s)); }),
              dao::TooComplex);
}

TEST_F(SongCatalogue, WholeStatementsAreHeldToWhatTheyMayDo)
{
    struct Case
    {
        const char16_t *sql;
        int opening;
        int executing;
    };
    static constexpr Case cases[] = {
        {u"", dao::UnknownTable, dao::SyntaxError},
        {u"tblNope", dao::UnknownTable, dao::SyntaxError},
        {u"sysMeta", dao::UnknownTable, dao::SyntaxError},
        {u"Select * From tblNope", dao::UnknownTable, dao::InvalidOperation},
        {u"Select * From tblContacts", 0, dao::InvalidOperation},
        {u"Select Nope From tblContacts", dao::UnknownField, dao::InvalidOperation},
        {u"Select tblNope.* From tblContacts", dao::UnknownTable, dao::InvalidOperation},
        {u"Select * From tblContacts Order By 99", dao::SyntaxError, dao::InvalidOperation},
        {u"Select * From tblContacts Order By", dao::SyntaxError, dao::SyntaxError},
        {u"Select * From qdelDuplicates", dao::UnknownTable, dao::InvalidOperation},
        {u"qdelDuplicates", dao::InvalidOperation, 0},
        {u"Delete * From tblNope", dao::InvalidOperation, dao::UnknownTable},
        {u"Update tblContacts Set Nope = 1", dao::InvalidOperation, dao::UnknownField},
        {u"Update qryContacts Set Artist = 'x'", dao::InvalidOperation, dao::InvalidOperation},
        {u"Insert Into tblSettings (Type, Name) Values ('a')", dao::SyntaxError, dao::SyntaxError},
        {u"Insert Into tblSettings (Type) Select Type, Name From tblSettings", dao::InvalidOperation,
         dao::SyntaxError},
        {u"Drop Table tblContacts", dao::SyntaxError, dao::SyntaxError},
        {u"Attach 'x' As y", dao::SyntaxError, dao::SyntaxError},
        {u"Pragma writable_schema = 1", dao::SyntaxError, dao::SyntaxError},
        {u"Select * From tblContacts; Drop Table tblContacts", dao::SyntaxError, dao::SyntaxError},
        {u"Insert Into tblCategoryID (ID, CategoryNumber) Values (1, 1)", dao::InvalidOperation,
         dao::DuplicateKey},
        {u"Update tblContacts Set FileName='copy.mp3', PathName = '/m/é/' Where RecordID = 10",
         dao::InvalidOperation, dao::DuplicateKey},
        {u"Update tblContacts Set RecordID = 1", dao::InvalidOperation, dao::DuplicateKey},
    };
    for (const Case &c : cases) {
        SCOPED_TRACE(QString::fromUtf16(c.sql).toStdString());
        const dao::Transaction undone(db().workspace());
        EXPECT_EQ(errorOf([&] { static_cast<void>(open(QString::fromUtf16(c.sql))); }), c.opening);
        EXPECT_EQ(errorOf([&] { db().Execute(QString::fromUtf16(c.sql)); }), c.executing);
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
