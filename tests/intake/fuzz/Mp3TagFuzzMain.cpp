// SPDX-License-Identifier: GPL-3.0-or-later
#include "intake/fuzz/Mp3TagFuzz.h"

#include <QTemporaryDir>

#include <cstdio>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const char *data, std::size_t size)
{
    static const QTemporaryDir folder;
    const QString fault =
        quaverly::test::faultOfTag(QByteArrayView(data, static_cast<qsizetype>(size)), folder.path());
    if (fault.isEmpty())
        return 0;
    std::fprintf(stderr, "%s\n", qPrintable(fault));
    std::abort();
}
