// SPDX-License-Identifier: GPL-3.0-or-later
#include "samples/Corpus.h"

#include <QCoreApplication>
#include <QStringList>

#include <cstdio>
#include <exception>

using namespace Qt::StringLiterals;

namespace {

constexpr int DefaultCount = 60;

int usage()
{
    std::fputs("usage: quaverly-samples FOLDER [COUNT]\n"
               "Fills FOLDER with COUNT small silent songs (60 if left out), to try the catalogue on.\n",
               stderr);
    return 2;
}

} // namespace

int main(int argc, char **argv)
{
    const QCoreApplication app(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() < 2 || arguments.size() > 3 || arguments[1].startsWith(u'-'))
        return usage();
    bool isNumber = true;
    const int count = arguments.size() == 3 ? arguments[2].toInt(&isNumber) : DefaultCount;
    if (!isNumber || count < 1)
        return usage();
    try {
        samples::makeCorpus(arguments[1], count);
    } catch (const std::exception &e) {
        std::fprintf(stderr, "quaverly-samples: %s\n", e.what());
        return 1;
    }
    std::printf("%d songs in %s\n", count, qUtf8Printable(arguments[1]));
    return 0;
}
