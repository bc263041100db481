// Reading and writing a preset's tree, where every node may be missing.
#pragma once

#include "Kestra/Core/Property.h"
#include <cstdint>
#include <string>

namespace EditorPreset {

/// Null when there is no such node.
const Kestra::Core::Property* findNode(const Kestra::Core::Property& tree, const char* tag);
const Kestra::Core::Property* findNode(const Kestra::Core::Property& tree, const char* section, const char* tag);

/// Empty, false or `neutral` when there is no such node. A node of another kind throws Kestra::Exception.
std::string readString(const Kestra::Core::Property& tree, const char* tag);
std::string readString(const Kestra::Core::Property& tree, const char* section, const char* tag);
bool readFlag(const Kestra::Core::Property& tree, const char* section, const char* tag);
std::int64_t readNumber(const Kestra::Core::Property& tree, const char* section, const char* tag, std::int64_t neutral);

/// Without the section nothing is written: a stream does not come to be by a value.
void writeValue(Kestra::Core::Property& tree, const char* section, const char* tag,
                Kestra::Core::Property::Value value);

/// The same; 0 takes the node away.
void writeNumber(Kestra::Core::Property& tree, const char* section, const char* tag, std::int64_t number);

} // namespace EditorPreset
