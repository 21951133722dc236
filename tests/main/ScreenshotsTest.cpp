// SPDX-License-Identifier: GPL-3.0-or-later
#include "samples/Corpus.h"
#include "support/QtPrinters.h"

#include <QDir>
#include <QImage>
#include <QProcess>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace quaverly::test {

/** The program itself, from its first start to its end. */
TEST(TheScreens, AreShownWithTheSampleSongs)
{
    const QTemporaryDir dir;
    samples::makeCorpus(dir.filePath(u"Music"_s), 20);
    QProcess program;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (const auto *kind : {"CONFIG_HOME", "DATA_HOME", "STATE_HOME", "CACHE_HOME", "RUNTIME_DIR"}) {
        const QString name = u"XDG_"_s + QString::fromLatin1(kind);
        ASSERT_TRUE(QDir().mkdir(dir.filePath(name)));
        ASSERT_TRUE(QFile::setPermissions(dir.filePath(name),
                                          QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
        environment.insert(name, dir.filePath(name));
    }
    program.setProcessEnvironment(environment);
    program.setProcessChannelMode(QProcess::ForwardedChannels);
    program.start(QStringLiteral(QUAVERLY_PROGRAM),
                  {u"--screenshots"_s, dir.filePath(u"pictures"_s), u"--music"_s, dir.filePath(u"Music"_s)});
    ASSERT_TRUE(program.waitForFinished(120'000));
    EXPECT_EQ(program.exitCode(), 0);
    for (const char16_t *screen : {u"NameList", u"NameEdit", u"PlayForm", u"frmPlayList", u"CriteriaForm",
                                   u"ScanFolderForm", u"frmRenameFiles", u"RichTextForm", u"About"}) {
        const QString name = QString::fromUtf16(screen);
        EXPECT_FALSE(QImage(dir.filePath(u"pictures/%1.png"_s.arg(name))).isNull()) << name.toStdString();
    }
}

} // namespace quaverly::test
