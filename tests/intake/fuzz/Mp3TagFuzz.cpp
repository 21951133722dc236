// SPDX-License-Identifier: GPL-3.0-or-later
#include "intake/fuzz/Mp3TagFuzz.h"

#include "intake/cMP3ID3v2.h"

#include <QFile>

using namespace Qt::StringLiterals;

namespace quaverly::test {

QString faultOfTag(QByteArrayView content, const QString &folder)
{
    QFile file(folder + u"/song.mp3"_s);
    // A file that is written over goes to the disk at once on some file systems.
    file.remove();
    if (!file.open(QIODevice::WriteOnly | QIODevice::Unbuffered) ||
        file.write(content.data(), content.size()) != content.size())
        return file.errorString();
    file.close();
    cMP3ID3v2 tag;
    try {
        tag.setMP3File(file.fileName());
    } catch (const dao::DaoError &) {
        // A size below 0; what was read before it stays.
    }
    qsizetype characters = 0;
    for (qint32 place = 1; place <= tag.FrameCount(); ++place) {
        const QString id = tag.Frame(place);
        const qint32 count = tag.TagsInFrame(id);
        for (qint32 number = 1; number <= count; ++number)
            characters += tag.Tag(id, number).size();
    }
    return characters > content.size() ? u"more text than the file has"_s : QString();
}

} // namespace quaverly::test
