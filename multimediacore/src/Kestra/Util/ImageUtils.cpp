// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/Util/ImageUtils.h"

#include "Kestra/Base/Exception.h"
#include "Kestra/Proc/PictureReading.h"

#include <QImage>
#include <QtEndian>
#include <algorithm>
#include <cstring>
#include <stdexcept>

namespace Kestra::Util {

namespace {

// Qt's 32-bit pixels are numbers, the engine's are bytes in this order.
static_assert(Q_BYTE_ORDER == Q_LITTLE_ENDIAN, "BGRA in memory is ARGB32 on little-endian machines only");

constexpr int BYTES_A_PIXEL = 4;
/// Rows are converted a few at a time: a large picture does not exist once more in another format.
constexpr int BAND = 64;

void writePixels(const QImage& image, std::uint8_t* pixels, std::ptrdiff_t stride) {
    const auto rowBytes = static_cast<std::size_t>(image.width()) * BYTES_A_PIXEL;
    for (int top = 0; top < image.height(); top += BAND) {
        const int rows = std::min(BAND, image.height() - top);
        const QImage band = image.copy(0, top, image.width(), rows).convertToFormat(QImage::Format_ARGB32);
        if (band.isNull())
            KESTRA_THROW(std::bad_alloc());
        for (int row = 0; row < rows; ++row)
            std::memcpy(pixels + (top + row) * stride, band.constScanLine(row), rowBytes);
    }
}

} // namespace

boost::intrusive_ptr<Proc::IDataVideo> ImageUtils::PixmapToFrame(const QPixmap& pixmap,
                                                                 Proc::IDataVideoFFFactory& factory) {
    if (pixmap.isNull())
        KESTRA_THROW(std::invalid_argument("A null pixmap cannot become a frame"));
    const QImage image = pixmap.toImage();
    if (image.isNull())
        KESTRA_THROW(std::bad_alloc());
    const Conf::FrameInfo frame{static_cast<std::uint32_t>(image.width()), static_cast<std::uint32_t>(image.height()),
                                0, 0};
    return factory.CreateDataVideo(
        frame, Conf::PixelFormat::BGRA,
        [&image](std::uint8_t* pixels, std::ptrdiff_t stride) { writePixels(image, pixels, stride); });
}

QImage ImageUtils::FrameToImage(const Proc::IDataVideo& picture, const QSize& limit) {
    const Proc::RgbPicture read = Proc::ReadPicture(picture, limit.width(), limit.height());
    // A copy, as the image would only refer to the pixels.
    return QImage(read.pixels.data(), read.width, read.height, 3 * read.width, QImage::Format_RGB888).copy();
}

} // namespace Kestra::Util
