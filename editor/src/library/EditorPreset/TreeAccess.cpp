// SPDX-License-Identifier: GPL-3.0-or-later
#include "EditorPreset/TreeAccess.h"
#include "EditorPreset/SettingTable.h"
#include <utility>

namespace EditorPreset {

using Kestra::Core::Property;

namespace {

const char* sectionOf(Setting setting) {
    return nameOf(rowOf(setting).section);
}

} // namespace

const Property* findNode(const Property& tree, const char* tag) {
    return tree.ChildExists(tag) ? &tree[tag] : nullptr;
}

const Property* findNode(const Property& tree, Setting setting) {
    const Property* const section = findNode(tree, sectionOf(setting));
    return section == nullptr ? nullptr : findNode(*section, nameOf(setting));
}

std::string readString(const Property& tree, const char* tag) {
    const Property* const node = findNode(tree, tag);
    return node == nullptr ? std::string() : node->GetString();
}

std::string readString(const Property& tree, Setting setting) {
    const Property* const node = findNode(tree, setting);
    return node == nullptr ? std::string() : node->GetString();
}

bool readFlag(const Property& tree, Setting setting) {
    const Property* const node = findNode(tree, setting);
    return node == nullptr ? rowOf(setting).missing != 0 : node->GetBool();
}

std::int64_t readNumber(const Property& tree, Setting setting) {
    const Property* const node = findNode(tree, setting);
    return node == nullptr ? rowOf(setting).missing : node->GetInt64();
}

double readFraction(const Property& tree, Setting setting) {
    const Property* const node = findNode(tree, setting);
    return node == nullptr ? static_cast<double>(rowOf(setting).missing) : node->GetDouble();
}

std::int64_t readChoice(const Property& tree, Setting setting) {
    return readChoice(tree, setting, rowOf(setting).missing);
}

std::int64_t readChoice(const Property& tree, Setting setting, std::int64_t missing) {
    const std::string name = readString(tree, setting);
    for (const Choice& choice : std::get<OneOf>(rowOf(setting).values)) {
        if (name == choice.name)
            return choice.meaning;
    }
    return missing;
}

void writeValue(Property& tree, Setting setting, Property::Value value) {
    if (tree.ChildExists(sectionOf(setting)))
        tree[sectionOf(setting)].SetChild(nameOf(setting), std::move(value));
}

void writeNumber(Property& tree, Setting setting, std::int64_t number) {
    if (number != 0)
        writeValue(tree, setting, number);
    else
        removeValue(tree, setting);
}

void writeChoice(Property& tree, Setting setting, std::int64_t meaning) {
    for (const Choice& choice : std::get<OneOf>(rowOf(setting).values)) {
        if (meaning == choice.meaning)
            writeValue(tree, setting, std::string(choice.name));
    }
}

void removeValue(Property& tree, Setting setting) {
    if (tree.ChildExists(sectionOf(setting)))
        tree[sectionOf(setting)].RemoveChild(nameOf(setting));
}

} // namespace EditorPreset
