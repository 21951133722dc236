// SPDX-License-Identifier: GPL-3.0-or-later
#include "intake/SongReader.h"

#include "intake/M4aAtoms.h"
#include "intake/MusicItem.h"
#include "intake/NewSong.h"
#include "intake/ScanReport.h"
#include "intake/ShellColumns.h"
#include "intake/VorbisComment.h"
#include "platform/shell/MusicKinds.h"
#include "platform/shell/Shell.h"

#include <QFile>

using namespace Qt::StringLiterals;

namespace quaverly {

namespace {

constexpr int InputPastEnd = 62;

void openForReading(QFile &file)
{
    if (!file.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
        throw dao::DaoError(dao::PathFileAccess, file.errorString());
}

} // namespace

void SongReader::read(const shell::Item &item, const MusicItem &music, const QString &folder,
                      NewSong &song) const
{
    song.clear();
    song.write(u"PathName"_s, folder);
    song.write(u"FileName"_s, music.FileName);
    song.write(u"FileType"_s, music.fileType());
    m_report.attempt([&] { fillSize(item, song); });
    fillTags(item, music, folder + music.FileName, song);
    completeBitRate(song);
}

void SongReader::fillTags(const shell::Item &item, const MusicItem &music, const QString &fullPath,
                          NewSong &song) const
{
    if (music.Extension == ".flac"_L1 || music.Extension == ".ogg"_L1) {
        QFile file(fullPath);
        QByteArray head;
        m_report.attempt([&] {
            openForReading(file);
            head = file.read(VorbisHeadBytes);
            if (head.isEmpty())
                throw dao::DaoError(InputPastEnd, u"The file is empty"_s);
        });
        fillFromVorbisComments(head, song, m_report);
        completeFromShellColumns(item, m_versionMajor, song, m_report);
    } else if (m_versionMajor <= shell::LastVersionWithOldColumns && music.fileType() == "M4A"_L1) {
        QFile file(fullPath);
        m_report.attempt([&] { openForReading(file); });
        fillFromM4aAtoms(file, song, m_report);
        completeFromShellColumns(item, m_versionMajor, song, m_report);
    } else {
        fillFromShellColumns(item, m_versionMajor, song, m_report);
        if (const QString failure = item.readFailure(); !failure.isEmpty())
            m_report.note(failure);
    }
}

} // namespace quaverly
