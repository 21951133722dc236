// SPDX-License-Identifier: GPL-3.0-or-later
#include "intake/IntakeFixture.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace quaverly::test {

IntakeTest::IntakeTest()
{
    QDir().mkpath(music());
    m_catalogue.DatabaseFile = m_dir.filePath(u"QVdata.mdb"_s);
    m_engine.CreateEmpty(m_catalogue.DatabaseFile);
    m_catalogue.CatalogueDb = m_engine.OpenDatabase(m_catalogue.DatabaseFile);
    m_mainScreen.window.show();
    restartShell({});
}

IntakeTest::~IntakeTest() = default;

void IntakeTest::restartShell(const shell::ShellTraits &traits)
{
    m_shell = shell::makeShell(traits);
    m_forms = std::make_unique<ScanForms>(m_desktop, m_mainScreen, m_state, *m_shell, &m_mainScreen.window);
    const ScanClock clock{[this] { return m_seconds.size() > 1 ? m_seconds.takeFirst() : m_seconds.first(); },
                          [] {
                              return QDateTime({2026, 11, 22}, {19, 22}, Qt::UTC);
                          }};
    m_loader = std::make_unique<MusicLoader>(
        IntakeParts{m_desktop, m_mainScreen, *m_shell, m_catalogue, m_state, *m_forms, clock,
                    m_dir.filePath(u"state/report.txt"_s), [this] { return m_currentArtist; }});
    m_commands = std::make_unique<AddCommands>(m_desktop, m_mainScreen, m_player, m_state, *m_loader,
                                               [this] { m_forms->showScanDriveForm(*m_loader); });
}

void IntakeTest::write(const QString &name, const QByteArray &bytes) const
{
    QDir().mkpath(QFileInfo(music(name)).path());
    QFile file(music(name));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly)) << name.toStdString();
    ASSERT_EQ(file.write(bytes), bytes.size());
}

QString IntakeTest::scan(const QString &oneFile)
{
    m_desktop.willSee();
    m_loader->LoadMusicFiles(music(), oneFile);
    return m_desktop.lastCall().text;
}

QString IntakeTest::stored(const QString &field)
{
    const auto rows = m_catalogue.CatalogueDb->OpenRecordset(u"Select * from tblContacts Order By RecordID"_s,
                                                             dao::RecordsetType::Snapshot);
    QStringList values;
    for (; !rows->atEOF(); rows->MoveNext())
        values += rows->text(field);
    return values.join(u'|');
}

QVariant IntakeTest::stored(const QString &field, const QString &fileName)
{
    const auto rows = m_catalogue.CatalogueDb->OpenRecordset(u"tblContacts"_s, dao::RecordsetType::Dynaset);
    for (; !rows->atEOF(); rows->MoveNext()) {
        if (rows->text(u"FileName"_s) == fileName)
            return rows->value(field);
    }
    ADD_FAILURE() << fileName.toStdString() << " is not in the catalogue";
    return {};
}

QString IntakeTest::report() const
{
    QFile file(m_dir.filePath(u"state/report.txt"_s));
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

QWidget *IntakeTest::folderForm() const
{
    return m_mainScreen.window.findChild<QWidget *>(u"ScanFolderForm"_s);
}

QWidget *IntakeTest::driveForm() const
{
    return m_mainScreen.window.findChild<QWidget *>(u"ScanDriveForm"_s);
}

} // namespace quaverly::test
