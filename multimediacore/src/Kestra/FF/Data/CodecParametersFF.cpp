// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/FF/Data/CodecParametersFF.h"

#include "Kestra/Conf/FormatCodecTree.h"

namespace Kestra::FF {

namespace {

template <class Description>
class Parameters final : public Conf::FormatCodecTree<Description>, public CodecParametersFF {
public:
    Parameters(const AVCodecParameters& source, AVRational timeBase, const Core::Property& description,
               const HdrMetadata& hdr = HdrMetadata())
        : Conf::FormatCodecTree<Description>(description)
        , CodecParametersFF(source, timeBase, hdr) {}
};

} // namespace

CodecParametersFF::CodecParametersFF(const AVCodecParameters& source, AVRational timeBase, const HdrMetadata& hdr)
    : parameters(CopyCodecParameters(source))
    , timeBase(timeBase)
    , hdr(hdr) {}

CodecParametersFF::~CodecParametersFF() = default;

CodecParametersHandle CopyCodecParameters(const AVCodecParameters& source) {
    CodecParametersHandle copy = MakeCodecParameters();
    if (avcodec_parameters_copy(copy.get(), &source) < 0)
        throw std::bad_alloc();
    return copy;
}

boost::intrusive_ptr<Conf::IFormatCodec> MakeVideoParameters(const AVCodecParameters& parameters, AVRational timeBase,
                                                             const Core::Property& description,
                                                             const HdrMetadata& hdr) {
    return new Parameters<Conf::IFormatCodecVideo>(parameters, timeBase, description, hdr);
}

boost::intrusive_ptr<Conf::IFormatCodec> MakeAudioParameters(const AVCodecParameters& parameters, AVRational timeBase,
                                                             const Core::Property& description) {
    return new Parameters<Conf::IFormatCodecAudio>(parameters, timeBase, description);
}

const CodecParametersFF* CodecParametersOf(const Conf::IFormatCodec& format) noexcept {
    return dynamic_cast<const CodecParametersFF*>(&format);
}

} // namespace Kestra::FF
