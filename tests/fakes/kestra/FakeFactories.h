// SPDX-License-Identifier: GPL-3.0-or-later
// Factories of fakes, to be set in Core::CoreManager.
#pragma once

#include "Kestra/Proc/ICodecFactory.h"
#include "Kestra/Proc/IMuxerFactory.h"
#include "fakes/kestra/FakeEncoder.h"
#include "fakes/kestra/FakeMuxer.h"

namespace Kestra::Fakes {

/// Makes encoders that give a packet for each piece of their stream, and keeps them. Thread-bound. Calls in its script:
/// "CreateVideoEncoder", "CreateAudioEncoder".
class FakeCodecFactory : public Proc::ICodecFactory {
public:
    struct Made {
        bool video;
        boost::intrusive_ptr<Proc::IStream> stream;
        Core::Property properties;
        boost::intrusive_ptr<FakeEncoder> encoder;
    };

    explicit FakeCodecFactory(std::shared_ptr<CallLog> log = std::make_shared<CallLog>());

    Script& GetScript() { return script; }
    const std::vector<Made>& GetMade() const { return made; }
    /// Encoders made from now on share it instead of having scripts of their own.
    void UseEncoderScript(std::shared_ptr<Script> encoderScript) { nextScript = std::move(encoderScript); }

    boost::intrusive_ptr<Proc::IEncoder> CreateVideoEncoder(const boost::intrusive_ptr<Proc::IStreamVideo>& stream,
                                                            const Core::Property& properties) override;
    boost::intrusive_ptr<Proc::IEncoder> CreateAudioEncoder(const boost::intrusive_ptr<Proc::IStreamAudio>& stream,
                                                            const Core::Property& properties) override;

private:
    boost::intrusive_ptr<Proc::IEncoder> Make(bool video, const boost::intrusive_ptr<Proc::IStream>& stream,
                                              const Core::Property& properties);

    Script script;
    std::vector<Made> made;
    std::shared_ptr<Script> nextScript;
};

/// Makes recording muxers, and keeps them. Thread-bound. Call in its script: "CreateMuxer".
class FakeMuxerFactory : public Proc::IMuxerFactory {
public:
    struct Made {
        boost::intrusive_ptr<Conf::IFormatFile> format;
        boost::intrusive_ptr<Core::IDataOutput> output;
        boost::intrusive_ptr<FakeMuxer> muxer;
    };

    explicit FakeMuxerFactory(std::shared_ptr<CallLog> log = std::make_shared<CallLog>());

    Script& GetScript() { return script; }
    const std::vector<Made>& GetMade() const { return made; }
    void UseMuxerScript(std::shared_ptr<Script> muxerScript) { nextScript = std::move(muxerScript); }

    boost::intrusive_ptr<Proc::IMuxer> CreateMuxer(const boost::intrusive_ptr<Conf::IFormatFile>& format,
                                                   const boost::intrusive_ptr<Core::IDataOutput>& output) override;

private:
    Script script;
    std::vector<Made> made;
    std::shared_ptr<Script> nextScript;
};

} // namespace Kestra::Fakes
