// SPDX-License-Identifier: GPL-3.0-or-later
// ExportCore::OutroPictures: the outros that this application has.
#pragma once

#include "ExportCoreExport.h"
#include "KTime/KTime.h"
#include <QString>
#include <string>
#include <vector>

namespace ExportCore {

/// Pictures among the application's resources, ":/BrandingOutro/NAME/outro.png". From any thread.
struct EXPORTCORE_EXPORT OutroPictures {
    /// In alphabetical order.
    static std::vector<std::string> names();
    /// Throws Refusal for a name without a picture, naming those that have one, for a picture that cannot be read, and
    /// in an application that cannot show pictures (no QGuiApplication). An empty name is no outro.
    static void require(const QString& name);
    /// By how much the outro makes an export longer; 0 where there is no picture.
    static KTime length(const QString& name);

    OutroPictures() = delete;
};

} // namespace ExportCore
