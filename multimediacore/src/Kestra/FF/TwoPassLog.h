// Kestra::FF::TwoPassLog: the statistics that a first pass leaves to the second.
#pragma once

#include "Kestra/FF/Handles.h"
#include "Kestra/Proc/Settings/SettingsTwoPassEncoding.h"
#include <cstdio>
#include <memory>
#include <string>

namespace Kestra::FF {

/// x264 and x265 read and write the file themselves; the others hand their statistics over. Outlives the codec context
/// that it has configured.
class TwoPassLog {
public:
    /// Reads the file in the second pass, creates it in the first. Throws ProcException that names the file.
    TwoPassLog(const Proc::SettingsTwoPassEncoding& settings, const AVCodec& codec);

    bool IsFirstPass() const { return firstPass; }
    /// Whether the codec has passes at all. One that has none does nothing in the first and a plain run in the second.
    bool IsSupported() const { return kind != Kind::None; }
    /// Whether the first pass gives statistics alone and no packets.
    bool IsSilent() const;
    void Configure(AVCodecContext& context) const;
    /// First pass, at its end: takes over what the encoder has to say.
    void Collect(const AVCodecContext& context);
    /// First pass: everything has been written. Throws ProcException when it could not be.
    void Close();

private:
    enum class Kind { None, X264, X265, Statistics };
    struct FileCloser {
        void operator()(std::FILE* open) const noexcept { std::fclose(open); }
    };

    static Kind KindOf(const AVCodec& codec);
    void Read();
    [[noreturn]] void ThrowFileError(const char* what) const;

    const std::string path;
    const bool firstPass;
    const Kind kind;
    std::string statistics;
    std::unique_ptr<std::FILE, FileCloser> file;
};

} // namespace Kestra::FF
