// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/ReportCommands.h"
#include "catalogue/DuplicateQueries.h"
#include "catalogue/Options.h"
#include "platform/options/OptionsStore.h"
#include "platform/richtext/RichText.h"
#include "reports/ReportBox.h"
#include "reports/RichTextForms.h"
#include "songlist/SongListFixture.h"
#include "support/Files.h"
#include "support/Limits.h"
#include "support/UserActs.h"

#include <QBuffer>
#include <QDir>
#include <QFile>
#include <QPdfWriter>
#include <QPushButton>
#include <QRegularExpression>
#include <QTest>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextEdit>

using namespace Qt::StringLiterals;

namespace quaverly::test {

class Reports : public SongList
{
protected:
    void SetUp() override
    {
        SongList::SetUp();
        m_options.RptLinesPerPage = u"54"_s;
        ensureDuplicateQueries(store.db());
    }

    RichTextForm &form() { return *m_forms.form(); }
    QTextEdit &box() { return *child<QTextEdit>(form(), u"RichTextBox"_s); }
    QString caption() { return child<QPushButton>(form(), u"cmdLock"_s)->text(); }
    /** The lines of the report, once the question is answered. */
    QStringList lines(void (ReportCommands::*command)())
    {
        desktop.willAnswer(Answer::Yes, u"Proceed?"_s);
        (m_commands.*command)();
        if (!m_forms.form())
            return {u"no report"_s};
        return box().toPlainText().split(u'\n', Qt::SkipEmptyParts);
    }
    QStringList songs() { return lines(&ReportCommands::mnuSongRpt_Click); }
    QByteArray saved(const QString &name) { return bytesOf(store.path(name)); }
    void saveAs(const QString &name)
    {
        desktop.willAnswer(Answer::Yes, u"one-half inch"_s).willSave(store.path(name)).willSee(u" Saved"_s);
        click(form(), u"cmdSave"_s);
    }

    Options &m_options = store.options();
    OptionsStore &m_optionsStore = store.optionsStore();
    ReportState m_state;
    RichTextForms m_forms{desktop, m_options, m_state};
    ReportCommands m_commands{desktop, set, store.catalogue(), m_options, m_optionsStore, m_forms};
    PlayListReportCommands m_playLists{desktop, store.catalogue(), m_forms};
};

TEST_F(Reports, ShowTheSongsOfEveryKindOfList)
{
    const QStringList all = songs();
    EXPECT_EQ(all.size(), 7);
    EXPECT_EQ(all.first(), u" Dancing Queen [by] Abba"_s);
    set.categoryChosen(jazz, u"Jazz"_s);
    const QStringList ofJazz = {u" Dancing Queen [by] Abba"_s, u" Imagine [by] John Lennon"_s};
    EXPECT_EQ(songs(), ofJazz);
    ASSERT_TRUE(set.filterApplied(u"Artist Like \"J*\""_s));
    EXPECT_EQ(songs(), ofJazz.sliced(1));
    set.ShowAllMenu_Click();
    mark(sos);
    set.ShowSelectedOnlyMenu_Click();
    EXPECT_EQ(songs(), QStringList{u" SOS [by] Abba"_s});
    set.categoryChosen(jazz, u"Jazz"_s);
    EXPECT_EQ(songs(), ofJazz);
    set.ShowAllMenu_Click();
    set.HideSelectedMenu_Click();
    EXPECT_EQ(songs().size(), 6);
    set.ShowAllMenu_Click();
    ASSERT_TRUE(set.playListView(list, u"Party"_s));
    EXPECT_EQ(songs(), (QStringList{u" Imagine [by] John Lennon"_s, u" SOS [by] Abba"_s}));
    set.ShowAllMenu_Click();
    store.addRow(u"tblOrphanFileNames"_s, {{u"RecordIdOrphan"_s, queen}});
    set.invalidFileView();
    EXPECT_EQ(songs(), ofJazz.first(1));
    store.addSong(Song(u"SOS"_s, u"Abba"_s).with(u"FileSize"_s, u"1"_s));
    store.addSong(Song(u"SOS"_s, u"Abba"_s).with(u"FileSize"_s, u"1"_s));
    data().setRecordSource(u"qryDuplicateSongs"_s);
    data().Refresh();
    EXPECT_EQ(songs(), (QStringList{u" SOS [by] Abba"_s, u" SOS [by] Abba"_s}));
}

TEST_F(Reports, NothingIsShownOfAnEmptyListOnNoAndOnAFailure)
{
    desktop.willAnswer(Answer::No);
    m_commands.mnuArtistRpt_Click();
    data().setRecordSource(u"Select * from tblContacts Where RecordID < 0"_s);
    data().Refresh();
    m_commands.mnuPathRpt_Click();
    m_playLists.RunPlayListReport(PlayListReportKind::Detail, u" "_s);
    EXPECT_EQ(desktop.calls().size(), 1);
    desktop.willSee(u"Syntax error"_s);
    m_playLists.RunPlayListReport(PlayListReportKind::Detail, u"no \"such\" name"_s);
    EXPECT_EQ(desktop.lastCall().title, u"Error"_s);
    EXPECT_EQ(m_forms.form(), nullptr);
}

TEST_F(Reports, APlayListIsReportedWithItsFiles)
{
    store.db().Execute(
        u"Update tblPlayListDetail Set SongTitle = 'O''Hara', ArtistName = 'X', FileName = '/m/o.mp3'"_s);
    m_playLists.RunPlayListReport(PlayListReportKind::DetailWithFileNames, u"Party"_s);
    const QString row = u" O'Hara [by] X\n      File name: /m/o.mp3\n"_s;
    EXPECT_EQ(box().toPlainText(), u"Party\n\n"_s + row.repeated(3));
    store.addPlayList(u"Empty"_s);
    m_playLists.RunPlayListReport(PlayListReportKind::Detail, u"Empty"_s);
    EXPECT_EQ(box().toPlainText(), QString());
}

TEST_F(Reports, TheNumberOfLinesIsAskedForAndKept)
{
    const auto ask = [this](const QString &answer) {
        desktop.willType(answer);
        m_commands.mnuRptLinesPerPage_Click();
        return m_options.RptLinesPerPage;
    };
    EXPECT_EQ(ask({}), u"54"_s);
    desktop.willType(u"many"_s).willSee(u"Value must be numeric."_s);
    m_commands.mnuRptLinesPerPage_Click();
    EXPECT_EQ(ask(u" 2 "_s), u"2"_s);
    EXPECT_EQ(option(m_optionsStore, keys::RptLinesPerPage), u"2"_s);
    EXPECT_EQ(songs().join(u'\n').count(u'\f'), 3);
    EXPECT_EQ(ask(u"0"_s), u"0"_s);
    EXPECT_FALSE(songs().join(u'\n').contains(u'\f'));
}

TEST_F(Reports, AreLockedUntilTheUserWantsToEdit)
{
    EXPECT_EQ(songs().size(), 7);
    const QString before = box().toPlainText();
    key(&box(), Qt::Key_X);
    EXPECT_EQ(box().toPlainText(), before);
    EXPECT_EQ(caption(), u"Edit"_s);
    click(form(), u"cmdLock"_s);
    QTest::keyClicks(&box(), u"Hello"_s);
    EXPECT_EQ(box().toPlainText(), u"Hello"_s + before);
    click(form(), u"cmdLock"_s);
    QTest::keyClicks(&box(), u"never"_s);
    saveAs(u"touched.txt"_s);
    EXPECT_EQ(desktop.lastCall().text, u"File "_s + store.path(u"touched.txt.rtf"_s) + u" Saved"_s);
    QTextDocument reread;
    EXPECT_TRUE(richtext::readRtf(saved(u"touched.txt.rtf"_s), reread).isWhole);
    EXPECT_EQ(reread.toPlainText(), u"Hello"_s + before);
    // The next report comes in the same window, locked again.
    const QPointer<RichTextForm> first = m_forms.form();
    EXPECT_EQ(songs().join(u'\n') + u'\n', before);
    EXPECT_EQ(m_forms.form(), first);
    EXPECT_TRUE(box().isReadOnly());
}

TEST_F(Reports, SavedPagesAndStylesComeBack)
{
    m_options.RptLinesPerPage = u"1"_s;
    EXPECT_EQ(lines(&ReportCommands::mnuArtistRpt_Click).size(), 19);
    saveAs(u"report.RTF"_s);
    QTextDocument reread;
    EXPECT_TRUE(richtext::readRtf(saved(u"report.RTF"_s), reread).keepsAll);
    EXPECT_EQ(reread.toPlainText(), box().toPlainText());
    const QTextCursor heading = reread.find(u"Simon & Garfunkel"_s);
    EXPECT_EQ(heading.charFormat().foreground().color(), QColor(Qt::blue));
    EXPECT_EQ(heading.charFormat().fontPointSize(), 12);
    EXPECT_GE(heading.charFormat().fontWeight(), QFont::Bold);
    EXPECT_LT(reread.find(u"Dancing"_s).charFormat().fontWeight(), QFont::Bold);
    EXPECT_EQ(reread.find(QString(QChar(u'\f'))).charFormat().foreground().color(), QColor(Qt::white));
}

TEST_F(Reports, WhatCantBeSavedLeavesTheOldFileAlone)
{
    EXPECT_EQ(songs().size(), 7);
    saveAs(u"report.rtf"_s);
    const QByteArray before = saved(u"report.rtf"_s);
    desktop.willAnswer(Answer::Yes).willSave(store.path(u"report.rtf"_s)).willSee(u"report.rtf"_s);
    {
        const FullDisk disk(100);
        click(form(), u"cmdSave"_s);
    }
    desktop.willAnswer(Answer::Yes).willSave(store.path(u"no/such/folder/x"_s)).willSee(u"x.rtf"_s);
    click(form(), u"cmdSave"_s);
    desktop.willAnswer(Answer::Yes).willSave(std::nullopt);
    click(form(), u"cmdSave"_s);
    desktop.willAnswer(Answer::No);
    click(form(), u"cmdSave"_s);
    EXPECT_EQ(saved(u"report.rtf"_s), before);
    EXPECT_EQ(QDir(store.folder()).entryList({u"report*"_s}), QStringList{u"report.rtf"_s});
}

/** A printer whose paper is a file. */
std::shared_ptr<QPdfWriter> pdf(QBuffer &paper)
{
    paper.open(QIODevice::WriteOnly);
    return std::make_shared<QPdfWriter>(&paper);
}

qsizetype pagesOf(const QBuffer &paper)
{
    return paper.data().count("/Type /Page\n");
}

TEST_F(Reports, ArePrintedAndPreviewedPageByPage)
{
    m_options.RptLinesPerPage = u"3"_s;
    EXPECT_EQ(songs().size(), 7);
    QBuffer printed, previewed;
    desktop.willPrintOn(nullptr).willPrintOn(pdf(printed)).willPrintOn(pdf(previewed));
    click(form(), u"cmdPrint"_s);
    click(form(), u"cmdPrint"_s);
    click(form(), u"cmdPreview"_s);
    EXPECT_EQ(desktop.lastCall().title, u"Print Preview"_s);
    EXPECT_EQ(pagesOf(printed), 3);
    EXPECT_EQ(pagesOf(previewed), 3);
    // What was drawn when the user closes the please-wait window is all.
    QBuffer ended;
    desktop.willPrintOn(pdf(ended));
    desktop.atEvents(desktop.eventsRun() + 2, [this] { desktop.closeWorkingForm(); });
    click(form(), u"cmdPrint"_s);
    EXPECT_EQ(pagesOf(ended), 1);
    desktop.willPrintOn(nullptr);
    m_commands.ChangePrinter_Click();
    m_state.ReportKind = u"Stats"_s;
    desktop.willAnswer(Answer::No);
    click(form(), u"cmdSave"_s);
    EXPECT_FALSE(desktop.lastCall().text.contains(u"one-half inch"_s));
    EXPECT_TRUE(desktop.lastCall().text.contains(u"any Word Processor.\n\n\nProceed?"_s));
    click(form(), u"cmdClose"_s);
    EXPECT_EQ(m_state.ReportKind, QString());
}

// Of a long report only its beginning is laid out when it is painted first.
TEST(ReportBox, ShowsAtOnceWhereItsPagesEnd)
{
    ReportBox box;
    box.setPlainText(u"\frow\n"_s.repeated(1000));
    const QImage shown = box.viewport()->grab().toImage();
    int rules = 0;
    for (int y = 0; y < shown.height(); ++y)
        rules += shown.pixelColor(shown.width() - 30, y) == Qt::gray ||
                 shown.pixelColor(shown.width() - 26, y) == Qt::gray;
    EXPECT_GE(rules, 10);
}

} // namespace quaverly::test
