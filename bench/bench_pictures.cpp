// SPDX-License-Identifier: GPL-3.0-or-later
// Writing JPEG files, beside libjpeg-turbo without its vector code, with the same tables and factors.
// QUAVERLY_BENCH_PICTURES may name a folder of photographs to be measured as well.
#include "Bench.h"

#include "pictures/cImage.h"
#include "pictures/cJpeg.h"

#include <QDir>
#include <QGuiApplication>
#include <QImage>
#include <QLinearGradient>
#include <QPainter>
#include <QRandomGenerator>

#include <cmath>
#include <cstdio>
#include <cstdlib>

#include <jpeglib.h>

using namespace Qt::StringLiterals;
using namespace quaverly;

namespace {

constexpr QSize BoxSize(1024, 768);
constexpr int Quality = 75;

QImage emptyScene(const QColor &color)
{
    QImage scene(BoxSize, QImage::Format_RGB32);
    scene.fill(color);
    return scene;
}

/** Clouds of several sizes, as a landscape has them, with the grain of a sensor. */
QImage landscape(quint32 seed, double grain)
{
    QRandomGenerator random(seed);
    QImage scene = emptyScene(Qt::black);
    for (int size = 4; size <= 512; size *= 2) {
        QImage layer(size, size * 3 / 4 + 1, QImage::Format_RGB32);
        for (int y = 0; y < layer.height(); ++y)
            for (int x = 0; x < layer.width(); ++x)
                layer.setPixel(x, y, qRgb(random.bounded(256), random.bounded(200), random.bounded(160)));
        QPainter painter(&scene);
        painter.setOpacity(size == 4 ? 1.0 : 1.2 / std::log2(size));
        painter.drawImage(QRect(QPoint(), BoxSize),
                          layer.scaled(BoxSize, Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
    }
    for (int y = 0; y < scene.height(); ++y) {
        for (int x = 0; x < scene.width(); ++x) {
            const QColor c = scene.pixelColor(x, y);
            const int noise = static_cast<int>((random.generateDouble() - 0.5) * grain);
            const auto with = [noise](int value) { return std::clamp(value + noise, 0, 255); };
            scene.setPixelColor(x, y, QColor(with(c.red()), with(c.green()), with(c.blue())));
        }
    }
    return scene;
}

QImage portrait()
{
    QImage scene = emptyScene(Qt::darkGray);
    QPainter painter(&scene);
    painter.setRenderHint(QPainter::Antialiasing);
    QRandomGenerator random(3);
    for (int i = 0; i < 120; ++i) {
        QRadialGradient light(random.bounded(1024), random.bounded(768), 40 + random.bounded(250));
        light.setColorAt(0, QColor::fromHsv(random.bounded(360), 60 + random.bounded(120), 230, 160));
        light.setColorAt(1, Qt::transparent);
        painter.fillRect(scene.rect(), light);
    }
    return scene;
}

QImage drawing()
{
    QImage scene = emptyScene(Qt::white);
    QPainter painter(&scene);
    QRandomGenerator random(4);
    painter.setRenderHint(QPainter::Antialiasing);
    for (int i = 0; i < 300; ++i) {
        painter.setPen(QPen(QColor::fromHsv(random.bounded(360), 255, 200), 1 + random.bounded(6)));
        painter.drawLine(random.bounded(1024), random.bounded(768), random.bounded(1024),
                         random.bounded(768));
    }
    for (int i = 0; i < 40; ++i) {
        painter.setFont(QFont(u"Sans"_s, 8 + random.bounded(40)));
        painter.setPen(Qt::black);
        painter.drawText(random.bounded(900), random.bounded(768), u"Greatest Hits 1976"_s);
    }
    return scene;
}

QList<QImage> scenes()
{
    QList<QImage> all{landscape(1, 12), landscape(2, 40), portrait(), drawing()};
    const QDir folder(qEnvironmentVariable("QUAVERLY_BENCH_PICTURES"));
    if (qEnvironmentVariableIsSet("QUAVERLY_BENCH_PICTURES")) {
        for (const QString &name : folder.entryList(QDir::Files)) {
            const QImage picture(folder.filePath(name));
            if (!picture.isNull())
                all += picture.scaled(BoxSize, Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
                           .convertToFormat(QImage::Format_RGB32);
        }
    }
    return all;
}

QByteArray ours(const QImage &scene)
{
    cImage image;
    image.CopyStdPicture(scene);
    cJpeg jpeg;
    jpeg.SetSamplingFrequencies(2, 2, 1, 1, 1, 1);
    jpeg.setQuality(Quality);
    jpeg.SampleHDC(image.hDC(), image.Width(), image.Height());
    return jpeg.encoded();
}

void setTable(jpeg_compress_struct &state, int number, const std::array<quint8, BlockSize> &base)
{
    const QuantizationTable table = scaledTable(base, Quality);
    std::array<unsigned, BlockSize> entries = {};
    for (int i = 0; i < BlockSize; ++i)
        entries[std::size_t(i)] = unsigned(table.entry(i));
    jpeg_add_quant_table(&state, number, entries.data(), 100, TRUE);
}

QByteArray theirs(const QImage &scene)
{
    jpeg_compress_struct state = {};
    jpeg_error_mgr errors = {};
    state.err = jpeg_std_error(&errors);
    jpeg_create_compress(&state);
    unsigned char *bytes = nullptr;
    unsigned long size = 0;
    jpeg_mem_dest(&state, &bytes, &size);
    state.image_width = unsigned(scene.width());
    state.image_height = unsigned(scene.height());
    state.input_components = 4;
    state.in_color_space = JCS_EXT_BGRX;
    jpeg_set_defaults(&state);
    jpeg_set_quality(&state, Quality, TRUE);
    if (!qEnvironmentVariableIsSet("QUAVERLY_BENCH_OWN_TABLES")) {
        setTable(state, 0, LuminanceQuantization);
        setTable(state, 1, ChrominanceQuantization);
    }
    jpeg_start_compress(&state, TRUE);
    while (state.next_scanline < state.image_height) {
        auto *row = const_cast<JSAMPROW>(scene.constScanLine(int(state.next_scanline)));
        jpeg_write_scanlines(&state, &row, 1);
    }
    jpeg_finish_compress(&state);
    jpeg_destroy_compress(&state);
    QByteArray result(reinterpret_cast<const char *>(bytes), qsizetype(size));
    std::free(bytes);
    return result;
}

/** Root of the mean square difference over all channels. */
double error(const QImage &scene, const QByteArray &file)
{
    const QImage decoded = QImage::fromData(file).convertToFormat(QImage::Format_RGB32);
    double sum = 0;
    for (int y = 0; y < scene.height(); ++y) {
        const auto *before = reinterpret_cast<const QRgb *>(scene.constScanLine(y));
        const auto *after = reinterpret_cast<const QRgb *>(decoded.constScanLine(y));
        for (int x = 0; x < scene.width(); ++x) {
            const int red = qRed(before[x]) - qRed(after[x]);
            const int green = qGreen(before[x]) - qGreen(after[x]);
            const int blue = qBlue(before[x]) - qBlue(after[x]);
            sum += red * red + green * green + blue * blue;
        }
    }
    return std::sqrt(sum / (3.0 * scene.width() * scene.height()));
}

} // namespace

int main(int argc, char **argv)
{
    // Before the library looks at it for the first time.
    qputenv("JSIMD_FORCENONE", "1");
    const QGuiApplication app(argc, argv);
    bench::Suite suite(QCoreApplication::arguments().mid(1));
    if (!suite.wants(u"jpeg"_s))
        return 0;
    // Half a decibel.
    const double largerError = std::pow(10.0, 0.5 / 20.0);
    const QList<QImage> all = scenes();
    int number = 0;
    for (const QImage &scene : all) {
        const QString name = u"jpeg "_s + QString::number(++number);
        suite.report(name + u" size"_s, 1.03, double(ours(scene).size()) / 1024,
                     double(theirs(scene).size()) / 1024, "KB");
        suite.report(name + u" error"_s, largerError, error(scene, ours(scene)), error(scene, theirs(scene)),
                     "  ");
    }
    suite.compare(
        u"jpeg 1024x768 time"_s, 2,
        [&] {
            for (const QImage &scene : all)
                (void)ours(scene);
        },
        [&] {
            for (const QImage &scene : all)
                (void)theirs(scene);
        },
        bench::Clock::Processor, 9);
    return suite.exitCode();
}
