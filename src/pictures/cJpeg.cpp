// SPDX-License-Identifier: GPL-3.0-or-later
#include "pictures/cJpeg.h"

#include "pictures/JpegStream.h"
#include "pictures/JpegTransform.h"
#include "pictures/PictureErrors.h"
#include "pictures/WholeFile.h"

#include <QImage>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quaverly {

namespace {

enum Marker {
    StartOfImage = 0xD8,
    EndOfImage = 0xD9,
    StartOfScan = 0xDA,
    Quantization = 0xDB,
    BaselineFrame = 0xC0,
    Huffman = 0xC4,
    Application0 = 0xE0,
    CommentText = 0xFE,
};

constexpr int FirstQuality = 75;
constexpr int MostFactor = 4;
constexpr int LongestSide = 0xFFFF;
constexpr int LongestComment = 0xFFFF;
/** What one marker holds beside its length. */
constexpr int LongestContent = 0xFFFF - 2;
/** The standard allows no more blocks in one group of several components. */
constexpr int MostBlocksInGroup = 10;

/** Which of the two kinds of tables a component uses: luminance has the first. */
constexpr std::size_t tablesOf(std::size_t component)
{
    return component == 0 ? 0 : 1;
}

void writeTable(JpegStream &stream, int number, const QuantizationTable &table)
{
    stream.marker(Quantization, 1 + BlockSize);
    stream.byte(table.precision() << 4 | number);
    for (const quint8 place : ZigZag)
        stream.byte(table.entry(place));
}

void writeTable(JpegStream &stream, int classAndNumber, const HuffmanSpec &spec)
{
    stream.marker(Huffman, 1 + static_cast<int>(spec.counts.size() + spec.symbols.size()));
    stream.byte(classAndNumber);
    for (const quint8 count : spec.counts)
        stream.byte(count);
    for (const quint8 symbol : spec.symbols)
        stream.byte(symbol);
}

/** Turns one component's blocks into bits. */
class ComponentCoder final
{
public:
    ComponentCoder(const JpegPlane &plane, const QuantizationTable &table, std::size_t tables)
        : m_plane(plane), m_transform(table), m_dc(tables == 0 ? luminanceDc() : chrominanceDc()),
          m_ac(tables == 0 ? luminanceAc() : chrominanceAc())
    {}

    void write(int across, int down, JpegStream &stream)
    {
        constexpr std::size_t Side = 8;
        const quint8 *first = m_plane.samples.data() +
                              static_cast<std::size_t>(down) * Side * m_plane.stride +
                              static_cast<std::size_t>(across) * Side;
        m_transform.run(first, m_plane.stride, m_coefficients);
        stream.block(m_coefficients, m_previousDc, m_dc, m_ac);
    }

    void writeGroup(int across, int down, JpegStream &stream)
    {
        const SamplingFactors factors = m_plane.factors;
        for (int y = 0; y < factors.vertical; ++y)
            for (int x = 0; x < factors.horizontal; ++x)
                write(across * factors.horizontal + x, down * factors.vertical + y, stream);
    }

    /** A component alone in its scan leaves out the blocks that only fill a group. */
    void writeAlone(JpegStream &stream)
    {
        for (int down = 0; down < m_plane.blocksDown; ++down)
            for (int across = 0; across < m_plane.blocksAcross; ++across)
                write(across, down, stream);
    }

private:
    const JpegPlane &m_plane;
    BlockTransform m_transform;
    HuffmanCodes m_dc;
    HuffmanCodes m_ac;
    std::array<qint16, BlockSize> m_coefficients = {};
    int m_previousDc = 0;
};

} // namespace

cJpeg::cJpeg()
    : m_quality(FirstQuality), m_luminance(scaledTable(LuminanceQuantization, FirstQuality)),
      m_chrominance(scaledTable(ChrominanceQuantization, FirstQuality))
{}

void cJpeg::setQuality(int quality)
{
    if (quality < 1 || quality > 100)
        return;
    m_quality = quality;
    m_luminance = scaledTable(LuminanceQuantization, quality);
    m_chrominance = scaledTable(ChrominanceQuantization, quality);
}

void cJpeg::SetSamplingFrequencies(int yH, int yV, int cbH, int cbV, int crH, int crV)
{
    const auto refused = [](int factor) { return factor < 1 || factor > MostFactor; };
    if (std::ranges::any_of(std::array{yH, yV, cbH, cbV, crH, crV}, refused))
        throw invalidCall(u"Invalid Sampling Value"_s);
    m_factors = {{{yH, yV}, {cbH, cbV}, {crH, crV}}};
}

void cJpeg::SampleHDC(const QImage &hDC, int width, int height)
{
    if (width < 1 || height < 1 || width > LongestSide || height > LongestSide || hDC.isNull())
        throw invalidCall(u"A picture of %1 by %2 pixels can't be saved."_s.arg(width).arg(height));
    m_sampled = samplePlanes(hDC, width, height, m_factors);
}

void cJpeg::setComment(const QString &comment)
{
    if (comment.size() > LongestComment)
        throw invalidCall(u"Illegal Comment Length"_s);
    m_comment = comment;
}

void cJpeg::writeComment(JpegStream &stream) const
{
    // A long text, or one of many bytes a character, takes several markers.
    const QByteArray text = m_comment.toUtf8();
    for (qsizetype at = 0; at < text.size(); at += LongestContent) {
        const QByteArray piece = text.mid(at, LongestContent);
        stream.marker(CommentText, static_cast<int>(piece.size()));
        stream.bytes(piece);
    }
}

void cJpeg::writeHead(JpegStream &stream) const
{
    stream.marker(StartOfImage);
    // JFIF 1.1, square pixels, no thumbnail.
    const QByteArrayView jfif("JFIF\0\1\1\0\0\1\0\1\0\0", 14);
    stream.marker(Application0, static_cast<int>(jfif.size()));
    stream.bytes(jfif);
    writeComment(stream);
    writeTable(stream, 0, m_luminance);
    writeTable(stream, 1, m_chrominance);

    stream.marker(BaselineFrame, 6 + 3 * static_cast<int>(Components));
    stream.byte(8);
    stream.word(m_sampled.height);
    stream.word(m_sampled.width);
    stream.byte(Components);
    for (std::size_t i = 0; i < Components; ++i) {
        const SamplingFactors factors = m_sampled.planes[i].factors;
        stream.byte(static_cast<int>(i) + 1);
        stream.byte(factors.horizontal << 4 | factors.vertical);
        stream.byte(static_cast<int>(tablesOf(i)));
    }
    writeTable(stream, 0x00, luminanceDc());
    writeTable(stream, 0x10, luminanceAc());
    writeTable(stream, 0x01, chrominanceDc());
    writeTable(stream, 0x11, chrominanceAc());
}

void cJpeg::writeScan(JpegStream &stream, const std::vector<std::size_t> &components) const
{
    const int count = static_cast<int>(components.size());
    stream.marker(StartOfScan, 4 + 2 * count);
    stream.byte(count);
    std::vector<ComponentCoder> coders;
    for (const std::size_t i : components) {
        stream.byte(static_cast<int>(i) + 1);
        stream.byte(static_cast<int>(tablesOf(i) << 4 | tablesOf(i)));
        coders.emplace_back(m_sampled.planes[i], tablesOf(i) == 0 ? m_luminance : m_chrominance, tablesOf(i));
    }
    // All coefficients, none refined: a baseline scan.
    stream.byte(0);
    stream.byte(BlockSize - 1);
    stream.byte(0);
    if (count == 1) {
        coders.front().writeAlone(stream);
    } else {
        for (int down = 0; down < m_sampled.groupsDown; ++down)
            for (int across = 0; across < m_sampled.groupsAcross; ++across)
                for (ComponentCoder &coder : coders)
                    coder.writeGroup(across, down, stream);
    }
    stream.endScan();
}

QByteArray cJpeg::encoded() const
{
    if (m_sampled.width == 0)
        throw invalidCall(u"No picture was given to be saved."_s);
    JpegStream stream;
    writeHead(stream);
    int blocks = 0;
    for (const JpegPlane &plane : m_sampled.planes)
        blocks += plane.factors.horizontal * plane.factors.vertical;
    if (blocks <= MostBlocksInGroup) {
        writeScan(stream, {0, 1, 2});
    } else {
        for (std::size_t i = 0; i < Components; ++i)
            writeScan(stream, {i});
    }
    stream.marker(EndOfImage);
    return stream.take();
}

void cJpeg::SaveFile(const QString &path) const
{
    writeWhole(path, encoded());
}

} // namespace quaverly
