// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/Death.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <csignal>
#include <sys/ptrace.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

namespace quaverly::test {

namespace {

constexpr std::array ChangesOfTheDisk = {
    SYS_write,  SYS_pwrite64, SYS_fsync,     SYS_fdatasync, SYS_ftruncate, SYS_copy_file_range, SYS_fchmod,
    SYS_unlink, SYS_symlink,  SYS_utimensat, SYS_rename,    SYS_renameat2, SYS_mkdir,           SYS_rmdir};

} // namespace

bool diesAt(int nth, const std::function<void()> &prepare, const std::function<void()> &act)
{
    const pid_t child = ::fork();
    if (child == 0) {
        prepare();
        ::ptrace(PTRACE_TRACEME, 0, nullptr, nullptr);
        ::raise(SIGSTOP);
        act();
        ::_exit(0);
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    ::ptrace(PTRACE_SETOPTIONS, child, nullptr, PTRACE_O_TRACESYSGOOD);
    for (int left = nth; WIFSTOPPED(status);) {
        __ptrace_syscall_info info = {};
        ::ptrace(PTRACE_GET_SYSCALL_INFO, child, sizeof info, &info);
        if (info.op == PTRACE_SYSCALL_INFO_ENTRY &&
            std::ranges::count(ChangesOfTheDisk, static_cast<int>(info.entry.nr)) > 0 && --left == 0)
            ::kill(child, SIGKILL);
        ::ptrace(PTRACE_SYSCALL, child, nullptr, nullptr);
        ::waitpid(child, &status, 0);
    }
    EXPECT_TRUE(WIFSIGNALED(status) || WEXITSTATUS(status) == 0);
    return WIFSIGNALED(status);
}

} // namespace quaverly::test
