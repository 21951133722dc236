// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/Limits.h"

#include <QFile>

#include <gtest/gtest.h>

#include <csignal>
#include <sys/resource.h>
#include <unistd.h>

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

OrdinaryUser::OrdinaryUser(const QStringList &paths) : m_wasRoot(::getuid() == 0)
{
    if (!m_wasRoot)
        return;
    for (const QString &path : paths)
        EXPECT_EQ(::chown(QFile::encodeName(path).constData(), Nobody, Nobody), 0) << path.toStdString();
    EXPECT_EQ(::setresgid(Nobody, Nobody, 0), 0);
    EXPECT_EQ(::setresuid(Nobody, Nobody, 0), 0);
}

OrdinaryUser::~OrdinaryUser()
{
    if (!m_wasRoot)
        return;
    EXPECT_EQ(::setresuid(0, 0, 0), 0);
    EXPECT_EQ(::setresgid(0, 0, 0), 0);
}

} // namespace quaverly::test
