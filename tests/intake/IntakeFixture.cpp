// SPDX-License-Identifier: GPL-3.0-or-later
#include "intake/IntakeFixture.h"

#include "songlist/ListTexts.h"
#include "support/Files.h"

using namespace Qt::StringLiterals;

namespace quaverly::test {

IntakeTest::IntakeTest()
{
    QDir().mkpath(music());
    m_mainScreen.window.show();
    useShell(shell::makeShell());
}

IntakeTest::~IntakeTest() = default;

void IntakeTest::useShell(std::unique_ptr<shell::Shell> shell)
{
    m_shell = std::move(shell);
    m_forms = std::make_unique<ScanForms>(m_desktop, m_mainScreen, m_state, *m_shell, &m_mainScreen.window);
    const ScanClock clock{[this] { return m_seconds.size() > 1 ? m_seconds.takeFirst() : m_seconds.first(); },
                          [] {
                              return QDateTime({2026, 11, 22}, {19, 22}, Qt::UTC);
                          }};
    m_loader = std::make_unique<MusicLoader>(IntakeParts{
        .services = m_store.services(m_desktop),
        .mainScreen = m_mainScreen,
        .shell = *m_shell,
        .state = m_state,
        .screens = *m_forms,
        .clock = clock,
        .reportPlaces = {m_store.path(u"state/report.txt"_s), m_store.path(u"other/report.txt"_s)}});
    m_commands = std::make_unique<AddCommands>(m_desktop, m_mainScreen, m_player, m_state, *m_loader,
                                               [this] { m_forms->showScanDriveForm(*m_loader); });
}

void IntakeTest::write(const QString &name, const QByteArray &bytes) const
{
    writeFile(music(name), bytes);
}

void IntakeTest::writeAll(std::initializer_list<const char16_t *> names, const QByteArray &bytes) const
{
    for (const char16_t *name : names)
        write(QString::fromUtf16(name), bytes);
}

QString IntakeTest::scan()
{
    m_desktop.willSee();
    m_loader->LoadMusicFiles(music(), {});
    return m_desktop.lastCall().text;
}

QString IntakeTest::stored(const QString &field)
{
    return m_store.column(u"Select %1 from tblContacts Order By RecordID"_s.arg(field)).join(u'|');
}

QVariant IntakeTest::stored(const QString &field, const QString &fileName)
{
    const QString where = u" from tblContacts Where FileName = "_s + quoted(fileName);
    EXPECT_EQ(m_store.valueOf(u"Select Count(*)"_s + where).toInt(), 1) << fileName.toStdString();
    return m_store.valueOf(u"Select "_s + field + where);
}

QString IntakeTest::report() const
{
    const QString file = m_store.path(u"state/report.txt"_s);
    return QFile::exists(file) ? QString::fromUtf8(bytesOf(file)) : QString();
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
