// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/store/Collation.h"

#include "platform/store/DaoError.h"

#include <QtEndian>

#include <sqlite3.h>
#include <unicode/ucol.h>
#include <unicode/uvernum.h>

#include <array>
#include <bit>
#include <memory>

using namespace Qt::StringLiterals;

namespace dao {

namespace {

struct CloseCollator
{
    void operator()(UCollator *collator) const { ucol_close(collator); }
};

/** ICU's collator, and the order of its plain ASCII characters in a table. */
class Collator
{
public:
    Collator()
    {
        UErrorCode status = U_ZERO_ERROR;
        m_collator.reset(ucol_open("root", &status));
        ucol_setStrength(m_collator.get(), UCOL_SECONDARY);
        if (U_FAILURE(status))
            throw DaoError(Internal, u"The text collation is missing from this machine."_s);
        rankAscii();
    }

    [[nodiscard]] int compare(QByteArrayView left, QByteArrayView right) const
    {
        const qsizetype common = std::min(left.size(), right.size());
        // What both begin with decides nothing, up to a character that stands for itself.
        qsizetype i = equalBytes(left.data(), right.data(), common);
        if (i == common && left.size() == right.size())
            return 0;
        if (i > 0 && rankAt(left, i - 1) == 0)
            return compareFully(left, right);
        for (; i < common; ++i) {
            const quint8 a = rankAt(left, i);
            const quint8 b = rankAt(right, i);
            if (a == 0 || b == 0)
                return compareFully(left, right);
            if (a != b)
                return a < b ? -1 : 1;
        }
        if (left.size() == right.size())
            return 0;
        if (rankAt(left.size() > right.size() ? left : right, common) == 0)
            return compareFully(left, right);
        return left.size() < right.size() ? -1 : 1;
    }

    [[nodiscard]] QString version() const
    {
        UVersionInfo info;
        ucol_getVersion(m_collator.get(), info);
        return u"%1.%2.%3.%4"_s.arg(info[0]).arg(info[1]).arg(info[2]).arg(info[3]);
    }

private:
    /** How many bytes are the same from the start on. */
    [[nodiscard]] static qsizetype equalBytes(const char *left, const char *right, qsizetype count)
    {
        qsizetype i = 0;
        for (; i + qsizetype(sizeof(quint64)) <= count; i += sizeof(quint64)) {
            const quint64 difference =
                qFromLittleEndian<quint64>(left + i) ^ qFromLittleEndian<quint64>(right + i);
            if (difference != 0)
                return i + std::countr_zero(difference) / 8;
        }
        while (i < count && left[i] == right[i])
            ++i;
        return i;
    }

    [[nodiscard]] quint8 rankAt(QByteArrayView text, qsizetype i) const
    {
        return m_rank[static_cast<quint8>(text[i])];
    }

    [[nodiscard]] int compareFully(QByteArrayView left, QByteArrayView right) const
    {
        UErrorCode status = U_ZERO_ERROR;
        return ucol_strcollUTF8(m_collator.get(), left.data(), static_cast<int32_t>(left.size()),
                                right.data(), static_cast<int32_t>(right.size()), &status);
    }

    // A character that has a weight of its own at the first level decides a comparison alone, since
    // no root contraction begins in ASCII. Rank 0 marks all others: those are left to ICU.
    void rankAscii()
    {
        for (int c = 1; c < 128; ++c) {
            const char one = static_cast<char>(c);
            if (compareFully(QByteArrayView(&one, 1), QByteArrayView()) == 0)
                continue;
            quint8 rank = 1;
            for (int d = 1; d < 128; ++d) {
                const char other = static_cast<char>(d);
                if (compareFully(QByteArrayView(&other, 1), QByteArrayView(&one, 1)) < 0)
                    ++rank;
            }
            m_rank[static_cast<std::size_t>(c)] = rank;
        }
    }

    std::unique_ptr<UCollator, CloseCollator> m_collator;
    std::array<quint8, 256> m_rank{};
};

const Collator &collator()
{
    static const Collator one;
    return one;
}

int compareForSqlite(void *own, int leftSize, const void *left, int rightSize, const void *right)
{
    return static_cast<const Collator *>(own)->compare(
        QByteArrayView(static_cast<const char *>(left), leftSize),
        QByteArrayView(static_cast<const char *>(right), rightSize));
}

} // namespace

void registerCollation(sqlite3 *db)
{
    sqlite3_create_collation_v2(db, "DAO", SQLITE_UTF8, const_cast<Collator *>(&collator()), compareForSqlite,
                                nullptr);
}

int compareTexts(QByteArrayView left, QByteArrayView right)
{
    return collator().compare(left, right);
}

QString collationVersion()
{
    return collator().version();
}

} // namespace dao
