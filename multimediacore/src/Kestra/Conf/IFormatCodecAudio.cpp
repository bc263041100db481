// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/Conf/IFormatCodecAudio.h"
#include "Kestra/Base/Exception.h"
#include "Kestra/Conf/EngineSetting.h"
#include "Kestra/Conf/FormatCodecTree.h"
#include <limits>

namespace Kestra::Conf {

const char* const IFormatCodecAudio::TAG_SAMPLE_RATE = TagOf(AudioSetting::SampleRate);
const char* const IFormatCodecAudio::TAG_CHANNEL_LAYOUT = TagOf(AudioSetting::ChannelLayout);
const char* const IFormatCodecAudio::TAG_SAMPLE_FORMAT = "sampleFormat";
const char* const IFormatCodecAudio::TAG_SAMPLE_BITS = "sampleBits";
const char* const IFormatCodecAudio::TAG_CHANNEL_LAYOUT_ORDERED = "channelLayoutOrdered";

namespace {

template <class Integer>
Integer Read(const Core::Property& tree, const char* tag, Integer neutral) {
    if (!tree.ChildExists(tag))
        return neutral;
    const std::int64_t number = tree[tag].GetInt64();
    if (number < std::int64_t{std::numeric_limits<Integer>::min()} ||
        number > std::int64_t{std::numeric_limits<Integer>::max()})
        KESTRA_THROW(
            Exception("Audio description: " + std::string(tag) + " " + std::to_string(number) + " is out of range"));
    return static_cast<Integer>(number);
}

void Write(Core::Property& tree, const char* tag, std::int64_t number, std::int64_t neutral) {
    if (number == neutral)
        tree.RemoveChild(tag);
    else
        tree.SetChild(tag, number);
}

} // namespace

boost::intrusive_ptr<IFormatCodecAudio> IFormatCodecAudio::Create() {
    return new FormatCodecTree<IFormatCodecAudio>;
}

IFormatCodecAudio::~IFormatCodecAudio() = default;

std::uint32_t IFormatCodecAudio::GetChannelLayout() const {
    return Read<std::uint32_t>(GetProperty(), TAG_CHANNEL_LAYOUT, CHANNEL_LAYOUT_UNKNOWN);
}

void IFormatCodecAudio::SetChannelLayout(std::uint32_t layout) {
    Write(EditProperty(), TAG_CHANNEL_LAYOUT, layout, CHANNEL_LAYOUT_UNKNOWN);
}

std::int32_t IFormatCodecAudio::GetSampleRate() const {
    return Read<std::int32_t>(GetProperty(), TAG_SAMPLE_RATE, -1);
}

void IFormatCodecAudio::SetSampleRate(std::int32_t rate) {
    Write(EditProperty(), TAG_SAMPLE_RATE, rate, -1);
}

std::int32_t IFormatCodecAudio::GetSampleFormat() const {
    return Read<std::int32_t>(GetProperty(), TAG_SAMPLE_FORMAT, SAMPLE_FORMAT_UNKNOWN);
}

void IFormatCodecAudio::SetSampleFormat(std::int32_t format) {
    Write(EditProperty(), TAG_SAMPLE_FORMAT, format, SAMPLE_FORMAT_UNKNOWN);
}

std::int32_t IFormatCodecAudio::GetSampleBits() const {
    return Read<std::int32_t>(GetProperty(), TAG_SAMPLE_BITS, 0);
}

void IFormatCodecAudio::SetSampleBits(std::int32_t bits) {
    Write(EditProperty(), TAG_SAMPLE_BITS, bits, 0);
}

} // namespace Kestra::Conf
