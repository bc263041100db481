// SPDX-License-Identifier: GPL-3.0-or-later
// Any bytes as what a first pass has left: they are refused by the name of their file, or a second pass can go by them.
#include "Kestra/FF/Encode/StatisticsManifest.h"
#include "Kestra/FF/Encode/TwoPassLog.h"
#include "Kestra/Proc/ProcException.h"
#include "fuzz/Fuzz.h"
#include <cstring>

extern "C" {
#include <libavcodec/avcodec.h>
}

using namespace Kestra::FF;

namespace {

constexpr const char* LOG = "log";
constexpr const char* MANIFEST = "log.manifest";
constexpr const char* SEPARATOR = "--\n";

const AVCodec& codecOf(unsigned which) {
    constexpr const char* names[] = {"mpeg4", "libx264", "libvpx-vp9", "mpeg2video"};
    const AVCodec* codec = avcodec_find_encoder_by_name(names[which % 4]);
    Fuzz::require(codec != nullptr, "the codec is there");
    return *codec;
}

/// What an encoder does with it, up to the opening of the codec, for the number of frames that it tells or a few more.
void secondPass(const std::string& path, const AVCodec& codec, std::int64_t bitrate) {
    Kestra::Proc::SettingsTwoPassEncoding settings;
    settings.SetLogFile(path);
    settings.firstPass = false;
    TwoPassLog log(settings, codec);
    const CodecContextHandle context(avcodec_alloc_context3(&codec));
    context->bit_rate = bitrate;
    context->framerate = {25, 1};
    context->qmin = 2;
    context->qmax = 31;
    log.Configure(*context);
    const FrameHandle frame(av_frame_alloc());
    const PacketHandle packet(av_packet_alloc());
    for (packet->pts = 0; packet->pts < 300; ++packet->pts) {
        frame->pts = packet->pts;
        log.Guide(*frame);
        packet->size = static_cast<int>(packet->pts) * 7;
        log.Note(*packet);
    }
    packet->size = 0;
}

} // namespace

// Which codec, bits of the bitrate, how the manifest is made; then the log, a separator and the manifest.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const Fuzz::Folder folder;
    Fuzz::Bytes bytes(data, size);
    const AVCodec& codec = codecOf(bytes.next());
    const std::int64_t bitrate = std::int64_t{1} << bytes.next() % 40;
    const unsigned way = bytes.next() % 3;
    folder.write(LOG, bytes.upTo(SEPARATOR));
    const std::string manifest = bytes.rest();
    const std::string path = folder.path(LOG);
    if (way == 0) {
        folder.write(MANIFEST, manifest);
    } else {
        // A good one, but for the number of frames, or as many as there are lines to read.
        StatisticsManifest::Write(path,
                                  way == 1 ? static_cast<std::int64_t>(manifest.size()) : std::atoll(manifest.c_str()));
    }
    try {
        secondPass(path, codec, bitrate);
    } catch (const Kestra::Proc::ProcException& error) {
        Fuzz::require(*error.what() != '\0', "a failure has words");
    }
    return 0;
}
