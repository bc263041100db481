// SPDX-License-Identifier: GPL-3.0-or-later
#include "fakes/streams/ExportDriver.h"

#include "Kestra/Core/CoreManager.h"
#include "Kestra/Core/DataOutputFF.h"
#include "Kestra/Proc/ICodecFactory.h"
#include "Kestra/Proc/IMuxerFactory.h"

namespace Fakes {

using namespace Kestra;
using Conf::IFormatCodec;

Core::Property Description(const std::string& codec) {
    Core::Property tree;
    tree.SetChild(IFormatCodec::TAG_CODEC_ID, codec);
    return tree;
}

Core::Property& Options(Core::Property& description) {
    return description[IFormatCodec::TAG_CODEC_OPTIONS_ENCODE];
}

boost::intrusive_ptr<Proc::IEncoder> VideoEncoder(const boost::intrusive_ptr<Proc::IStreamVideo>& stream,
                                                  const Core::Property& description) {
    return Core::CoreManager::Instance().GetCodecFactory().CreateVideoEncoder(stream, description);
}

boost::intrusive_ptr<Proc::IEncoder> AudioEncoder(const boost::intrusive_ptr<Proc::IStreamAudio>& stream,
                                                  const Core::Property& description) {
    return Core::CoreManager::Instance().GetCodecFactory().CreateAudioEncoder(stream, description);
}

std::vector<boost::intrusive_ptr<Proc::IDataRaw>> ReadAll(Proc::IStreamRaw& stream) {
    stream.Prepare();
    std::vector<boost::intrusive_ptr<Proc::IDataRaw>> packets;
    while (auto packet = stream.ReadRaw())
        packets.push_back(packet);
    return packets;
}

namespace {

struct Track {
    Raw stream;
    boost::intrusive_ptr<Proc::IDataRaw> next;
};

Track* Earliest(std::vector<Track>& tracks) {
    Track* earliest = nullptr;
    for (Track& track : tracks)
        if (track.next && (!earliest || track.next->GetDecodeTime() < earliest->next->GetDecodeTime()))
            earliest = &track;
    return earliest;
}

} // namespace

void WriteFile(const boost::intrusive_ptr<Core::IDataOutput>& output, const std::string& container,
               const std::vector<Raw>& streams, const Core::Property& muxerOptions) {
    Core::Property tree;
    tree.SetChild(Conf::IFormatFile::TAG_CONTAINER_ID, container);
    for (const Core::Property& option : muxerOptions.GetChildren())
        tree[Conf::IFormatFile::TAG_MUXER_OPTIONS].SetChild(option);
    auto format = Conf::IFormatFile::Create();
    format->SetProperty(tree);
    const auto muxer = Core::CoreManager::Instance().GetMuxerFactory().CreateMuxer(format, output);
    std::vector<Track> tracks;
    for (const Raw& stream : streams) {
        stream->Prepare();
        boost::intrusive_ptr<IFormatCodec> codec;
        stream->GetFormatCodec(codec);
        muxer->AddStream(codec);
        tracks.push_back({stream, stream->ReadRaw()});
    }
    try {
        muxer->Open();
        while (Track* track = Earliest(tracks)) {
            muxer->Write(static_cast<int>(track - tracks.data()), track->next);
            track->next = track->stream->ReadRaw();
        }
        muxer->Finish();
    } catch (...) {
        muxer->Abort();
        throw;
    }
}

void WriteFile(const std::string& path, const std::string& container, const std::vector<Raw>& streams,
               const Core::Property& muxerOptions) {
    WriteFile(Core::DataOutputFF::Create(ioPath(path)), container, streams, muxerOptions);
}

} // namespace Fakes
