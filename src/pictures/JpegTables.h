// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtGlobal>

#include <array>
#include <span>
#include <vector>

/** The tables that a JPEG file carries. */
namespace quaverly {

inline constexpr int BlockSize = 64;

/** Places of an 8x8 block, row by row, in the order in which a file holds them. */
extern const std::array<quint8, BlockSize> ZigZag;

/** Annex K of the standard, row by row. */
extern const std::array<quint8, BlockSize> LuminanceQuantization;
extern const std::array<quint8, BlockSize> ChrominanceQuantization;

/** A Huffman table as a file writes it: how many codes there are of each length, and what they stand for. */
struct HuffmanSpec
{
    std::array<quint8, 16> counts = {};
    std::vector<quint8> symbols;
};

/** The typical tables of annex K. */
[[nodiscard]] const HuffmanSpec &luminanceDc();
[[nodiscard]] const HuffmanSpec &luminanceAc();
[[nodiscard]] const HuffmanSpec &chrominanceDc();
[[nodiscard]] const HuffmanSpec &chrominanceAc();

/** Codes by symbol, made from a table. */
class HuffmanCodes final
{
public:
    /** @throws dao::DaoError "Bad Huffman Table" when it forms no code. */
    explicit HuffmanCodes(const HuffmanSpec &spec);

    struct Code
    {
        quint16 bits = 0;
        /** 0 for a symbol that has no code. */
        quint8 length = 0;
    };
    [[nodiscard]] Code code(quint8 symbol) const { return m_codes[symbol]; }

private:
    std::array<Code, 256> m_codes = {};
};

/** A quantisation table, checked. */
class QuantizationTable final
{
public:
    /**
     * @p precision is 0 for entries of 8 bits, 1 for 16; the entries stand row by row.
     * @throws dao::DaoError for another precision, another number of entries, or one that does not fit.
     */
    QuantizationTable(int precision, std::span<const int> entries);

    [[nodiscard]] int precision() const { return m_precision; }
    [[nodiscard]] int entry(int place) const { return m_entries[static_cast<std::size_t>(place)]; }

private:
    int m_precision;
    std::array<quint16, BlockSize> m_entries = {};
};

/** The base table scaled for a quality of 1 to 100. */
[[nodiscard]] QuantizationTable scaledTable(const std::array<quint8, BlockSize> &base, int quality);

} // namespace quaverly
