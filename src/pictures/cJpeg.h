// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "pictures/JpegPlanes.h"
#include "pictures/JpegTables.h"

#include <QByteArray>
#include <QString>

class QImage;

namespace quaverly {

class JpegStream;

/** Writes pictures as baseline JPEG files in the JFIF format. Errors are dao::DaoError. */
class cJpeg final
{
public:
    cJpeg();

    /** 1 to 100, 75 at first; another value is ignored. */
    [[nodiscard]] int Quality() const { return m_quality; }
    void setQuality(int quality);

    /**
     * How often luminance and the two colours are sampled in each direction.
     * @throws dao::DaoError "Invalid Sampling Value" for one that is not from 1 to 4.
     */
    void SetSamplingFrequencies(int yH, int yV, int cbH, int cbV, int crH, int crV);

    /** Takes the pixels at the top left of @p hDC. @throws dao::DaoError 5 for a size that no JPEG file has.
     */
    void SampleHDC(const QImage &hDC, int width, int height);

    /** Text that the file carries beside the picture; empty for none. */
    [[nodiscard]] const QString &Comment() const { return m_comment; }
    /** @throws dao::DaoError "Illegal Comment Length" for more than 65,535 characters. */
    void setComment(const QString &comment);

    /**
     * Writes what was sampled. The file is there whole or not at all: one of that name is replaced at the
     * end. @throws dao::DaoError 75, 61, and 5 when nothing was sampled.
     */
    void SaveFile(const QString &path) const;

    /** What SaveFile writes. */
    [[nodiscard]] QByteArray encoded() const;

private:
    void writeHead(JpegStream &stream) const;
    void writeComment(JpegStream &stream) const;
    void writeScan(JpegStream &stream, const std::vector<std::size_t> &components) const;

    int m_quality;
    QuantizationTable m_luminance;
    QuantizationTable m_chrominance;
    ComponentFactors m_factors;
    JpegPlanes m_sampled;
    QString m_comment;
};

} // namespace quaverly
