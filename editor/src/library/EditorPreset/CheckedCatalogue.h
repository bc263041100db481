// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>

namespace EditorPreset {

/// Whether that is, byte for byte, the catalogue that was built and tested together with this library. Its checks need
/// not be made again, which would load the codecs' libraries to list a few names.
bool isCatalogueOfThisBuild(const QByteArray& bytes);

} // namespace EditorPreset
