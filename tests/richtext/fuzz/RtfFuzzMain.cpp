// SPDX-License-Identifier: GPL-3.0-or-later
#include "richtext/fuzz/RtfFuzz.h"

#include <QGuiApplication>

#include <cstdio>
#include <cstdlib>

extern "C" int LLVMFuzzerInitialize(int *argc, char ***argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    static const QGuiApplication app(*argc, *argv);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const char *data, std::size_t size)
{
    const QString fault = richtext::test::faultOfReading(QByteArrayView(data, static_cast<qsizetype>(size)));
    if (fault.isEmpty())
        return 0;
    std::fprintf(stderr, "%s\n", qPrintable(fault));
    std::abort();
}
