// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::FF::MuxerFF: containers written with the muxer library.
#pragma once

#include "Kestra/Base/RefCountImpl.h"
#include "Kestra/Base/SourcePlace.h"
#include "Kestra/Conf/Container.h"
#include "Kestra/Conf/EngineSetting.h"
#include "Kestra/Conf/IFormatFile.h"
#include "Kestra/Conf/ProgrammeInfo.h"
#include "Kestra/FF/Data/CodecParametersFF.h"
#include "Kestra/FF/Mux/OutputIo.h"
#include "Kestra/FF/Mux/SubtitleWriter.h"
#include "Kestra/Proc/IMuxer.h"
#include <vector>

namespace Kestra::FF {

/// Takes packets of this engine's encoders. MP4 and MOV get their index in front of the media. What the tracks'
/// descriptions tell of the programme is written as far as the container has a place for it.
class MuxerFF final : public Proc::IMuxer, public RefCountImpl {
public:
    /// `container` outlives the muxer.
    MuxerFF(const Conf::Container& container, const boost::intrusive_ptr<Conf::IFormatFile>& format,
            const boost::intrusive_ptr<Core::IDataOutput>& output);

    int AddStream(const boost::intrusive_ptr<Conf::IFormatCodec>& format) override;
    void Open() override;
    void Write(int index, const boost::intrusive_ptr<Proc::IDataRaw>& packet) override;
    void Finish() override;
    void Abort() noexcept override;

private:
    enum class State { Adding, Open, Done };

    void AddExtras();
    void WriteExtra(AVPacket& packet);
    void WriteSubtitles(std::int64_t until);
    void RequireState(State wanted, const char* operation, SourcePlace place = SourcePlace::Here()) const;
    void ApplyOptions();
    void Obey(Conf::ContainerSetting setting);
    void ApplyMovOptions();
    std::int64_t MovieTimescale() const;
    std::int64_t TimeOffset(const AVStream& stream) const;
    PacketHandle MakeOutgoing(const Proc::IDataRaw& packet, const AVStream& stream) const;
    /// Throws the output's own failure first, then the library's.
    void Demand(int result, const char* what, SourcePlace place = SourcePlace::Here()) const;
    std::string Name() const;

    const Conf::Container& container;
    const boost::intrusive_ptr<Conf::IFormatFile> format;
    const boost::intrusive_ptr<Core::IDataOutput> output;
    // The context refers to the input and output; it goes first.
    std::unique_ptr<OutputIo> io;
    OutputContextHandle context;
    std::vector<AVRational> packetTimeBases;
    Conf::ProgrammeInfo programme; ///< as the first track that tells of one has it
    std::vector<SubtitleWriter> subtitles;
    int coverTrack = -1;
    State state = State::Adding;
};

} // namespace Kestra::FF
