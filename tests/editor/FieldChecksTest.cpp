// SPDX-License-Identifier: GPL-3.0-or-later
#include "editor/FieldChecks.h"

#include "catalogue/Options.h"
#include "support/QtPrinters.h"

using namespace Qt::StringLiterals;
using namespace quaverly;

namespace {

using Ask = Verdict::Ask;

EditedRow stored(bool fileExists = true)
{
    return {.EditMode = true,
            .texts = {{u"FileName"_s, u"a.mp3"_s}, {u"PathName"_s, u"/m/"_s}, {u"Duration"_s, u"5:00"_s}},
            .fileExists = fileExists};
}

TEST(TheDurationCheck, KnowsTheForm)
{
    const auto title = [](const QString &text) { return checkDuration(text, stored()).title; };
    for (const QString &fine : {u""_s, u"  "_s, u"5:00"_s, u"00:03:47"_s, u"00:99:59"_s})
        EXPECT_EQ(checkDuration(fine, stored()).ask, Ask::Nothing) << fine.toStdString();
    for (const QString &form :
         {u"3:47"_s, u"00-03-47"_s, u"aa:03:47"_s, u"00:bb:47"_s, u"00:03:cc"_s, u"0"_s})
        EXPECT_EQ(title(form), u"Error - Invalid Duration Format"_s) << form.toStdString();
    const Verdict seconds = checkDuration(u"00:03:60"_s, stored());
    EXPECT_EQ(seconds.title, u"Error - Invalid Duration"_s);
    EXPECT_EQ(seconds.text, u"There cannot be more than 59 seconds in the two right-most numbers of a song "
                            "duration.  Therefore, \"00:03:60\" is not a valid duration.  An example of the "
                            "correct format is 00:03:47"_s);
    EXPECT_EQ(seconds.ask, Ask::OkCancel);
    EXPECT_TRUE(seconds.stays);
    EXPECT_EQ(seconds.reverted, u"5:00"_s);
}

TEST(TheOtherChecks, TellNumbersAndDatesFromText)
{
    for (const QString &fine : {u""_s, u" "_s, u"128"_s, u"84.5"_s})
        EXPECT_EQ(checkBPM(fine).ask, Ask::Nothing) << fine.toStdString();
    EXPECT_EQ(checkBPM(u"fast"_s).text, u"Beats per minute must be a number"_s);
    for (const QString &fine : {u""_s, u"2020-02-29"_s, u"3/4/2020"_s})
        EXPECT_EQ(checkDate(fine).ask, Ask::Nothing) << fine.toStdString();
    for (const QString &bad : {u"31/02"_s, u"0000"_s, u"n/a"_s, u" "_s, u"2021-02-29"_s})
        EXPECT_TRUE(checkDate(bad).stays) << bad.toStdString();
}

TEST(TheFileNameCheck, RefusesWhatNoFileMayBear)
{
    for (const QChar c : u"*\\/:?|<>\""_s) {
        const Verdict refused = checkFileName(u"a"_s + c + u".mp3"_s, u"/m/"_s, stored());
        EXPECT_EQ(refused.title, u"Error - Invalid File Name"_s) << c.toLatin1();
        EXPECT_FALSE(refused.stays);
        EXPECT_EQ(refused.reverted, u"a.mp3"_s);
    }
    EditedRow odd = stored();
    odd.texts[u"FileName"_s] = u"what?.mp3"_s;
    EXPECT_EQ(checkFileName(u"what?.mp3"_s, u"/m/"_s, odd).ask, Ask::Nothing);
    odd.EditMode = false;
    EXPECT_EQ(checkFileName(u"what?.mp3"_s, u"/m/"_s, odd).reverted, QString());
    EXPECT_EQ(checkFileName(u"  "_s, u"/m/"_s, stored()).accepted, QString());
    EXPECT_EQ(checkFileName(u"b.mp3 "_s, u"/m/"_s, stored()).accepted, u"b.mp3"_s);
}

TEST(TheFileNameCheck, WarnsOnlyWhenAFileWouldBeRenamed)
{
    const auto asks = [](const QString &name, const QString &path, const EditedRow &row) {
        return checkFileName(name, path, row).ask == Ask::Warning;
    };
    EXPECT_TRUE(asks(u"b.mp3"_s, u"/m/"_s, stored()));
    EXPECT_FALSE(asks(u"a.mp3"_s, u"/m/"_s, stored()));
    EXPECT_FALSE(asks(u"b.mp3"_s, u" "_s, stored()));
    EXPECT_FALSE(asks(u"b.mp3"_s, u"/m/"_s, stored(false)));
    EditedRow row = stored();
    row.FileRenameDisabled = true;
    EXPECT_FALSE(asks(u"b.mp3"_s, u"/m/"_s, row));
    row = stored();
    row.EditMode = false;
    EXPECT_FALSE(asks(u"b.mp3"_s, u"/m/"_s, row));
    const Verdict warning = checkFileName(u"b.mp3"_s, u"/m/"_s, stored());
    EXPECT_EQ(QString::fromUtf16(warning.key), QString::fromUtf16(keys::FileNameWarning));
    EXPECT_TRUE(warning.text.endsWith(u"\nYou can change this behavior in the Options menu."_s));
}

TEST(ThePathCheck, CompletesAndWarns)
{
    const FolderFacts there{true, true};
    const FolderFacts gone{};
    EXPECT_EQ(checkPathName(u"/n"_s, u"a.mp3"_s, stored(), there).accepted, u"/n/"_s);
    EXPECT_EQ(checkPathName(u"/n"_s, u"a.mp3"_s, stored(), there).ask, Ask::Warning);
    EXPECT_EQ(checkPathName(u"/n//./o"_s, u"a.mp3"_s, stored(), there).accepted, u"/n/o/"_s);
    EXPECT_TRUE(checkPathName(u"n/"_s, u"a.mp3"_s, stored(), there).text.contains(u"is not complete"_s));
    EXPECT_EQ(checkPathName(u" /n "_s, u"a.mp3"_s, stored(false), {false, true}).accepted, u"/n/"_s);
    EXPECT_EQ(checkPathName(u"/m/"_s, u"a.mp3"_s, stored(), gone).ask, Ask::Nothing);
    const Verdict missing = checkPathName(u"/nowhere"_s, u"a.mp3"_s, stored(), gone);
    EXPECT_EQ(missing.text, u"Invalid Path name. Folder \"/nowhere\" does not exist."_s);
    EXPECT_FALSE(missing.stays);
    EXPECT_EQ(checkPathName(u"/n/"_s, {}, stored(), there).ask, Ask::Nothing);
    EXPECT_TRUE(checkPathName(u'/' + QString(254, u'x'), u"a.mp3"_s, stored(), there).stays);
    EXPECT_EQ(checkPickedFolder(u"/n/"_s, stored(false)).ask, Ask::Warning);
    EXPECT_EQ(checkPickedFolder(u"/m/"_s, stored()).ask, Ask::Nothing);
}

TEST(TheSmallRules, HoldForTheirTables)
{
    EXPECT_EQ(renamedFile(u"New"_s, u"a.mp3"_s), u"New.mp3"_s);
    EXPECT_EQ(renamedFile(u"New.mp3"_s, u"a.mp3"_s), u"New.mp3"_s);
    EXPECT_EQ(renamedFile(u"New"_s, u"a.FLAC"_s), u"New.flac"_s);
    EXPECT_EQ(renamedFile(u"New"_s, u"noending"_s), u"New"_s);
    EXPECT_EQ(trackNumber(u"07/12"_s), 7);
    EXPECT_EQ(trackNumber(u" 12 "_s), 12);
    EXPECT_EQ(trackNumber(u"A1"_s), std::nullopt);
    EXPECT_EQ(trackNumber({}), std::nullopt);
}

} // namespace
