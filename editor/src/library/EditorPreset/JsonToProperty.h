#pragma once

#include "EditorPreset/CatalogueError.h"
#include "Kestra/Core/Property.h"
#include <QJsonValue>
#include <string>

namespace EditorPreset {

/// A JSON value as a tree: objects become nodes with children, whole numbers integers, a frame rate ("source", "25",
/// "30000/1001") a rational. Throws CatalogueError for a frame rate that is none; the schema has refused the rest.
Kestra::Core::Property toProperty(const std::string& name, const QJsonValue& value, const JsonPlace& place);

} // namespace EditorPreset
