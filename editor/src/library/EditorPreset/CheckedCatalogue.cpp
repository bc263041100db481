// SPDX-License-Identifier: GPL-3.0-or-later
#include "EditorPreset/CheckedCatalogue.h"

#include <QCryptographicHash>

namespace EditorPreset {

bool isCatalogueOfThisBuild(const QByteArray& bytes) {
    return QCryptographicHash::hash(bytes, QCryptographicHash::Sha256).toHex() == EDITORPRESET_CATALOGUE_SHA256;
}

} // namespace EditorPreset
