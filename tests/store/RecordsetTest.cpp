// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/StoreTest.h"

using namespace Qt::StringLiterals;

namespace quaverly::test {

using dao::RecordsetType;

namespace {

/** Keys met by moving on from the current row. */
QString walk(dao::Recordset &rows, void (dao::Recordset::*move)())
{
    QStringList keys;
    for (; !rows.atEOF() && !rows.atBOF(); (rows.*move)())
        keys.append(rows.text(u"RecordID"_s));
    return keys.join(u'|');
}

void set(dao::Recordset &rows, const QString &field, const QVariant &value)
{
    rows.Edit();
    rows.setValue(field, value);
    rows.Update();
}

} // namespace

TEST_F(SongCatalogue, ADynasetKeepsItsFirstOrderAndShowsPresentValues)
{
    const auto tracks = open(u"Select ListTrackID, SongTitle From tblPlayListDetail Where ListID=1 Order By "
                             "ListTrackID"_s);
    tracks->MoveFirst();
    set(*tracks, u"ListTrackID"_s, 3);
    EXPECT_EQ(firstFields(*tracks), u"3|2|3"_s);
    // A search sees the new value, in the first order.
    tracks->FindFirst(u"ListTrackID = 3"_s);
    EXPECT_EQ(tracks->AbsolutePosition(), 0);
    tracks->FindNext(u"ListTrackID = 3"_s);
    EXPECT_EQ(tracks->AbsolutePosition(), 2);
    tracks->FindPrevious(u"ListTrackID = 3"_s);
    EXPECT_EQ(tracks->AbsolutePosition(), 0);
    tracks->FindLast(u"ListTrackID = 3"_s);
    tracks->FindNext(u"ListTrackID = 3"_s);
    EXPECT_TRUE(tracks->NoMatch());
    EXPECT_EQ(tracks->AbsolutePosition(), 2);
    // So does one behind a statement that ran elsewhere; the membership stays.
    db().Execute(u"Update tblPlayListDetail Set ListTrackID = 9, ListID = 2 Where ListTrackID = 2"_s);
    tracks->FindFirst(u"ListTrackID = 9"_s);
    EXPECT_EQ(tracks->AbsolutePosition(), 1);
    tracks->Requery();
    EXPECT_EQ(firstFields(*tracks), u"3|3"_s);
}

TEST_F(SongCatalogue, MovingEndsBeyondTheRowsAndNoFurther)
{
    const auto rows = open(u"Select * From tblContacts Order By RecordID"_s);
    EXPECT_EQ(walk(*rows, &dao::Recordset::MoveNext), u"1|2|3|4|5|6|7|8|9|10|11"_s);
    EXPECT_TRUE(rows->atEOF());
    EXPECT_EQ(rows->AbsolutePosition(), -1);
    EXPECT_EQ(errorOf([&] { rows->MoveNext(); }), dao::NoCurrentRecord);
    EXPECT_EQ(errorOf([&] { static_cast<void>(rows->text(u"Artist"_s)); }), dao::NoCurrentRecord);
    rows->MovePrevious();
    EXPECT_EQ(rows->text(u"RecordID"_s), u"11"_s);
    EXPECT_EQ(walk(*rows, &dao::Recordset::MovePrevious), u"11|10|9|8|7|6|5|4|3|2|1"_s);
    EXPECT_TRUE(rows->atBOF());
    EXPECT_EQ(errorOf([&] { rows->MovePrevious(); }), dao::NoCurrentRecord);
    rows->MoveNext();
    EXPECT_EQ(rows->AbsolutePosition(), 0);
    rows->Move(4);
    EXPECT_EQ(rows->text(u"RecordID"_s), u"5"_s);
    rows->Move(-99);
    EXPECT_TRUE(rows->atBOF());
    EXPECT_EQ(errorOf([&] { static_cast<void>(rows->value(u"Nope"_s)); }), dao::ItemNotFound);

    const auto none = open(u"Select * From tblContacts Where RecordID = 99"_s);
    EXPECT_TRUE(none->isEmpty() && none->atBOF() && none->atEOF());
    none->MoveFirst();
    none->MoveLast();
    EXPECT_EQ(errorOf([&] { none->MoveNext(); }), dao::NoCurrentRecord);
    EXPECT_EQ(errorOf([&] { none->Delete(); }), dao::NoCurrentRecord);
    none->FindFirst(u"RecordID = 1"_s);
    EXPECT_TRUE(none->NoMatch());
    rows->Close();
    EXPECT_EQ(errorOf([&] { rows->MoveFirst(); }), dao::ObjectInvalid);
}

TEST_F(SongCatalogue, ABookmarkNamesARowThroughEditsAdditionsAndRequery)
{
    const auto rows = open(u"Select * From tblContacts Order By SongName"_s);
    rows->FindFirst(u"RecordID = 5"_s);
    const dao::Bookmark five = rows->bookmark();
    set(*rows, u"SongName"_s, u"AAA"_s);
    EXPECT_EQ(rows->LastModified(), five);
    rows->AddNew();
    rows->setValue(u"SongName"_s, u"AAAA"_s);
    EXPECT_EQ(rows->text(u"SongName"_s), u"AAAA"_s);
    rows->Update();
    EXPECT_EQ(rows->bookmark(), five) << "the row stays current when another is added";
    const dao::Bookmark added = rows->LastModified();
    EXPECT_EQ(rows->positionOf(added), 11);
    rows->setBookmark(added);
    EXPECT_EQ(rows->text(u"Selected"_s), u" "_s);
    rows->Requery();
    EXPECT_LT(rows->positionOf(added), 4);
    rows->setBookmark(five);
    EXPECT_EQ(rows->text(u"SongName"_s), u"AAA"_s);
    EXPECT_EQ(errorOf([&] { rows->setBookmark({99}); }), dao::NoCurrentRecord);
}

TEST_F(SongCatalogue, AfterADeleteTheNeighboursAreReached)
{
    for (const RecordsetType type : {RecordsetType::Dynaset, RecordsetType::Table}) {
        const dao::Transaction undone(db().workspace());
        const auto rows = type == RecordsetType::Table
                              ? db().OpenRecordset(u"tblContacts"_s)
                              : open(u"Select * From tblContacts Order By RecordID"_s);
        rows->MoveFirst();
        rows->Delete();
        EXPECT_EQ(rows->RecordCount(), 10);
        EXPECT_EQ(errorOf([&] { static_cast<void>(rows->text(u"Artist"_s)); }), dao::RecordDeleted);
        EXPECT_EQ(errorOf([&] { rows->Delete(); }), dao::RecordDeleted);
        rows->MoveNext();
        EXPECT_EQ(rows->text(u"RecordID"_s), u"2"_s);
        rows->Move(3);
        rows->Delete();
        rows->MovePrevious();
        EXPECT_EQ(rows->text(u"RecordID"_s), u"4"_s);
        rows->MoveLast();
        rows->Delete();
        rows->MoveNext();
        EXPECT_TRUE(rows->atEOF());
        rows->MovePrevious();
        EXPECT_EQ(rows->text(u"RecordID"_s), u"10"_s);
        while (!rows->isEmpty()) {
            rows->MoveFirst();
            rows->Delete();
        }
        rows->MoveNext();
        EXPECT_TRUE(rows->atEOF());
    }
}

TEST_F(SongCatalogue, ASnapshotIsFrozenWithAndWithoutATransaction)
{
    const QString sql =
        u"Select SongName, RecordID, Len(Artist) From tblContacts Where Genre = 'Rock' Order By "
        "RecordID"_s;
    for (const bool pending : {true, false}) {
        if (pending)
            db().workspace().BeginTrans();
        const auto snapshot = db().OpenRecordset(sql, RecordsetType::Snapshot);
        EXPECT_EQ(errorOf([&] { snapshot->Edit(); }), dao::ReadOnly);
        db().Execute(u"Update tblContacts Set SongName = 'new' & RecordID Where Genre = 'Rock'"_s);
        db().Execute(u"Delete From tblContacts Where RecordID = 3"_s);
        EXPECT_EQ(firstFields(*snapshot), u"Say \"Hi\"|Straße|Strasse"_s);
        snapshot->Requery();
        EXPECT_EQ(firstFields(*snapshot), u"new5|new10"_s);
        if (pending)
            db().workspace().Rollback();
    }
}

TEST_F(SongCatalogue, WhatAnotherConnectionDidIsNoticedAtUpdate)
{
    dao::DBEngine engine(catalogueSchema());
    const auto other = engine.OpenDatabase(store.catalogue().DatabaseFile);
    const auto rows = open(u"Select * From tblContacts Order By RecordID"_s);
    rows->Edit();
    rows->setValue(u"Notes"_s, u"mine"_s);
    other->Execute(u"Update tblContacts Set Genre = 'theirs' Where RecordID = 1"_s);
    EXPECT_EQ(errorOf([&] { rows->Update(); }), dao::ChangedByAnother);
    EXPECT_EQ(store.songValue(1, u"Genre"_s), u"theirs"_s);
    set(*rows, u"Notes"_s, u"mine"_s);
    EXPECT_EQ(store.songValue(1, u"Notes"_s), u"mine"_s);
    rows->Edit();
    other->Execute(u"Delete From tblContacts Where RecordID = 1"_s);
    EXPECT_EQ(errorOf([&] { rows->Update(); }), dao::ChangedByAnother);
    rows->CancelUpdate();
    EXPECT_EQ(errorOf([&] { rows->Edit(); }), dao::RecordDeleted);
    rows->MoveNext();
    EXPECT_EQ(rows->text(u"RecordID"_s), u"2"_s);
    rows->Requery();
    EXPECT_EQ(rows->RecordCount(), 10);
}

TEST_F(SongCatalogue, ATableSeeksByItsIndexes)
{
    dao::Recordset &table = *store.catalogue().ContactsTable;
    EXPECT_EQ(errorOf([&] { table.Seek(u"="_s, {1}); }), dao::InvalidOperation);
    EXPECT_EQ(errorOf([&] { table.setIndex(u"Nope"_s); }), dao::IndexNotFound);
    table.setIndex(u"PathFile"_s);
    using Case = std::tuple<QString, QString, int>;
    for (const auto &[path, file, key] :
         {Case{u"/m/s/"_s, u"strasse.mp3"_s, 10}, Case{u"/M/S/"_s, u"straße.flac"_s, 5},
          Case{u"/m/s/"_s, u"straße.flac"_s, 0}, Case{u"/m/é/"_s, u"Copy.mp3"_s, 0},
          Case{u"/m/ b /"_s, u" b .wav"_s, 4}, Case{u"/m/q/"_s, u"say 'hi'.mp3"_s, 3}}) {
        table.Seek(u"="_s, {path, file});
        EXPECT_EQ(table.NoMatch() ? 0 : table.value(u"RecordID"_s), key) << path.toStdString();
    }
    const qint64 twin = store.addSong(Song(u"twin"_s).file(u"/m/é/"_s, u"COPY.mp3"_s));
    EXPECT_EQ(errorOf([&] { store.addSong(Song(u"again"_s).file(u"/m/é/"_s, u"copy.mp3"_s)); }),
              dao::DuplicateKey);
    table.Seek(u"="_s, {u"/m/é/"_s, u"COPY.mp3"_s});
    EXPECT_EQ(table.value(u"RecordID"_s), twin) << "a row added elsewhere is seen at once";
    table.setIndex(u"primarykey"_s);
    table.Seek(u"="_s, {7});
    EXPECT_EQ(table.text(u"SongName"_s), u"Star* [Live]"_s);
    set(table, u"SongName"_s, u"Stars"_s);
    table.Seek(u">"_s, {8});
    EXPECT_EQ(table.value(u"RecordID"_s), 9);
    table.Seek(u"<="_s, {u"6"_s});
    EXPECT_EQ(table.value(u"RecordID"_s), 6);
    table.setIndex(u"SongName"_s);
    table.Seek(u">="_s, {u"STAR"_s});
    EXPECT_EQ(table.value(u"RecordID"_s), 7);
    table.MoveNext();
    EXPECT_EQ(table.value(u"RecordID"_s), 10);
    // Reading between Edit and Update must not look like a change by somebody else.
    const auto fresh = open(u"tblContacts"_s);
    fresh->setIndex(u"PrimaryKey"_s);
    fresh->Seek(u"="_s, {6});
    fresh->Edit();
    fresh->setValue(u"Genre"_s, fresh->text(u"Artist"_s));
    fresh->Update();
    EXPECT_EQ(store.songValue(6, u"Genre"_s), u"椎名林檎"_s);
    const auto assigned = open(u"tblCategoryID"_s);
    assigned->setIndex(u"PrimaryKey"_s);
    assigned->Seek(u"="_s, {6, 2});
    EXPECT_FALSE(assigned->NoMatch());
    assigned->Delete();
    EXPECT_EQ(errorOf([&] { assigned->Delete(); }), dao::RecordDeleted);
    assigned->Seek(u"="_s, {6, 2});
    EXPECT_TRUE(assigned->NoMatch());
    // Behind a row that was sought and deleted comes the next one of the index, or the end.
    assigned->Seek(u"="_s, {1, 1});
    assigned->Delete();
    assigned->MoveNext();
    EXPECT_EQ(assigned->text(u"CategoryNumber"_s), u"2"_s);
    assigned->Seek(u"="_s, {9, 1});
    assigned->Delete();
    assigned->MoveNext();
    EXPECT_TRUE(assigned->atEOF());
    assigned->AddNew();
    assigned->setValue(u"ID"_s, 3);
    assigned->setValue(u"CategoryNumber"_s, 1);
    EXPECT_EQ(errorOf([&] { assigned->Update(); }), dao::DuplicateKey);
}

TEST_F(SongCatalogue, ValuesAreTakenAsTheirFieldsAllow)
{
    const auto rows = open(u"Select *, Len(Artist) As n From tblContacts Order By RecordID"_s);
    EXPECT_EQ(errorOf([&] { rows->Update(); }), dao::NoUpdateStarted);
    rows->Edit();
    using Refused = std::tuple<QString, QString, int>;
    for (const auto &[field, value, number] :
         {Refused{u"SongName"_s, u"é"_s.repeated(256), dao::FieldTooSmall},
          {u"TrackNum"_s, u"two"_s, dao::TypeMismatch},
          {u"PurchaseDate"_s, u"2001-02-31"_s, dao::TypeMismatch},
          {u"n"_s, u"1"_s, dao::ReadOnly},
          {u"Nope"_s, u"1"_s, dao::ItemNotFound}})
        EXPECT_EQ(errorOf([&, f = field, v = value] { rows->setValue(f, v); }), number);
    const QString notes = u"line\r\n\t\"quoted\" 'it' 桜 "_s + u"x"_s.repeated(100'000);
    rows->setValue(u"SongName"_s, u"é"_s.repeated(255));
    rows->setValue(u"TrackNum"_s, u"1,234.5"_s);
    rows->setValue(u"PurchaseDate"_s, u"29 Feb 2024"_s);
    rows->setValue(u"DateUpdated"_s, QDateTime(QDate(2024, 2, 29), QTime(1, 2, 3), Qt::UTC));
    rows->setValue(u"Genre"_s, QVariant());
    rows->setValue(u"Rating"_s, u""_s);
    rows->setValue(u"Notes"_s, notes);
    rows->Update();
    store.reopen();
    const auto again = open(u"Select * From tblContacts Where RecordID = 1"_s);
    EXPECT_EQ(again->text(u"SongName"_s), u"é"_s.repeated(255));
    EXPECT_EQ(again->value(u"TrackNum"_s), 1234.5);
    EXPECT_EQ(again->value(u"PurchaseDate"_s), QDateTime(QDate(2024, 2, 29), QTime(0, 0), Qt::UTC));
    EXPECT_EQ(again->value(u"DateUpdated"_s), QDateTime(QDate(2024, 2, 29), QTime(1, 2, 3), Qt::UTC));
    EXPECT_TRUE(again->value(u"Genre"_s).isNull());
    EXPECT_FALSE(again->value(u"Rating"_s).isNull());
    EXPECT_EQ(again->text(u"Notes"_s), notes);
}

TEST_F(SongCatalogue, RowsOfAJoinAreEditedInTheirFirstTable)
{
    const auto rows = open(u"Select * From qryContacts Where CategoryNumber = 1 Order By RecordID"_s);
    set(*rows, u"Artist"_s, u"edited"_s);
    EXPECT_EQ(store.songValue(1, u"Artist"_s), u"edited"_s);
    rows->Delete();
    EXPECT_EQ(keys(u"Select ID From tblCategoryID Where CategoryNumber = 1"_s), u"1|3|9"_s);
    EXPECT_EQ(keys(u"Select Count(*) From tblContacts"_s), u"10"_s);
    const auto grouped =
        open(u"Select Genre, Count(*) As n From tblContacts Group By Genre Order By 2 Desc"_s);
    EXPECT_EQ(errorOf([&] { grouped->Edit(); }), dao::ReadOnly);
    grouped->FindFirst(u"n = 3 And Genre Like 'r*'"_s);
    EXPECT_EQ(grouped->text(u"Genre"_s), u"Rock"_s);
    EXPECT_EQ(grouped->text(u"n"_s), u"3"_s);
}

} // namespace quaverly::test
