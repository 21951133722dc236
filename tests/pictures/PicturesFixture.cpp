// SPDX-License-Identifier: GPL-3.0-or-later
#include "pictures/PicturesFixture.h"

#include "pictures/PictureBox.h"

#include <QDir>

using namespace Qt::StringLiterals;

namespace quaverly::test {

PicturesTest::PicturesTest()
    : m_commands({m_desktop, m_store.catalogue(), m_set, m_options, &m_nameEdit, [this] { ++m_focused; }})
{
    QDir().mkpath(pictures());
    m_nameEdit.show();
    display();
}

PicturesTest::~PicturesTest()
{
    delete m_commands.form();
    m_commands.unloadPics3();
    m_set.Data1().Close();
}

QString PicturesTest::pictures(const QString &name) const
{
    return m_store.path(u"Pictures/"_s) + name;
}

QString PicturesTest::deleted(const QString &name) const
{
    return m_store.path(u"Deleted Pictures/"_s) + name;
}

void PicturesTest::writePicture(const QString &name, const QColor &color) const
{
    writeFile(pictures(name), fileOf(plain(80, 60, color), "JPG"));
}

qint64 PicturesTest::song(const QString &name, const QStringList &files)
{
    Song made(name);
    for (int slot = 1; slot <= files.size(); ++slot)
        made.with(pictureField(slot), files.at(slot - 1));
    const qint64 id = m_store.addSong(made);
    display();
    return id;
}

void PicturesTest::display(const QString &sql)
{
    m_set.Data1().setRecordSource(sql);
    m_set.Data1().Refresh();
}

void PicturesTest::edit(qint64 recordId)
{
    m_recordId = recordId;
    m_texts[u"SongName"_s] = m_store.songValue(recordId, u"SongName"_s).toString();
    for (int slot = 1; slot <= PictureCount; ++slot)
        m_texts[pictureField(slot)] = m_store.songValue(recordId, pictureField(slot)).toString();
}

PictureEditor PicturesTest::editor()
{
    return {.text = [this](const QString &field) { return m_texts.value(field); },
            .setText = [this](const QString &field, const QString &text) { m_texts[field] = text; },
            .setRecordDirty = [this] { m_recordDirty = true; },
            .setPictureChanged = [this] { m_pictureChanged = true; },
            .recordId = m_recordId};
}

PictureForm &PicturesTest::openSlot(int slot)
{
    m_commands.cmdPicture_Click(editor(), slot, &m_nameEdit);
    return form();
}

bool PicturesTest::isShown(const QString &button)
{
    return child<QPushButton>(form(), button)->isVisible();
}

QColor PicturesTest::corner()
{
    const QImage &shown = child<PictureBox>(form(), u"picResized"_s)->picture();
    return shown.isNull() ? QColor() : shown.pixelColor(4, 4);
}

QColor PicturesTest::cornerOf(const QString &path)
{
    const QImage image(path);
    return image.isNull() ? QColor() : image.pixelColor(4, 4);
}

} // namespace quaverly::test
