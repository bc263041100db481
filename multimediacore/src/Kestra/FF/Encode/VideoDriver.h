// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::FF::VideoDriver: what is particular to one of the codec library's encoders of pictures.
#pragma once

#include "Kestra/Conf/CodecID.h"
#include "Kestra/FF/Av/Handles.h"
#include "Kestra/FF/Av/OptionList.h"
#include "Kestra/FF/Encode/IEncoderLoop.h"
#include "Kestra/FF/Picture/EncoderInput.h"
#include <memory>
#include <string>
#include <vector>

namespace Kestra::FF {

/// Has no state and lives as long as the process: any thread may use it. What is not overridden is what most encoders
/// do. A new encoder is one more driver, in VideoDrivers.cpp's list.
class VideoDriver {
public:
    /// How a first pass tells the second one what it has seen.
    enum class Statistics {
        None,     ///< there are no passes
        X264,     ///< the encoder writes a file, one line a frame
        X265,     ///< likewise, and takes its own options for it
        Handover, ///< one block at the end, in place of packets
        Pictures, ///< each packet's quantiser and size; the second pass takes a quantiser for each frame
    };

    /// `encoder` is the codec library's name for it.
    VideoDriver(Conf::CodecID codec, const char* encoder)
        : codec(codec)
        , encoder(encoder) {}
    virtual ~VideoDriver() = default;
    VideoDriver(const VideoDriver&) = delete;
    VideoDriver& operator=(const VideoDriver&) = delete;

    /// In order of preference among those of one codec.
    static const std::vector<const VideoDriver*>& All();
    /// One that does what most do, where an installation has another encoder than those that are known.
    static const VideoDriver& Of(const AVCodec& encoder);

    Conf::CodecID GetCodec() const { return codec; }
    const char* GetEncoder() const { return encoder; }

    /// What it takes of what the codec takes. Another driver of the codec has the rest.
    virtual bool TakesSize(int width, int height) const;
    /// Whether it has two passes, and holds a constant bitrate.
    virtual bool MeetsExactRates() const { return true; }
    /// Of the formats that the encoder names, those that come out as what they are.
    virtual bool TakesFormat(AVPixelFormat format) const;
    /// Whether frames keep their format where nothing else is ordered. Every profile of the other codecs is shown
    /// anywhere with 8 bit 4:2:0 only.
    virtual bool FollowsStream() const { return false; }
    /// That one.
    virtual AVPixelFormat UsualFormat() const { return AV_PIX_FMT_YUV420P; }
    /// What frames of a format that is taken are when the encoder gets them, by Wrapped().
    virtual AVPixelFormat CodedFormat(AVPixelFormat given) const { return given; }
    /// The encoder, which is open, with what has to happen to frames before it.
    virtual std::unique_ptr<IEncoderLoop> Wrapped(std::unique_ptr<IEncoderLoop> encoder) const { return encoder; }
    /// Whether each frame says by itself whether it is interlaced.
    virtual bool FlagsFields() const { return false; }
    /// For a stream that may have fields.
    virtual void AllowFields(AVCodecContext& context) const;
    /// Whether the samples that come out are those that went in.
    virtual bool KeepsSamples() const { return false; }
    /// The most memory that it takes in one piece for such frames; 0 where that is about what they are themselves.
    virtual std::int64_t LargestPiece(const EncoderInput&) const { return 0; }
    /// The codes that its streams have names for; another one would be lost in the file.
    virtual Conf::ColourInfo Tellable(Conf::ColourInfo colour) const { return colour; }
    /// What a user can do about settings that it refuses; empty where nobody knows.
    virtual std::string Advise(const EncoderInput& frame) const;

    /// Adds the profile's name to the encoder's options, in front.
    virtual void TellProfile(OptionList& options, const Core::Property& profile) const;
    /// Threads, and how much time a frame gets.
    virtual void SetSpeed(AVCodecContext& context, const OptionList& options) const;
    /// Whether the bits can be chosen.
    virtual bool HasRate() const { return true; }
    /// Where nothing is ordered, and the encoder's own default is a bitrate or unknown.
    virtual double UsualQuality() const { return 3; }
    /// Throws ProcException (CodecRefused) for a quality beyond its scale.
    virtual void SetQuality(AVCodecContext& context, double quality) const;
    /// For a context with its bitrate: what else that bitrate takes. The mode is "abr", "vbr" or "cbr".
    virtual void SetDrift(AVCodecContext& context) const;
    virtual std::int64_t LowestRateOf(std::int64_t constantBitrate) const { return constantBitrate; }
    /// What the context says behind the options of the preset.
    virtual void Settle(AVCodecContext& context) const;
    /// The same where the codec does not run in two passes.
    virtual void SettleOnePass(AVCodecContext& context) const;

    virtual Statistics GetStatistics() const { return Statistics::None; }
    virtual void SetFastFirstPass(AVCodecContext& context) const;
    /// Whether a second pass takes what the first has seen in smaller frames, with these options.
    virtual bool ScalesStatistics(const OptionList& options) const;
    /// For a first pass over frames of that part of the pixels: the rate that goes with it.
    virtual void SetDraftRate(AVCodecContext& context, double part) const;

private:
    const Conf::CodecID codec;
    const char* const encoder;
};

} // namespace Kestra::FF
