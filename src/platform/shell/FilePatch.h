// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>

#include <optional>
#include <vector>

namespace shell {

class SourceFile;

/** How one version of a file is made from another: runs of that one's bytes, and bytes of the patch's own. */
struct FilePatch
{
    struct Piece
    {
        /** Where the run begins in the other version; -1 for own bytes. */
        qint64 from = -1;
        qint64 length = 0;
        QByteArray own = {};
    };

    /** Of the version that it makes. */
    qint64 size = 0;
    std::vector<Piece> pieces;
    /** See wholeHash(); empty until it is known. */
    QByteArray hashBefore = {};
    QByteArray hashAfter = {};

    /** What makes @p source again from the version that this patch makes of it. @throws dao::DaoError */
    [[nodiscard]] FilePatch backwards(const SourceFile &source) const;

    /** Compressed, to be kept; unpacked() gives nothing for bytes that are no patch. */
    [[nodiscard]] QByteArray packed() const;
    [[nodiscard]] static std::optional<FilePatch> unpacked(const QByteArray &bytes);
};

/** What tells a file's content from any other. @throws dao::DaoError */
[[nodiscard]] QByteArray wholeHash(const SourceFile &file);

} // namespace shell
