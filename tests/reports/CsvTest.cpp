// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/text/Text.h"
#include "reports/CsvCommands.h"
#include "songlist/SongListFixture.h"
#include "support/Files.h"
#include "support/Limits.h"

#include <QFile>

using namespace Qt::StringLiterals;

namespace quaverly::test {

class Csv : public SongList
{
protected:
    QByteArray exported(void (CsvCommands::*command)())
    {
        desktop.willAnswer(Answer::Yes, u"Proceed?"_s).willSave(path).willSee(path);
        (m_commands.*command)();
        return bytesOf(path);
    }

    QString path = store.path(u"Song Out"_s);
    CsvCommands m_commands{desktop, set.Data1(), store.catalogue()};
};

TEST_F(Csv, WritesTheDisplayedSongsInTheirOrder)
{
    data().setRecordSource(u"Select * from tblContacts Where Artist = \"Abba\" Order By SongName Desc"_s);
    data().Refresh();
    data().Recordset().MoveNext();
    const QByteArray file = exported(&CsvCommands::Export_Click);
    const QByteArray head =
        "\"SongName\",\"Artist\",\"Composer\",\"AlbumName\",\"Year\",\"Genre\",\"Duration\",\"Rating\","
        "\"PathName\",\"FileName\",\"Date Record Last Updated\",\"DatePurchased\",\"Date2_Desc\",\"Date2\","
        "\"MiscField1_Desc\",\"MiscField1\",\"MiscField2_Desc\",\"MiscField2\",\"MiscField3_Desc\","
        "\"MiscField3\",\"Code\"";
    const QByteArray later = ",\"AlbumArtist\",\"Disc\",\"DateAdded\"";
    const QByteArray none = ",\"\"";
    EXPECT_EQ(file, head + later + "\r\n\"SOS\",\"Abba\",\"\",\"Abba\"" + none.repeated(20) +
                        "\r\n\"Dancing Queen\",\"Abba\",\"\",\"Arrival\"" + none.repeated(20) + "\r\n");
    EXPECT_EQ(current(), u"Dancing Queen"_s);
    EXPECT_EQ(desktop.lastCall().text, u"The exported records are located in file "_s + path);
    EXPECT_EQ(desktop.lastCall().title, u"Export completed"_s);
    EXPECT_TRUE(
        exported(&CsvCommands::ExportWithNotes_Click).startsWith(head + ",\"Notes\"" + later + "\r\n"));
}

TEST_F(Csv, FieldsHoldNoQuotesAndKeepTheirLines)
{
    const QDateTime date(QDate(2026, 3, 9), QTime(14, 5), Qt::UTC);
    store.addSong(Song(u"  \"Hé\", 夜  "_s, u"=cmd|' /C calc'!A0"_s)
                      .with(u"Notes"_s, u" one\r\ntwo\n "_s)
                      .with(u"PurchaseDate"_s, date)
                      .with(u"Code"_s, u"\t7"_s));
    data().setRecordSource(u"Select * from tblContacts Where Code > \"\""_s);
    data().Refresh();
    const QByteArray day = shortDate(QDateTime(date.date(), QTime(0, 0), Qt::UTC)).toUtf8();
    EXPECT_TRUE(day.contains("2026") && day.contains('9') && !day.contains("14"));
    const QByteArray row = exported(&CsvCommands::ExportWithNotes_Click);
    EXPECT_TRUE(row.endsWith("\"'Hé', 夜\",\"=cmd|' /C calc'!A0\"" + QByteArray(",\"\"").repeated(9) + ",\"" +
                             day + "\"" + QByteArray(",\"\"").repeated(8) +
                             ",\"\t7\",\"one\r\ntwo\n\",\"\",\"\",\"\"\r\n"))
        << row.constData();
}

TEST_F(Csv, WhatCantBeWrittenIsTold)
{
    desktop.willAnswer(Answer::No);
    m_commands.Export_Click();
    desktop.willAnswer(Answer::Yes).willSave(std::nullopt);
    m_commands.Export_Click();
    for (int i = 0; i < 50; ++i)
        store.addSong(Song(QString(200, u'x')));
    data().Refresh();
    desktop.willAnswer(Answer::Yes).willSave(path).willSee(u"isn't whole"_s);
    {
        const FullDisk disk(2000);
        m_commands.Export_Click();
    }
    EXPECT_EQ(bytesOf(path).size(), 2000);
    store.db().Execute(u"Delete from tblContacts Where SongName = 'SOS'"_s);
    desktop.willAnswer(Answer::Yes).willSave(path).willSee(u"Record is deleted."_s);
    m_commands.Export_Click();
    EXPECT_TRUE(desktop.lastCall().text.contains(u"isn't whole"_s));
    for (const QString &own : {store.catalogue().DatabaseFile, store.catalogue().DatabaseFile + u"-wal"_s}) {
        desktop.willAnswer(Answer::Yes).willSave(own).willSee(u"the catalogue itself"_s);
        m_commands.Export_Click();
    }
    store.reopen();
    EXPECT_EQ(store.column(u"Select RecordID from tblContacts"_s).size(), 56);
    desktop.willAnswer(Answer::Yes).willSave(store.folder()).willSee(store.folder());
    data().Refresh();
    m_commands.Export_Click();
    data().setRecordSource(u"Select * from tblContacts Where RecordID < 0"_s);
    data().Refresh();
    m_commands.Export_Click();
    data().Close();
}

} // namespace quaverly::test
