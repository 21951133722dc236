// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/CatalogueSchema.h"
#include "catalogue/DuplicateQueries.h"
#include "store/fuzz/SqlFuzz.h"

#include <QTemporaryDir>

#include <cstdio>
#include <cstdlib>

namespace {

/** An empty catalogue for the length of the run. */
struct Names
{
    Names()
    {
        const QString path = folder.filePath(QStringLiteral("names.mdb"));
        engine.CreateEmpty(path);
        database = engine.OpenDatabase(path);
        quaverly::ensureDuplicateQueries(*database);
    }
    QTemporaryDir folder;
    dao::DBEngine engine{quaverly::catalogueSchema()};
    std::unique_ptr<dao::Database> database;
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const char *data, std::size_t size)
{
    static Names names;
    const QString fault = quaverly::test::faultOfTranslating(
        QByteArrayView(data, static_cast<qsizetype>(size)), names.database->impl());
    if (fault.isEmpty())
        return 0;
    std::fprintf(stderr, "%s\n", qPrintable(fault));
    std::abort();
}
