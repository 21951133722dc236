// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/MusicFolder.h"
#include "intake/IntakeFixture.h"
#include "support/UserActs.h"

#include <QAbstractItemView>
#include <QDir>

using namespace Qt::StringLiterals;
using namespace tagbytes;

namespace quaverly::test {

TEST_F(IntakeTest, NothingIsAddedWhileThePlayerRuns)
{
    m_player.PlayerOpen = true;
    for (const auto command : {&AddCommands::AddMusicFolder_Click, &AddCommands::AddOneMusicFile_Click,
                               &AddCommands::ScanFiles_Click}) {
        m_desktop.willSee(u"Cannot Add records while playing songs. End the Player first."_s);
        ((*m_commands).*command)();
    }
}

TEST_F(IntakeTest, AFolderOrAFileIsAskedForAndAdded)
{
    writeAll({u"all/a.mp3", u"one.mp3"}, mp3File());
    m_desktop.willBrowse({});
    m_commands->AddMusicFolder_Click();
    EXPECT_EQ(m_desktop.lastCall().startFolder, musicFolder());
    EXPECT_EQ(m_mainScreen.pics3Unloads, 1);
    EXPECT_EQ(m_mainScreen.gridFocuses, 0);

    m_mainScreen.screens = 2;
    m_state.CancelScan = true;
    m_desktop.willBrowse(music(u"all/"_s)).willSee(u"added to database: 1"_s);
    m_commands->AddMusicFolder_Click();
    EXPECT_EQ(m_mainScreen.playFormUnloads, 1);
    EXPECT_TRUE(m_player.RestartingFolderPlayer);
    EXPECT_EQ(m_mainScreen.gridFocuses, 1);
    EXPECT_EQ(m_state.LastMusicFolder, music(u"all/"_s));

    m_desktop.willOpen(std::nullopt);
    m_commands->AddOneMusicFile_Click();
    EXPECT_EQ(m_desktop.lastCall().startFolder, music(u"all/"_s));
    m_desktop.willOpen(music(u"gone.mp3"_s)).willSee(u"Rename this file on your computer first."_s);
    m_commands->AddOneMusicFile_Click();
    m_desktop.willOpen(music(u"one.mp3"_s)).willSee(u"added to database: 1"_s);
    m_commands->AddOneMusicFile_Click();
    EXPECT_EQ(stored(u"FileName"_s), u"a.mp3|one.mp3"_s);
}

namespace {

/** The platform's shell, with the music folder as its only drive. */
class OneDriveShell final : public shell::Shell
{
public:
    explicit OneDriveShell(QString mountPoint) : m_mountPoint(std::move(mountPoint)) {}
    [[nodiscard]] std::unique_ptr<shell::Folder> NameSpace(const QString &folder) override
    {
        return m_real->NameSpace(folder);
    }
    [[nodiscard]] std::vector<shell::Entry> search(const QString &folder, QStringList *refused) override
    {
        return m_real->search(folder, refused);
    }
    void keepListings(bool keep) override { m_real->keepListings(keep); }
    [[nodiscard]] std::optional<shell::FolderIdentity> identity(const QString &folder) override
    {
        return m_real->identity(folder);
    }
    [[nodiscard]] std::vector<shell::Drive> drives() override
    {
        return {{{}, u"root"_s, 1}, {m_mountPoint, u"STICK"_s, 1}};
    }
    [[nodiscard]] int versionMajor() const override { return 6; }
    [[nodiscard]] double version() const override { return 6.2; }
    [[nodiscard]] bool hideFileExt() const override { return false; }

private:
    std::unique_ptr<shell::Shell> m_real = shell::makeShell();
    QString m_mountPoint;
};

class ScanDriveTest : public IntakeTest
{
protected:
    ScanDriveTest()
    {
        for (int i = 0; i < 30; ++i)
            write(u"%1/%1.ogg"_s.arg(i), oggFile());
        useShell(std::make_unique<OneDriveShell>(music().chopped(1)));
    }

    void choose(const QString &drive)
    {
        auto *cmbDrive = child<QComboBox>(*driveForm(), u"cmbDrive"_s);
        cmbDrive->hidePopup();
        cmbDrive->setCurrentText(drive);
    }
    [[nodiscard]] QString text(const QString &label) const
    {
        return child<QLabel>(*driveForm(), label)->text();
    }
    [[nodiscard]] QPushButton *button(const QString &name) const
    {
        return child<QPushButton>(*driveForm(), name);
    }
};

} // namespace

TEST_F(ScanDriveTest, ScansTheDriveAndCloses)
{
    m_mainScreen.screens = 3;
    m_commands->ScanFiles_Click();
    const auto *cmbDrive = child<QComboBox>(*driveForm(), u"cmbDrive"_s);
    EXPECT_TRUE(QTest::qWaitFor([&] { return cmbDrive->view()->isVisible(); })) << "the list opens by itself";
    EXPECT_FALSE(button(u"cmdLoad"_s)->isEnabled());
    key(cmbDrive->view(), Qt::Key_Down);
    key(cmbDrive->view(), Qt::Key_Return);
    EXPECT_EQ(text(u"lblDriveChosen"_s), music().chopped(1) + u" drive selected"_s);
    EXPECT_EQ(m_desktop.eventsRun(), 0) << "Enter only chooses";
    choose(u"/"_s);
    choose(music().chopped(1));
    EXPECT_EQ(text(u"lblDriveChosen"_s), music().chopped(1) + u" drive selected"_s);
    m_desktop.atEvents(8, [&] {
        EXPECT_EQ(text(u"lblWarning"_s), u"Scanning in progress...\nPlease wait..."_s);
        EXPECT_FALSE(button(u"cmdLoad"_s)->isEnabled());
        EXPECT_FALSE(m_mainScreen.window.isEnabled());
        m_desktop.willSee(
            u"You must press the Cancel button to cancel the scan before closing this window"_s);
        driveForm()->close();
        EXPECT_TRUE(driveForm()->isVisible());
        m_desktop.willSee(u"added to database: 30\r"_s).meanwhile([&] {
            EXPECT_EQ(button(u"cmdExit"_s)->text(), u"Exit"_s);
            EXPECT_TRUE(driveForm()->isVisible());
        });
    });
    click(button(u"cmdLoad"_s));
    EXPECT_EQ(m_mainScreen.playFormUnloads, 1);
    EXPECT_FALSE(driveForm()->isVisible());
    EXPECT_TRUE(m_mainScreen.window.isEnabled());

    m_commands->ScanFiles_Click();
    EXPECT_EQ(text(u"lblDriveChosen"_s), u"No drive selected"_s) << "as it was at first";
    choose(u"/"_s);
    click(button(u"cmdExit"_s));
    EXPECT_FALSE(driveForm()->isVisible());
    EXPECT_EQ(m_mainScreen.showAlls, 2);
}

TEST_F(ScanDriveTest, CancelEndsTheScan)
{
    m_commands->ScanFiles_Click();
    choose(music().chopped(1));
    for (int i = 10; i < 300; ++i) {
        m_desktop.atEvents(i, [&] {
            if (text(u"lblRecsAdded"_s).toInt() >= 10 && driveForm()->isVisible()) {
                EXPECT_EQ(button(u"cmdExit"_s)->text(), u"Cancel"_s);
                click(button(u"cmdExit"_s));
            }
        });
    }
    click(button(u"cmdLoad"_s));
    EXPECT_FALSE(driveForm()->isVisible());
    EXPECT_TRUE(m_mainScreen.window.isEnabled());
    EXPECT_FALSE(m_state.CancelScan);
    EXPECT_TRUE(m_desktop.calls().isEmpty()) << "no statistics";
    EXPECT_LT(stored(u"FileName"_s).split(u'|').size(), 30);
}

} // namespace quaverly::test
