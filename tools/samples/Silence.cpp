// SPDX-License-Identifier: GPL-3.0-or-later
#include "samples/Silence.h"

#include <QFile>
#include <QtEndian>

#include <stdexcept>

using namespace Qt::StringLiterals;

// Q_INIT_RESOURCE must stand outside a namespace.
static void initResources()
{
    Q_INIT_RESOURCE(samples);
}

namespace samples {

namespace {

/** As many frames as fill the time. */
QByteArray repeated(const QByteArray &frame, int samplesPerFrame, int sampleRate, int seconds)
{
    return frame.repeated((seconds * sampleRate + samplesPerFrame - 1) / samplesPerFrame);
}

QByteArray mp3Silence(int seconds)
{
    // MPEG 1 layer 3, 32 kbps, 48 kHz, mono: an empty side information is silence.
    constexpr int rate = 48'000;
    constexpr int frameLength = 144 * 32'000 / rate;
    QByteArray frame("\xFF\xFB\x14\xC4", 4);
    frame.resize(frameLength, '\0');
    return repeated(frame, 1152, rate, seconds);
}

QByteArray aacSilence(int seconds)
{
    // An ADTS head and a block of one silent channel.
    return repeated(QByteArray("\xFF\xF1\x50\x40\x01\x7F\xFC\x01\x18\x20\x07", 11), 1024, 44'100, seconds);
}

QByteArray wavSilence(int seconds)
{
    // 8 kHz, 8 bits, mono; the middle of unsigned samples is silence.
    constexpr quint32 rate = 8'000;
    const auto length = static_cast<quint32>(seconds) * rate;
    const auto number = [](auto value) {
        const auto little = qToLittleEndian(value);
        return QByteArray(reinterpret_cast<const char *>(&little), sizeof little);
    };
    return QByteArray("RIFF") + number(36 + length) + "WAVEfmt " + number(quint32(16)) + number(quint16(1)) +
           number(quint16(1)) + number(rate) + number(rate) + number(quint16(1)) + number(quint16(8)) +
           "data" + number(length) + QByteArray(static_cast<qsizetype>(length), '\x80');
}

QByteArray aiffSilence(int seconds)
{
    // 8 kHz, 8 bits, mono; the rate is a number of 80 bits.
    const quint32 length = static_cast<quint32>(seconds) * 8'000;
    const auto number = [](auto value) {
        const auto big = qToBigEndian(value);
        return QByteArray(reinterpret_cast<const char *>(&big), sizeof big);
    };
    return QByteArray("FORM") + number(46 + length) + "AIFFCOMM" + number(quint32(18)) + number(quint16(1)) +
           number(length) + number(quint16(8)) + QByteArray("\x40\x0B\xFA\0\0\0\0\0\0\0", 10) + "SSND" +
           number(8 + length) + QByteArray(static_cast<qsizetype>(8 + length), '\0');
}

QByteArray fromTemplate(QStringView extension)
{
    initResources();
    QFile file(u":/samples/silence.%1"_s.arg(extension));
    if (!file.open(QIODevice::ReadOnly))
        throw std::invalid_argument("no such type of sound file");
    return file.readAll();
}

} // namespace

QByteArray silence(QStringView extension, int seconds)
{
    if (extension == "mp3"_L1)
        return mp3Silence(seconds);
    if (extension == "mp2"_L1)
        return mp3Silence(seconds).replace("\xFF\xFB", "\xFF\xFD");
    if (extension == "aac"_L1)
        return aacSilence(seconds);
    if (extension == "aiff"_L1 || extension == "aif"_L1)
        return aiffSilence(seconds);
    if (extension == "m4b"_L1)
        return fromTemplate(u"m4a");
    if (extension == "oga"_L1)
        return fromTemplate(u"ogg");
    if (extension == "wav"_L1)
        return wavSilence(seconds);
    return fromTemplate(extension);
}

} // namespace samples
