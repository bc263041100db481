// SPDX-License-Identifier: GPL-3.0-or-later
// Preset: everything that an export to one kind of file needs to know.
#pragma once

#include "EditorPreset/BitrateMode.h"
#include "EditorPresetExport.h"
#include "Kestra/Conf/CodecID.h"
#include "Kestra/Core/Property.h"
#include "Kestra/Proc/Settings/SettingsResizer.h"
#include <boost/rational.hpp>
#include <cstdint>
#include <string>

/// A value over a property tree whose nodes are named as in the catalogue; copies are independent. A
/// default-constructed preset has no id, no video and no audio, and its getters answer the neutral values that they
/// state. A setter changes a stream that is there and makes none.
class EDITORPRESET_EXPORT Preset {
public:
    using Rational = boost::rational<long long>;

    Preset();
    /// A preset as the catalogue writes it, frame rates as rationals. Missing nodes take their defaults.
    explicit Preset(Kestra::Core::Property tree);

    std::string id() const;
    /// English name for people, UTF-8; the id where the catalogue gives none.
    std::string title() const;
    /// "mp4", "mkv" ...; empty when not known. It is the usual extension of the file, too.
    std::string containerId() const;

    bool hasVideo() const;
    bool hasAudio() const;
    Kestra::Conf::CodecID videoCodec() const;
    Kestra::Conf::CodecID audioCodec() const;

    /// The frame that a source is brought to, in pixels; 0 is the source's own side.
    int width() const;
    int height() const;
    void setWidth(int pixels);
    void setHeight(int pixels);
    /// The largest frame that the preset is meant for.
    int maxWidth() const;
    int maxHeight() const;
    void setLimits(int widthPixels, int heightPixels);
    /// True when every source must come out in exactly width() x height().
    bool hasFixedResolution() const;
    /// A way of resizing that does not fill the size gives way to one that does.
    void setFixedResolution(bool fixed);
    Kestra::Proc::SettingsResizer resizerSettings() const;
    /// SettingsFilterFrameRate::MARK_USE_ORIGINAL_FRAMERATE for the source's own.
    Rational frameRate() const;
    void setFrameRate(const Rational& rate);

    /// bit/s; 0 when the preset leaves it open.
    std::int64_t videoBitrateBps() const;
    void setVideoBitrateBps(std::int64_t bitsPerSecond);
    Export::BitrateMode videoBitrateMode() const;
    void setVideoBitrateMode(Export::BitrateMode mode);
    /// "cbr", "abr", "vbr", "quality" in the order of the modes' numbers: what an encoder description takes.
    static std::string modeToString(Export::BitrateMode mode);
    /// Factor on the codec's default bitrate; 1 when the preset gives none.
    double videoBitrateMultiplier() const;
    /// In the codec's own scale; 0 when the preset gives none.
    double videoQuality() const;
    void setVideoQuality(double quality);
    /// By the encoder's name; empty when the preset gives none.
    std::string videoProfile() const;
    bool isVideoTwoPassEncodingEnabled() const;
    /// Whether the first of two passes looks at smaller pictures where that does; else at whole ones.
    void setHalfFirstPass(bool half);
    /// PQ and HLG stay what they are; else they become a standard range.
    bool keepsDynamicRange() const;

    /// bit/s; 0 for codecs that know none and when the preset leaves it open.
    std::int64_t audioBitrateBps() const;
    void setAudioBitrateBps(std::int64_t bitsPerSecond);
    /// Kestra::Conf::ChannelLayout; 0 is the source's.
    std::uint32_t channelLayout() const;
    void setChannelLayout(std::uint32_t layout);
    /// Samples a second; 0 is the source's.
    std::uint32_t sampleRate() const;
    void setSampleRate(std::uint32_t samplesPerSecond);

    /// A description for IFormatFile: container and muxer options.
    Kestra::Core::Property muxerData() const;
    /// Encoder descriptions with IFormatCodec's tags, completed with what codec and container fix. They say nothing of
    /// size and frame rate: an encoder takes those from its stream. The bitrate is always there, 0 when open; the
    /// quality only in the mode that uses it; sample rate and layout only when the preset sets them.
    Kestra::Core::Property audioEncoderData() const;
    Kestra::Core::Property videoEncoderData() const;

    /// Several lines "name = value" for logs.
    std::string formattedPresetInfo() const;

    /// The same settings under whatever id and title.
    bool equalsTo(const Preset& other) const;
    /// Gives the same file: the same as equalsTo but for limits and for settings that the bitrate mode leaves unused.
    bool affectsAs(const Preset& other) const;
    /// Takes over the values of a sparse tree, named as the preset's own. The id stays. True if anything changed.
    bool applyQualityModifier(const Kestra::Core::Property& modifier);

    const Kestra::Core::Property& property() const { return tree; }

private:
    Kestra::Core::Property tree;
};
