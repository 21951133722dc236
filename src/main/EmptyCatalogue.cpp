// SPDX-License-Identifier: GPL-3.0-or-later
// Makes the empty catalogue that the program ships beside itself.
#include "catalogue/CatalogueSchema.h"
#include "platform/store/Dao.h"

#include <QFile>

#include <cstdio>

int main(int argc, char **argv)
{
    if (argc != 2) {
        std::fputs("Usage: quaverly-empty-catalogue OUTFILE\n", stderr);
        return 2;
    }
    try {
        const QString path = QFile::decodeName(argv[1]);
        QFile::remove(path);
        dao::DBEngine(quaverly::catalogueSchema()).CreateEmpty(path);
    } catch (const dao::DaoError &error) {
        std::fprintf(stderr, "%s\n", qPrintable(error.description));
        return 1;
    }
    return 0;
}
