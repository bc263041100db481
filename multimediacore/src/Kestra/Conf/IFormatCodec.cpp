// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/Conf/IFormatCodec.h"
#include "Kestra/Conf/EngineSetting.h"
#include <utility>

namespace Kestra::Conf {

const char* const IFormatCodec::TAG_CODEC_ID = TagOf(VideoSetting::Codec);
const char* const IFormatCodec::TAG_BITRATE = TagOf(VideoSetting::Bitrate);
const char* const IFormatCodec::TAG_BITRATE_MODE = TagOf(VideoSetting::BitrateMode);
const char* const IFormatCodec::TAG_QUALITY = TagOf(VideoSetting::Quality);
const char* const IFormatCodec::TAG_PROFILE = TagOf(VideoSetting::Profile);
const char* const IFormatCodec::TAG_CODEC_OPTIONS_ENCODE = TagOf(VideoSetting::Options);
const char* const IFormatCodec::TAG_TWO_PASS = "twoPass";
const char* const IFormatCodec::TAG_TWO_PASS_LOG_FILE = "logFile";
const char* const IFormatCodec::TAG_TWO_PASS_FIRST = "firstPass";

namespace {

/// What is not known has no node, so a neutral value takes the node away.
void Put(Core::Property& tree, const char* tag, Core::Property::Value value, bool known) {
    if (known)
        tree.SetChild(tag, std::move(value));
    else
        tree.RemoveChild(tag);
}

} // namespace

IFormatCodec::~IFormatCodec() = default;

CodecID IFormatCodec::GetCodecID() const {
    const Core::Property& tree = GetProperty();
    return tree.ChildExists(TAG_CODEC_ID) ? CodecIDFromString(tree[TAG_CODEC_ID].GetString()) : CodecID::None;
}

void IFormatCodec::SetCodecID(CodecID id) {
    Put(EditProperty(), TAG_CODEC_ID, std::string(CodecIDToString(id)), id != CodecID::None);
}

std::int64_t IFormatCodec::GetBitrate() const {
    const Core::Property& tree = GetProperty();
    return tree.ChildExists(TAG_BITRATE) ? tree[TAG_BITRATE].GetInt64() : 0;
}

void IFormatCodec::SetBitrate(std::int64_t bitsPerSecond) {
    Put(EditProperty(), TAG_BITRATE, bitsPerSecond, bitsPerSecond != 0);
}

std::string IFormatCodec::GetBitrateMode() const {
    const Core::Property& tree = GetProperty();
    return tree.ChildExists(TAG_BITRATE_MODE) ? tree[TAG_BITRATE_MODE].GetString() : std::string();
}

void IFormatCodec::SetBitrateMode(const std::string& mode) {
    Put(EditProperty(), TAG_BITRATE_MODE, mode, !mode.empty());
}

double IFormatCodec::GetQuality() const {
    const Core::Property& tree = GetProperty();
    return tree.ChildExists(TAG_QUALITY) ? tree[TAG_QUALITY].GetDouble() : 0.0;
}

void IFormatCodec::SetQuality(double quality) {
    Put(EditProperty(), TAG_QUALITY, quality, quality != 0.0);
}

} // namespace Kestra::Conf
