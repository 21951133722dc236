// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStringList>

namespace quaverly::test {

/** As on a full disk: for the length of a scope no file of this process grows beyond that size. */
class FullDisk final
{
public:
    explicit FullDisk(qint64 bytes);
    ~FullDisk();
    FullDisk(const FullDisk &) = delete;
    FullDisk &operator=(const FullDisk &) = delete;

private:
    qint64 m_before = 0;
};

/** For the length of a scope this process has the rights of an ordinary user, who owns @p paths. */
class OrdinaryUser final
{
public:
    explicit OrdinaryUser(const QStringList &paths);
    ~OrdinaryUser();
    OrdinaryUser(const OrdinaryUser &) = delete;
    OrdinaryUser &operator=(const OrdinaryUser &) = delete;

private:
    bool m_wasRoot = false;
};

} // namespace quaverly::test
