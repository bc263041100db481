// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/FF/Demux/InputFormats.h"

#include <algorithm>
#include <iterator>
#include <string_view>

namespace Kestra::FF {

namespace {

// Names as libav gives them, in alphabetical order. A kind that is missing here is refused, not guessed at: every
// reader that is left out is one that a hostile file cannot reach.
constexpr std::string_view MEDIA_FORMATS[] = {
    "aac",           "ac3",          "aiff",         "amr",         "amrnb",
    "amrwb",         "ape",          "apng",         "aptx",        "aptx_hd",
    "asf",           "asf_o",        "au",           "av1",         "avi",
    "avs2",          "avs3",         "bmp_pipe",     "caf",         "cavsvideo",
    "cine",          "cri_pipe",     "daud",         "dds_pipe",    "dhav",
    "dirac",         "dnxhd",        "dpx_pipe",     "dsf",         "dss",
    "dts",           "dtshd",        "dv",           "eac3",        "exr_pipe",
    "filmstrip",     "flac",         "flic",         "flv",         "g722",
    "gem_pipe",      "gif",          "gif_pipe",     "gsm",         "gxf",
    "h261",          "h263",         "h264",         "hevc",        "ico",
    "iff",           "ilbc",         "image2",       "ipu",         "ircam",
    "ivf",           "j2k_pipe",     "jpeg_pipe",    "jpegls_pipe", "jpegxl_pipe",
    "kux",           "live_flv",     "loas",         "lxf",         "m4v",
    "matroska,webm", "mjpeg",        "mjpeg_2000",   "mlp",         "mov,mp4,m4a,3gp,3g2,mj2",
    "mp3",           "mpc",          "mpc8",         "mpeg",        "mpegts",
    "mpegvideo",     "mxf",          "nistsphere",   "nsv",         "nut",
    "nuv",           "obu",          "ogg",          "oma",         "pam_pipe",
    "pbm_pipe",      "pcx_pipe",     "pfm_pipe",     "pgm_pipe",    "pgmyuv_pipe",
    "pgx_pipe",      "phm_pipe",     "photocd_pipe", "pictor_pipe", "png_pipe",
    "ppm_pipe",      "psd_pipe",     "pva",          "pvf",         "qcp",
    "qdraw_pipe",    "qoi_pipe",     "r3d",          "rm",          "s337m",
    "ser",           "sgi_pipe",     "shn",          "smjpeg",      "sox",
    "spdif",         "sunrast_pipe", "swf",          "tak",         "tiff_pipe",
    "truehd",        "tta",          "ty",           "vc1",         "vc1test",
    "voc",           "vqf",          "w64",          "wav",         "webp_pipe",
    "wsd",           "wtv",          "wv",           "xbm_pipe",    "xpm_pipe",
    "xwd_pipe",      "xwma",         "yuv4mpegpipe"};

struct Reason {
    std::string_view format;
    const char* words;
};

constexpr const char* PLAYLIST = "a playlist, which names other files instead of holding media";

constexpr Reason REASONS[] = {
    {"concat", PLAYLIST},
    {"dash", PLAYLIST},
    {"hls", PLAYLIST},
    {"imf", PLAYLIST},
    {"rtsp", PLAYLIST},
    {"sdp", PLAYLIST},
    {"webm_dash_manifest", PLAYLIST},
    {"vobsub", "an index of subtitles that stand in another file"},
    {"svg_pipe", "a drawing (SVG), not a picture; it has to be made one first"},
    {"libgme", "music as instructions for an instrument, not as sound"},
    {"libopenmpt", "music as instructions for an instrument, not as sound"},
};

// libav draws text files as pictures of terminals; nobody who opens one means that.
constexpr std::string_view TEXT_FORMATS[] = {"adf", "bin", "idf", "tty", "xbin"};

} // namespace

bool IsMediaFormat(const AVInputFormat& format) {
    return std::binary_search(std::begin(MEDIA_FORMATS), std::end(MEDIA_FORMATS), std::string_view(format.name));
}

std::string WhyNotOpened(const AVInputFormat& format) {
    const std::string_view name(format.name);
    if (std::find(std::begin(TEXT_FORMATS), std::end(TEXT_FORMATS), name) != std::end(TEXT_FORMATS))
        return "it is not a media file";
    // "piped svg sequence" would tell nobody anything.
    const bool known = format.long_name && name != "svg_pipe";
    const std::string kind = known ? " (" + std::string(format.long_name) + ")" : std::string();
    for (const Reason& reason : REASONS)
        if (reason.format == name)
            return std::string("it is ") + reason.words + kind;
    return "it is no media file of a kind that is opened" + kind;
}

} // namespace Kestra::FF
