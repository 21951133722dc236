// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/Limits.h"

#include <QDirIterator>

#include <gtest/gtest.h>

#include <csignal>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace quaverly::test {

namespace {

constexpr uid_t Nobody = 65534;

rlimit fileLimit()
{
    rlimit limit = {};
    EXPECT_EQ(::getrlimit(RLIMIT_FSIZE, &limit), 0);
    return limit;
}

void setFileLimit(rlim_t bytes)
{
    rlimit limit = fileLimit();
    limit.rlim_cur = bytes;
    EXPECT_EQ(::setrlimit(RLIMIT_FSIZE, &limit), 0);
}

void giveToNobody(const QString &home)
{
    const auto give = [](const QString &path) {
        EXPECT_EQ(::lchown(QFile::encodeName(path).constData(), Nobody, Nobody), 0) << path.toStdString();
    };
    give(home);
    QDirIterator all(home, QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot,
                     QDirIterator::Subdirectories);
    while (all.hasNext())
        give(all.next());
}

} // namespace

FullDisk::FullDisk(qint64 bytes) : m_before(static_cast<qint64>(fileLimit().rlim_cur))
{
    std::signal(SIGXFSZ, SIG_IGN);
    setFileLimit(static_cast<rlim_t>(bytes));
}

FullDisk::~FullDisk()
{
    setFileLimit(static_cast<rlim_t>(m_before));
}

LockedFolder::LockedFolder(QString path, const QString &home, QFile::Permissions rights)
    : m_wasRoot(::geteuid() == 0), m_path(std::move(path)), m_before(QFile::permissions(m_path))
{
    if (m_wasRoot) {
        giveToNobody(home);
        EXPECT_EQ(::setresgid(Nobody, Nobody, 0), 0);
        EXPECT_EQ(::setresuid(Nobody, Nobody, 0), 0);
    }
    EXPECT_TRUE(QFile::setPermissions(m_path, rights)) << m_path.toStdString();
}

LockedFolder::~LockedFolder()
{
    // What was locked may have gone meanwhile.
    QFile::setPermissions(m_path, m_before);
    if (!m_wasRoot)
        return;
    EXPECT_EQ(::setresuid(0, 0, 0), 0);
    EXPECT_EQ(::setresgid(0, 0, 0), 0);
}

QString folderOnAnotherFileSystem()
{
    struct stat usual = {};
    struct stat other = {};
    const bool two = ::stat(QFile::encodeName(QDir::tempPath()).constData(), &usual) == 0 &&
                     ::stat("/dev/shm", &other) == 0 && usual.st_dev != other.st_dev &&
                     ::access("/dev/shm", W_OK) == 0;
    return two ? u"/dev/shm/quaverly-XXXXXX"_s : QString();
}

} // namespace quaverly::test
