// SPDX-License-Identifier: GPL-3.0-or-later
#include "Export/MakeStreamProcessor.h"

#include <vector>

namespace Export {

boost::intrusive_ptr<Kestra::Proc::IStreamProcessor> makeStreamProcessor(const EncoderFactory& videoEncoderFactory,
                                                                         const EncoderFactory& audioEncoderFactory,
                                                                         const MuxerFactory& muxerFactory) {
    std::vector<boost::intrusive_ptr<Kestra::Proc::IStream>> streams;
    if (videoEncoderFactory) {
        streams.push_back(videoEncoderFactory());
    }
    if (audioEncoderFactory) {
        streams.push_back(audioEncoderFactory());
    }
    boost::intrusive_ptr<Kestra::Proc::IMuxer> muxer;
    if (muxerFactory) {
        muxer = muxerFactory();
    }
    return Kestra::Proc::CreateStreamProcessor(streams, muxer);
}

} // namespace Export
