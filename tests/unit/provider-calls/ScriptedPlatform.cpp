// SPDX-License-Identifier: GPL-3.0-or-later
#include "ScriptedPlatform.h"
#include "EditorPreset/PresetStorage.h"
#include "EditorSettings/Settings.h"
#include "Kestra/Base/RefCountImpl.h"
#include "Kestra/ClientAPI/BitrateLimits.h"
#include "Kestra/Conf/CreateDataHelper.h"
#include <stdexcept>

void ScriptedPlatform::call(const std::string& line) {
    log.push_back(line);
    throwIfScripted(line);
}

void ScriptedPlatform::callHelper(const std::string& line) {
    helperLog.push_back(line);
    throwIfScripted(line);
}

void ScriptedPlatform::throwIfScripted(const std::string& line) const {
    if (!throwing.empty() && line.rfind(throwing, 0) == 0)
        throw std::runtime_error(line);
}

ScriptedPlatform& ScriptedPlatform::instance() {
    static ScriptedPlatform platform;
    return platform;
}

namespace {

ScriptedPlatform& script() {
    return ScriptedPlatform::instance();
}

/// Writes down the nodes that it finds, in the order in which they came to be, and adds one of its own.
class ScriptedHelper : public Kestra::Conf::IDataHelper, public Kestra::RefCountImpl {
public:
    explicit ScriptedHelper(std::string helperName)
        : name(std::move(helperName)) {}
    void Apply(Kestra::Core::Property& tree) const override {
        std::string nodes;
        for (const Kestra::Core::Property& node : tree.GetChildren())
            nodes += ' ' + node.GetName();
        script().callHelper("apply " + name + ":" + nodes);
        tree.SetChild(name, true);
    }

private:
    std::string name;
};

} // namespace

bool PresetStorage::loadPresets(const Kestra::ioPath& path) {
    script().call("loadPresets " + path.ToUtf8());
    return script().loads;
}

std::deque<std::string> PresetStorage::tags() const {
    script().call("tags");
    return script().tags;
}

std::size_t PresetStorage::defaultPresetIndex(const std::string& tag) const {
    script().call("defaultPresetIndex " + tag);
    std::deque<std::size_t>& rows = script().defaults[tag];
    const std::size_t row = rows.empty() ? 0 : rows.front();
    if (rows.size() > 1)
        rows.pop_front();
    return row;
}

std::deque<Preset> PresetStorage::presets(const std::string& tag) const {
    script().call("presets " + tag);
    return script().presets[tag];
}

Preset PresetStorage::preset(const std::string& id) const {
    script().call("preset " + id);
    return script().presetById[id];
}

bool PresetStorage::isPresetExists(const std::string& id) const {
    script().call("isPresetExists " + id);
    return script().presetById.count(id) != 0;
}

std::set<std::string> PresetStorage::qualityModifierTags(const std::string& id) const {
    script().call("qualityModifierTags " + id);
    std::set<std::string> names;
    for (const auto& modifier : script().modifiers[id])
        names.insert(modifier.first);
    return names;
}

Kestra::Core::Property PresetStorage::qualityModifierData(const std::string& id, const std::string& modifier) const {
    script().call("qualityModifierData " + id + " " + modifier);
    return script().modifiers[id][modifier];
}

QString Settings::presetFilePath() {
    script().call("presetFilePath");
    return QStringLiteral("/catalogue.json");
}

std::string Settings::lastUsedPresetGroup() {
    script().call("lastUsedPresetGroup");
    return script().group;
}

bool Settings::setLastUsedPresetGroup(const std::string& group) {
    script().call("setLastUsedPresetGroup " + group);
    return true;
}

std::string Settings::lastUsedPresetId() {
    script().call("lastUsedPresetId");
    return script().id;
}

bool Settings::setLastUsedPresetId(const std::string& id) {
    script().call("setLastUsedPresetId " + id);
    return true;
}

namespace Kestra::Conf {

boost::intrusive_ptr<IDataHelper> CreateDataHelper(const std::string& key, CodecID codecId) {
    script().callHelper("create " + key + " " + CodecIDToString(codecId));
    return new ScriptedHelper(CodecIDToString(codecId));
}

boost::intrusive_ptr<IDataHelper> CreateDataHelper(const std::string& key, const std::string& containerId) {
    script().callHelper("create " + key + " " + containerId);
    return new ScriptedHelper(containerId);
}

} // namespace Kestra::Conf

namespace Kestra::ClientAPI {

std::int64_t GetMinBitrate(const Core::Property&) {
    return script().minimum;
}

std::int64_t GetMaxBitrate(const Core::Property&) {
    return script().maximum;
}

std::int64_t GetMinVideoBitrate(const boost::intrusive_ptr<Conf::IFormatCodecVideo>&) {
    return script().minimum;
}

std::int64_t GetMaxVideoBitrate(const boost::intrusive_ptr<Conf::IFormatCodecVideo>&) {
    return script().maximum;
}

std::int64_t GetDefaultVideoBitrate(const boost::intrusive_ptr<Conf::IFormatCodecVideo>&) {
    return script().standard;
}

} // namespace Kestra::ClientAPI
