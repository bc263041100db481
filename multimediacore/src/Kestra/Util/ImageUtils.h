// Kestra::Util::ImageUtils: Qt's pictures for the engine.
#pragma once

#include "Kestra/Proc/IDataVideoFFFactory.h"
#include "KestraQtExport.h"
#include <QPixmap>

namespace Kestra::Util {

class KESTRAQT_EXPORT ImageUtils {
public:
    /// The pixmap's pixels as a frame of `factory` in PixelFormat::BGRA, square and with straight alpha; opaque where
    /// the pixmap has no alpha. Its device pixel ratio is of no account. On the thread of the user interface. Throws
    /// std::invalid_argument for a null pixmap.
    static boost::intrusive_ptr<Proc::IDataVideo> PixmapToFrame(const QPixmap& pixmap,
                                                                Proc::IDataVideoFFFactory& factory);

    ImageUtils() = delete;
};

} // namespace Kestra::Util
