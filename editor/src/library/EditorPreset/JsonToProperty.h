// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "EditorPreset/CatalogueError.h"
#include "Kestra/Core/Property.h"
#include <QJsonObject>

namespace EditorPreset {

/// A preset or a modifier as a tree: objects become nodes with children, whole numbers integers, and the picture's
/// frame rate ("source", "25", "30000/1001"), which alone has a type of its own, a rational. Throws CatalogueError for
/// a frame rate that is none; the schema has refused the rest.
Kestra::Core::Property toPresetTree(const QJsonObject& object, const JsonPlace& place);

} // namespace EditorPreset
