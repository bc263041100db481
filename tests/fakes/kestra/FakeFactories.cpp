// SPDX-License-Identifier: GPL-3.0-or-later
#include "fakes/kestra/FakeFactories.h"
#include <stdexcept>

namespace Kestra::Fakes {

FakeCodecFactory::FakeCodecFactory(std::shared_ptr<CallLog> log)
    : script(std::move(log)) {}

boost::intrusive_ptr<Proc::IEncoder>
FakeCodecFactory::CreateVideoEncoder(const boost::intrusive_ptr<Proc::IStreamVideo>& stream,
                                     const Core::Property& properties) {
    script.Call("CreateVideoEncoder");
    return Make(true, stream, properties);
}

boost::intrusive_ptr<Proc::IEncoder>
FakeCodecFactory::CreateAudioEncoder(const boost::intrusive_ptr<Proc::IStreamAudio>& stream,
                                     const Core::Property& properties) {
    script.Call("CreateAudioEncoder");
    return Make(false, stream, properties);
}

boost::intrusive_ptr<Proc::IEncoder> FakeCodecFactory::Make(bool video,
                                                            const boost::intrusive_ptr<Proc::IStream>& stream,
                                                            const Core::Property& properties) {
    if (stream == nullptr) {
        throw std::invalid_argument("FakeCodecFactory: an encoder needs a stream.");
    }
    const auto encoderScript = nextScript ? nextScript : std::make_shared<Script>();
    boost::intrusive_ptr<FakeEncoder> encoder(new FakeEncoder(stream, encoderScript));
    made.push_back({video, stream, properties, encoder});
    return encoder;
}

FakeMuxerFactory::FakeMuxerFactory(std::shared_ptr<CallLog> log)
    : script(std::move(log)) {}

boost::intrusive_ptr<Proc::IMuxer>
FakeMuxerFactory::CreateMuxer(const boost::intrusive_ptr<Conf::IFormatFile>& format,
                              const boost::intrusive_ptr<Core::IDataOutput>& output) {
    script.Call("CreateMuxer");
    boost::intrusive_ptr<FakeMuxer> muxer(new FakeMuxer(nextScript ? nextScript : std::make_shared<Script>()));
    made.push_back({format, output, muxer});
    return muxer;
}

} // namespace Kestra::Fakes
