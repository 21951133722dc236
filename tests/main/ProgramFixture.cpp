// SPDX-License-Identifier: GPL-3.0-or-later
#include "main/ProgramFixture.h"

#include "catalogue/CatalogueSchema.h"

#include <QDir>
#include <QPlainTextEdit>

using namespace Qt::StringLiterals;

namespace quaverly::test {

ProgramTest::ProgramTest()
{
    dao::DBEngine(catalogueSchema()).CreateEmpty(path());
    QDir(m_dir.path()).mkpath(u"music/Abba/Arrival"_s);
    QDir(m_dir.path()).mkpath(u"music/Björk"_s);
}

ProgramTest::~ProgramTest()
{
    close();
}

void ProgramTest::addFile(const QString &name, const QString &title, const QString &artist)
{
    samples::SongTags tags;
    tags.title = title;
    tags.artist = artist;
    tags.album = u"Arrival"_s;
    tags.year = 1976;
    tags.track = 2;
    m_maker.makeSong(music() + name, tags);
}

void ProgramTest::addSong(const QMap<QString, QVariant> &values)
{
    dao::DBEngine engine(catalogueSchema());
    const auto database = engine.OpenDatabase(path());
    const auto rows = database->OpenRecordset(u"tblContacts"_s);
    rows->AddNew();
    for (auto it = values.begin(); it != values.end(); ++it)
        rows->setValue(it.key(), it.value());
    rows->Update();
}

void ProgramTest::addSongs(int count)
{
    for (int i = 0; i < count; ++i) {
        addSong({{u"SongName"_s, u"Song %1"_s.arg(i, 2, 10, QChar(u'0'))},
                 {u"Artist"_s, i % 2 == 0 ? u"Abba"_s : u"Blur"_s},
                 {u"PathName"_s, u"/music/"_s},
                 {u"FileName"_s, u"%1.mp3"_s.arg(i)}});
    }
}

QVariant ProgramTest::valueOf(const QString &sql)
{
    dao::DBEngine engine(catalogueSchema());
    const auto database = engine.OpenDatabase(path());
    const auto rows = database->OpenRecordset(sql, dao::RecordsetType::Snapshot);
    return rows->isEmpty() ? QVariant() : rows->value(rows->Fields().front().name);
}

void ProgramTest::start(bool empty)
{
    if (empty)
        m_desktop.willSee(u"Add songs automatically by choosing one of the options on the File menu."_s);
    m_instance = std::make_unique<SingleInstance>(m_dir.path());
    m_store.SaveSetting(u"Options"_s, u"Database Location"_s, m_dir.path() + u'/');
    m_program = std::make_unique<Program>(
        m_desktop, m_store, *m_instance, m_arguments, [this] { ++m_quits; },
        media::MediaOptions{u"null"_s, {}, true, {}});
    ASSERT_TRUE(m_program->start());
    ASSERT_TRUE(QTest::qWaitFor([this] { return m_desktop.answersLeft() == 0 && grid().hasFocus(); }));
    settle();
}

void ProgramTest::close()
{
    if (m_program && m_program->mainScreen() != nullptr)
        m_program->mainScreen()->close();
    m_program.reset();
    m_instance.reset();
}

void ProgramTest::settle()
{
    QCoreApplication::sendPostedEvents();
    QCoreApplication::processEvents();
}

QString ProgramTest::cell(int row, int column)
{
    return grid().model()->index(row, column).data().toString();
}

QStringList ProgramTest::column(int column)
{
    QStringList texts;
    for (int row = 0; row < grid().model()->rowCount(); ++row)
        texts.append(cell(row, column));
    return texts;
}

void ProgramTest::clickCell(int row, int column)
{
    const QRect place = grid().visualRect(grid().model()->index(row, column));
    QTest::mouseClick(grid().viewport(), Qt::LeftButton, {}, place.center());
    settle();
}

QString ProgramTest::description()
{
    return child<QPlainTextEdit>(screen(), u"txtName"_s)->toPlainText();
}

void ProgramTest::addFolder()
{
    m_desktop.willBrowse(music()).willSee(u"Number of songs added to database: "_s);
    chooseMenu(screen(), u"AddMusicFolder"_s);
}

} // namespace quaverly::test
