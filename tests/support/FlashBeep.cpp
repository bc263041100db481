// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/FlashBeep.h"

#include "support/MediaCache.h"
#include "support/Starter.h"
#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <set>
#include <stdexcept>
#include <sys/wait.h>
#include <system_error>

namespace TestMedia {
namespace {

std::string quoted(const std::string& argument) {
    std::string text = "'";
    for (const char c : argument)
        text += c == '\'' ? std::string("'\\''") : std::string(1, c);
    return text + "'";
}

std::string text(const boost::rational<long long>& value) {
    return std::to_string(value.numerator()) + "/" + std::to_string(value.denominator());
}

/// Small pictures, enlarged: computing them pixel by pixel is slow.
std::string pictureFilter(const FlashBeep& media) {
    const std::string isFlash =
        "lt(mod(N," + std::to_string(media.period) + ")," + std::to_string(media.flashFrames) + ")";
    std::string filter = "nullsrc=s=16x16:r=" + text(media.rate) + ",format=yuv444p,geq=lum='if(" + isFlash + "," +
                         std::to_string(FLASH_LUMA) +
                         ",40+8*mod(N,16))':cb=128:cr=128,trim=end_frame=" + std::to_string(media.frames);
    if (media.variableFrameRate)
        filter += ",select='eq(mod(n," + std::to_string(media.period) + "),0)+not(between(mod(n,7),3,4))'";
    return filter + ",scale=" + std::to_string(media.width) + ":" + std::to_string(media.height) +
           ":flags=neighbor,setsar=1,format=" + media.pixelFormat;
}

long long soundLength(const FlashBeep& media) {
    if (media.samples >= 0)
        return media.samples;
    if (media.frames == 0)
        return 4LL * media.sampleRate;
    return std::llround(boost::rational_cast<double>(media.frames / media.rate) * media.sampleRate);
}

std::string soundFilter(const FlashBeep& media) {
    const boost::rational<long long> period = media.period * media.sampleRate / media.rate;
    // The distance of sample n from the beep before it, in integers as far as doubles are.
    const std::string distance = "mod(n*" + std::to_string(period.denominator()) + "," +
                                 std::to_string(period.numerator()) + ")/" + std::to_string(period.denominator());
    const std::string voice = "if(lt(" + distance + "," + std::to_string(media.sampleRate / 10) +
                              "),0.8*cos(2*PI*1000*(" + distance + ")/" + std::to_string(media.sampleRate) + "),0)";
    std::string voices = voice;
    for (int channel = 1; channel < media.channels; ++channel)
        voices += "|" + voice;
    return "aevalsrc=exprs='" + voices + "':s=" + std::to_string(media.sampleRate) +
           ",atrim=end_sample=" + std::to_string(soundLength(media));
}

} // namespace

int numberOfLuma(double luma) {
    const long number = std::lround((luma - lumaOfFrame(0)) / 8);
    return number >= 0 && number < 16 && std::abs(luma - lumaOfFrame(number)) < 3 ? static_cast<int>(number) : -1;
}

namespace {

void runProgram(const std::vector<std::string>& arguments) {
    std::vector<std::string> all{"-hide_banner", "-nostdin", "-loglevel", "error", "-y"};
    all.insert(all.end(), arguments.begin(), arguments.end());
    const auto process = TestSupport::ffmpeg().run(all);
    if (WIFEXITED(process->status) && WEXITSTATUS(process->status) == 0)
        return;
    std::string command = "ffmpeg";
    for (const std::string& argument : all)
        command += " " + quoted(argument);
    throw std::runtime_error(command + "\n" + process->output + process->errors);
}

/// The files that runFfmpeg() has made in this process.
std::set<std::string>& madeHere() {
    static std::set<std::string> paths;
    return paths;
}

/// Whether it is worth keeping: what is made of an export, say, is another one in every run.
bool isMadeOfOwnFiles(const std::vector<std::string>& arguments) {
    // A filter may be longer than any path.
    std::error_code noPath;
    for (std::size_t at = 1; at < arguments.size(); ++at)
        if (arguments[at - 1] == "-i" && std::filesystem::exists(arguments[at], noPath) &&
            !madeHere().count(arguments[at]))
            return false;
    return true;
}

} // namespace

void runFfmpeg(const std::vector<std::string>& arguments) {
    const MediaCache cache = MediaCache::ofTheBuild();
    const std::string key = isMadeOfOwnFiles(arguments) ? MediaCache::keyOf(arguments) : std::string();
    if (!cache.fetch(key, arguments.back())) {
        runProgram(arguments);
        cache.keep(key, arguments.back());
    }
    madeHere().insert(arguments.back());
}

void makeFlashBeep(const std::string& path, const FlashBeep& media) {
    std::vector<std::string> arguments;
    if (media.frames > 0)
        arguments.insert(arguments.end(), {"-f", "lavfi", "-i", pictureFilter(media)});
    if (media.sampleRate > 0)
        arguments.insert(arguments.end(), {"-f", "lavfi", "-i", soundFilter(media)});
    if (media.frames > 0) {
        arguments.insert(arguments.end(), {"-c:v", media.videoCodec, "-fps_mode", "passthrough"});
        if (media.videoCodec == "libx264")
            arguments.insert(arguments.end(), {"-preset", "ultrafast", "-crf", "16"});
    }
    if (media.sampleRate > 0)
        arguments.insert(arguments.end(), {"-c:a", media.audioCodec});
    arguments.insert(arguments.end(), media.more.begin(), media.more.end());
    arguments.push_back(path);
    runFfmpeg(arguments);
}

Folder::Folder() {
    std::string name = (std::filesystem::temp_directory_path() / "editorexport-test-XXXXXX").string();
    if (!mkdtemp(name.data()))
        throw std::runtime_error("cannot create " + name);
    path = name;
}

Folder::~Folder() {
    std::error_code ignored;
    std::filesystem::remove_all(path, ignored);
}

} // namespace TestMedia
