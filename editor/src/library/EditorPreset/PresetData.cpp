// SPDX-License-Identifier: GPL-3.0-or-later
// Preset: what muxer and encoders are told, and how presets are compared.
#include "EditorPreset/Preset.h"
#include "EditorPreset/PresetTags.h"
#include "EditorPreset/SettingTable.h"
#include "EditorPreset/TreeAccess.h"
#include "Kestra/Conf/CreateDataHelper.h"
#include "Kestra/Conf/IFormatCodec.h"
#include <limits>
#include <locale>
#include <sstream>
#include <utility>

using namespace EditorPreset;

namespace {

using Kestra::Conf::CodecID;
using Kestra::Conf::IFormatCodec;
using Kestra::Conf::IPreset;
using Kestra::Core::Property;

/// Options reach the libraries as text, whatever the catalogue writes them as.
std::string optionText(const Property& option) {
    if (const bool* const flag = std::get_if<bool>(&option.GetValue()))
        return *flag ? "1" : "0";
    if (const std::string* const text = std::get_if<std::string>(&option.GetValue()))
        return *text;
    std::ostringstream text;
    text.imbue(std::locale::classic());
    text.precision(std::numeric_limits<double>::digits10);
    text << option.GetDouble();
    return text.str();
}

void tellOptions(const Preset& preset, Setting setting, Property& data, const char* tag) {
    const Property* const options = findNode(preset.property(), setting);
    if (options == nullptr)
        return;
    for (const Property& option : options->GetChildren())
        data[tag].SetChild(option.GetName(), optionText(option));
}

/// Every setting of the section that an engine's kind of setting is told.
template <class EngineSetting>
Property told(const Preset& preset) {
    Property data;
    for (const SettingRow& row : Table::ROWS) {
        const EngineSetting* const as = std::get_if<EngineSetting>(&row.told.as);
        if (as == nullptr)
            continue;
        if (!row.told.value)
            tellOptions(preset, row.setting, data, TagOf(*as));
        else if (Value value = (*row.told.value)(preset, row.setting); value.index() != 0)
            data.SetChild(TagOf(*as), std::move(value));
    }
    return data;
}

void complete(Property& data, const char* key, CodecID codec, const std::string& container) {
    Kestra::Conf::CreateDataHelper(key, codec)->Apply(data);
    Kestra::Conf::CreateDataHelper(IPreset::KEY_FORMAT, container)->Apply(data);
}

/// Everything that shapes the file, defaults spelled out.
Property effect(const Preset& preset) {
    Property result;
    result.SetChild(TAG_CONTAINER).Merge(preset.muxerData());
    if (preset.hasVideo()) {
        // The encoder's data would tell bitrates apart that the mode leaves unused.
        Property encoder = preset.videoEncoderData();
        encoder.RemoveChild(IFormatCodec::TAG_BITRATE);
        Property& video = result.SetChild(TAG_VIDEO);
        video.Merge(encoder);
        for (const SettingRow& row : Table::ROWS) {
            if (row.compared.value && (row.compared.inModes & bitOf(preset.videoBitrateMode())) != 0)
                video.SetChild(row.name, (*row.compared.value)(preset, row.setting));
        }
    }
    if (preset.hasAudio())
        result.SetChild(TAG_AUDIO).Merge(preset.audioEncoderData());
    return result;
}

/// The settings that show in no file of today but in what the preset offers.
Property reserve(const Preset& preset) {
    Property result;
    if (!preset.hasVideo())
        return result;
    for (const SettingRow& row : Table::ROWS) {
        if (row.compared.value && row.compared.inModes != Table::EVERY_MODE)
            result.SetChild(row.name, (*row.compared.value)(preset, row.setting));
    }
    return result;
}

} // namespace

Property Preset::muxerData() const {
    return told<Kestra::Conf::ContainerSetting>(*this);
}

Property Preset::audioEncoderData() const {
    Property data = told<Kestra::Conf::AudioSetting>(*this);
    complete(data, IPreset::KEY_FILTER_AUDIO_CODEC, audioCodec(), containerId());
    return data;
}

Property Preset::videoEncoderData() const {
    Property data = told<Kestra::Conf::VideoSetting>(*this);
    complete(data, IPreset::KEY_FILTER_VIDEO_CODEC, videoCodec(), containerId());
    return data;
}

std::string Preset::formattedPresetInfo() const {
    return tree.ToString();
}

bool Preset::equalsTo(const Preset& other) const {
    return affectsAs(other) && reserve(*this) == reserve(other);
}

bool Preset::affectsAs(const Preset& other) const {
    return effect(*this) == effect(other);
}

bool Preset::applyQualityModifier(const Property& modifier) {
    const Property before = tree;
    const std::string ownId = id();
    tree.Merge(modifier);
    if (!ownId.empty())
        tree.SetChild(TAG_ID, ownId);
    else
        tree.RemoveChild(TAG_ID);
    return tree != before;
}
