// SPDX-License-Identifier: GPL-3.0-or-later
// Reading and writing a preset's tree, where every node may be missing.
#pragma once

#include "EditorPreset/SettingRow.h"
#include "Kestra/Core/Property.h"
#include <cstdint>
#include <string>

namespace EditorPreset {

/// Null when there is no such node.
const Kestra::Core::Property* findNode(const Kestra::Core::Property& tree, const char* tag);
const Kestra::Core::Property* findNode(const Kestra::Core::Property& tree, Setting setting);

/// Empty, or what the setting's row says of a missing one, when there is no such node; so is a choice that is none. A
/// node of another kind throws Kestra::Exception.
std::string readString(const Kestra::Core::Property& tree, const char* tag);
std::string readString(const Kestra::Core::Property& tree, Setting setting);
bool readFlag(const Kestra::Core::Property& tree, Setting setting);
std::int64_t readNumber(const Kestra::Core::Property& tree, Setting setting);
double readFraction(const Kestra::Core::Property& tree, Setting setting);
/// The meaning of the name that stands there. The setting is one of choices.
std::int64_t readChoice(const Kestra::Core::Property& tree, Setting setting);
std::int64_t readChoice(const Kestra::Core::Property& tree, Setting setting, std::int64_t missing);

/// Without the section nothing is written: a stream does not come to be by a value.
void writeValue(Kestra::Core::Property& tree, Setting setting, Kestra::Core::Property::Value value);
/// The same; 0 takes the node away.
void writeNumber(Kestra::Core::Property& tree, Setting setting, std::int64_t number);
/// The same by the name of that meaning; one that has none changes nothing.
void writeChoice(Kestra::Core::Property& tree, Setting setting, std::int64_t meaning);
void removeValue(Kestra::Core::Property& tree, Setting setting);

} // namespace EditorPreset
