// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/Util/ImageUtils.h"

#include "Kestra/Core/CoreManager.h"
#include "Kestra/FF/Data/DataVideoFF.h"
#include "Kestra/Proc/IDataVideoFFFactory.h"
#include <QBitmap>
#include <QImage>
#include <cstdlib>
#include <gtest/gtest.h>
#include <stdexcept>

namespace {

using namespace Kestra;
using Util::ImageUtils;
using Frame = boost::intrusive_ptr<Proc::IDataVideo>;

Frame convert(const QPixmap& pixmap) {
    return ImageUtils::PixmapToFrame(pixmap, Core::CoreManager::Instance().GetDataVideoFFFactory());
}

/// As Qt writes a colour with straight alpha.
QRgb pixelAt(const Frame& frame, int x, int y) {
    const AVFrame& picture = FF::FrameOf(*frame);
    const std::uint8_t* pixel = picture.data[0] + static_cast<std::ptrdiff_t>(y) * picture.linesize[0] + 4 * x;
    return qRgba(pixel[2], pixel[1], pixel[0], pixel[3]);
}

void expectNear(QRgb actual, QRgb expected, int tolerance) {
    EXPECT_LE(std::abs(qRed(actual) - qRed(expected)), tolerance) << std::hex << actual;
    EXPECT_LE(std::abs(qGreen(actual) - qGreen(expected)), tolerance) << std::hex << actual;
    EXPECT_LE(std::abs(qBlue(actual) - qBlue(expected)), tolerance) << std::hex << actual;
    EXPECT_EQ(qAlpha(actual), qAlpha(expected)) << std::hex << actual;
}

TEST(PixmapToFrame, HasThePixmapsSizeAndAFormatWithAlpha) {
    QPixmap pixmap(37, 23);
    pixmap.fill(Qt::blue);
    const Frame frame = convert(pixmap);
    EXPECT_EQ(frame->GetFrameInfo().width, 37U);
    EXPECT_EQ(frame->GetFrameInfo().height, 23U);
    EXPECT_EQ(static_cast<int>(frame->GetPixelFormat()), 25);
    EXPECT_EQ(FF::FrameOf(*frame).format, AV_PIX_FMT_BGRA);
    EXPECT_EQ(FF::FrameOf(*frame).color_range, AVCOL_RANGE_JPEG);
}

TEST(PixmapToFrame, IsOpaqueWithoutAlpha) {
    QImage image(3, 2, QImage::Format_RGB32);
    image.fill(QColor(10, 20, 30));
    const Frame frame = convert(QPixmap::fromImage(image));
    EXPECT_EQ(pixelAt(frame, 2, 1), qRgba(10, 20, 30, 255));
}

TEST(PixmapToFrame, KeepsAlphaStraight) {
    QImage image(2, 1, QImage::Format_ARGB32);
    image.setPixel(0, 0, qRgba(200, 100, 50, 128));
    image.setPixel(1, 0, qRgba(200, 100, 50, 0));
    const Frame frame = convert(QPixmap::fromImage(image));
    expectNear(pixelAt(frame, 0, 0), qRgba(200, 100, 50, 128), 1);
    EXPECT_EQ(qAlpha(pixelAt(frame, 1, 0)), 0);
}

TEST(PixmapToFrame, TakesPremultipliedPixelsForWhatTheyMean) {
    QImage image(1, 1, QImage::Format_ARGB32_Premultiplied);
    image.setPixel(0, 0, qRgba(200, 100, 50, 64));
    const QRgb meant = image.convertToFormat(QImage::Format_ARGB32).pixel(0, 0);
    EXPECT_EQ(pixelAt(convert(QPixmap::fromImage(image)), 0, 0), meant);
}

TEST(PixmapToFrame, TakesEveryFormatOfPixels) {
    for (int format = QImage::Format_Mono; format < QImage::NImageFormats; ++format) {
        QImage image(9, 5, static_cast<QImage::Format>(format));
        if (image.colorCount() == 0 && image.depth() <= 8)
            image.setColorTable({qRgb(0, 0, 0), qRgb(255, 255, 255)});
        image.fill(image.depth() <= 8 && image.colorCount() > 0 ? 1 : 0xff);
        const QPixmap pixmap = QPixmap::fromImage(image, Qt::NoFormatConversion);
        const Frame frame = convert(pixmap);
        EXPECT_EQ(frame->GetFrameInfo().width, 9U) << format;
        EXPECT_EQ(pixelAt(frame, 8, 4), pixmap.toImage().convertToFormat(QImage::Format_ARGB32).pixel(8, 4)) << format;
    }
}

TEST(PixmapToFrame, TakesGreyscale) {
    QImage image(4, 4, QImage::Format_Grayscale8);
    image.fill(99);
    EXPECT_EQ(pixelAt(convert(QPixmap::fromImage(image)), 3, 3), qRgba(99, 99, 99, 255));
}

TEST(PixmapToFrame, TakesABitmap) {
    QBitmap bitmap(16, 16);
    bitmap.fill(Qt::color1);
    EXPECT_EQ(pixelAt(convert(bitmap), 15, 15), qRgba(0, 0, 0, 255));
}

TEST(PixmapToFrame, TakesOnePixel) {
    QPixmap pixmap(1, 1);
    pixmap.fill(QColor(1, 2, 3));
    const Frame frame = convert(pixmap);
    EXPECT_EQ(frame->GetFrameInfo().width, 1U);
    EXPECT_EQ(pixelAt(frame, 0, 0), qRgba(1, 2, 3, 255));
}

TEST(PixmapToFrame, ReachesTheLastRowOfATallPicture) {
    QImage image(3, 1000, QImage::Format_ARGB32);
    for (int y = 0; y < image.height(); ++y)
        image.setPixel(1, y, qRgba(y & 255, y >> 8, 7, 255));
    const Frame frame = convert(QPixmap::fromImage(image));
    for (int y : {0, 63, 64, 127, 128, 959, 960, 999})
        EXPECT_EQ(pixelAt(frame, 1, y), qRgba(y & 255, y >> 8, 7, 255)) << y;
}

TEST(PixmapToFrame, PaysNoHeedToTheDevicesPixelRatio) {
    QPixmap pixmap(20, 10);
    pixmap.fill(Qt::green);
    pixmap.setDevicePixelRatio(2);
    EXPECT_EQ(convert(pixmap)->GetFrameInfo().width, 20U);
}

TEST(PixmapToFrame, RefusesANullPixmap) {
    EXPECT_THROW(convert(QPixmap()), std::invalid_argument);
}

TEST(DataVideoFactory, RefusesWhatHasNoPixelsInOnePlane) {
    auto& factory = Core::CoreManager::Instance().GetDataVideoFFFactory();
    const auto nothing = [](std::uint8_t*, std::ptrdiff_t) { FAIL() << "nothing is to be written"; };
    EXPECT_THROW(factory.CreateDataVideo({8, 8, 0, 0}, Conf::PixelFormat::YUV420P, nothing), std::invalid_argument);
    EXPECT_THROW(factory.CreateDataVideo({8, 8, 0, 0}, Conf::PixelFormat::Unknown, nothing), std::invalid_argument);
    EXPECT_THROW(factory.CreateDataVideo({0, 8, 0, 0}, Conf::PixelFormat::BGRA, nothing), std::invalid_argument);
    EXPECT_THROW(factory.CreateDataVideo({8, 40000, 0, 0}, Conf::PixelFormat::BGRA, nothing), std::invalid_argument);
}

} // namespace
