#include "EditorPreset/TreeAccess.h"
#include <utility>

namespace EditorPreset {

using Kestra::Core::Property;

const Property* findNode(const Property& tree, const char* tag) {
    return tree.ChildExists(tag) ? &tree[tag] : nullptr;
}

const Property* findNode(const Property& tree, const char* section, const char* tag) {
    const Property* const found = findNode(tree, section);
    return found == nullptr ? nullptr : findNode(*found, tag);
}

std::string readString(const Property& tree, const char* tag) {
    const Property* const node = findNode(tree, tag);
    return node == nullptr ? std::string() : node->GetString();
}

std::string readString(const Property& tree, const char* section, const char* tag) {
    const Property* const node = findNode(tree, section, tag);
    return node == nullptr ? std::string() : node->GetString();
}

bool readFlag(const Property& tree, const char* section, const char* tag) {
    const Property* const node = findNode(tree, section, tag);
    return node != nullptr && node->GetBool();
}

std::int64_t readNumber(const Property& tree, const char* section, const char* tag, std::int64_t neutral) {
    const Property* const node = findNode(tree, section, tag);
    return node == nullptr ? neutral : node->GetInt64();
}

void writeValue(Property& tree, const char* section, const char* tag, Property::Value value) {
    if (tree.ChildExists(section))
        tree[section].SetChild(tag, std::move(value));
}

void writeNumber(Property& tree, const char* section, const char* tag, std::int64_t number) {
    if (number != 0)
        writeValue(tree, section, tag, number);
    else if (tree.ChildExists(section))
        tree[section].RemoveChild(tag);
}

} // namespace EditorPreset
