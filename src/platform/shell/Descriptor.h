// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtGlobal>

#include <unistd.h>

namespace shell {

/** Owns an open file's descriptor; a negative one stands for no file. */
class Descriptor final
{
public:
    explicit Descriptor(int fd) : m_fd(fd) {}
    ~Descriptor()
    {
        if (m_fd >= 0)
            ::close(m_fd);
    }
    Q_DISABLE_COPY_MOVE(Descriptor)
    [[nodiscard]] int get() const { return m_fd; }

private:
    int m_fd;
};

} // namespace shell
