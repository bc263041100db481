// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::Util::ImageUtils: Qt's pictures for the engine.
#pragma once

#include "Kestra/Proc/IDataVideoFFFactory.h"
#include "KestraQtExport.h"
#include <QImage>
#include <QPixmap>
#include <QSize>

namespace Kestra::Util {

class KESTRAQT_EXPORT ImageUtils {
public:
    /// The pixmap's pixels as a frame of `factory` in PixelFormat::BGRA, square and with straight alpha; opaque where
    /// the pixmap has no alpha. Its device pixel ratio is of no account. On the thread of the user interface. Throws
    /// std::invalid_argument for a null pixmap.
    static boost::intrusive_ptr<Proc::IDataVideo> PixmapToFrame(const QPixmap& pixmap,
                                                                Proc::IDataVideoFFFactory& factory);

    /// The picture for a display, as Proc::ReadPicture() gives it within `limit`. Any thread.
    static QImage FrameToImage(const Proc::IDataVideo& picture, const QSize& limit);

    ImageUtils() = delete;
};

} // namespace Kestra::Util
