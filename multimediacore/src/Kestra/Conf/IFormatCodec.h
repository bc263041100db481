// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::Conf::IFormatCodec: the description of a stream's format or of an encoder, over a property tree.
#pragma once

#include "Kestra/Base/IRefCountable.h"
#include "Kestra/Conf/CodecID.h"
#include "Kestra/Core/Property.h"

namespace Kestra::Conf {

/// The setters and getters of the derived descriptions are views on the tree: either may be used.
/// What is not known has no node; the getters then answer the neutral value that they state.
class KESTRA_EXPORT IFormatCodec : public virtual IRefCountable {
public:
    static const char* const TAG_CODEC_ID;     ///< string, as CodecIDToString
    static const char* const TAG_BITRATE;      ///< int64, bit/s
    static const char* const TAG_BITRATE_MODE; ///< string: "cbr", "vbr", "abr", "quality" ...
    static const char* const TAG_QUALITY;      ///< double, in the codec's own scale
    static const char* const TAG_PROFILE;      ///< string, as the encoder names it
    /// A child tree of options that are handed to the encoder by name; one that the encoder does not know is an error.
    static const char* const TAG_CODEC_OPTIONS_ENCODE;
    /// A child tree: {log file, first pass} of SettingsTwoPassEncoding.
    static const char* const TAG_TWO_PASS;
    static const char* const TAG_TWO_PASS_LOG_FILE;
    static const char* const TAG_TWO_PASS_FIRST;

    ~IFormatCodec() override;
    virtual const Core::Property& GetProperty() const = 0;
    virtual void SetProperty(const Core::Property& tree) = 0;

    CodecID GetCodecID() const;
    void SetCodecID(CodecID id);
    /// 0 when not set.
    std::int64_t GetBitrate() const;
    void SetBitrate(std::int64_t bitsPerSecond);
    std::string GetBitrateMode() const;
    void SetBitrateMode(const std::string& mode);
    /// 0 when not set.
    double GetQuality() const;
    void SetQuality(double quality);

protected:
    virtual Core::Property& EditProperty() = 0;
};

} // namespace Kestra::Conf
