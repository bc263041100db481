#include "Kestra/FF/TwoPassLog.h"

#include "Kestra/FF/Error.h"
#include <array>
#include <cerrno>
#include <cstring>

namespace Kestra::FF {

using Proc::TranscodingError;

TwoPassLog::Kind TwoPassLog::KindOf(const AVCodec& codec) {
    if (std::strcmp(codec.name, "libx264") == 0)
        return Kind::X264;
    if (std::strcmp(codec.name, "libx265") == 0)
        return Kind::X265;
    // MPEG-4 and MPEG-2 are left out on purpose: when the bitrate of a second pass is too low for its statistics, that
    // encoder library frees its tables twice, which ends the process.
    for (const char* name : {"libvpx", "libvpx-vp9", "libaom-av1"})
        if (std::strcmp(codec.name, name) == 0)
            return Kind::Statistics;
    return Kind::None;
}

TwoPassLog::TwoPassLog(const Proc::SettingsTwoPassEncoding& settings, const AVCodec& codec)
    : path(settings.GetLogFile())
    , firstPass(settings.firstPass)
    , kind(KindOf(codec)) {
    if (kind == Kind::None)
        return;
    file.reset(std::fopen(path.c_str(), firstPass ? "wbe" : "rbe"));
    if (!file)
        ThrowFileError("cannot be opened");
    // The others open it themselves; they would not say what is wrong with it.
    if (kind != Kind::Statistics)
        file.reset();
    else if (!firstPass)
        Read();
}

void TwoPassLog::ThrowFileError(const char* what) const {
    ThrowError(AVERROR(errno), firstPass ? TranscodingError::OutputNotWritable : TranscodingError::SourceUnreadable,
               "The log of the first pass \"" + path + "\" " + what);
}

void TwoPassLog::Read() {
    std::array<char, 65536> part;
    std::size_t size = 0;
    while ((size = std::fread(part.data(), 1, part.size(), file.get())) > 0)
        statistics.append(part.data(), size);
    if (std::ferror(file.get()))
        ThrowFileError("cannot be read");
    file.reset();
}

bool TwoPassLog::IsSilent() const {
    return kind == Kind::Statistics;
}

void TwoPassLog::Configure(AVCodecContext& context) const {
    if (kind == Kind::X265) {
        // The path goes in as a value of its own: in one string of options a colon would end it.
        Dictionary parameters;
        Check(av_opt_get_dict_val(context.priv_data, "x265-params", 0, parameters.Address()),
              TranscodingError::CodecRefused, "x265-params");
        parameters.Set("pass", firstPass ? "1" : "2");
        parameters.Set("stats", path.c_str());
        Check(av_opt_set_dict_val(context.priv_data, "x265-params", *parameters.Address(), 0),
              TranscodingError::CodecRefused, "x265-params");
        return;
    }
    if (kind == Kind::None)
        return;
    context.flags |= firstPass ? AV_CODEC_FLAG_PASS1 : AV_CODEC_FLAG_PASS2;
    if (kind == Kind::X264)
        Check(av_opt_set(context.priv_data, "stats", path.c_str(), 0), TranscodingError::CodecRefused, "stats");
    else if (!firstPass)
        context.stats_in = const_cast<char*>(statistics.c_str());
}

void TwoPassLog::Collect(const AVCodecContext& context) {
    if (file && context.stats_out && std::fputs(context.stats_out, file.get()) < 0)
        ThrowFileError("cannot be written");
}

void TwoPassLog::Close() {
    if (!file)
        return;
    if (std::fclose(file.release()) != 0)
        ThrowFileError("cannot be completed");
}

} // namespace Kestra::FF
