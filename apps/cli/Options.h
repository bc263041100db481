// Cli::Options: the command line, read.
#pragma once

#include "ExportCore/TimelineOpening.h"
#include "KTime/KTime.h"
#include <optional>
#include <string>
#include <vector>

namespace Cli {

enum class ProgressStyle { Automatic, Bar, Plain, Json, None };

/// A value. Strings are the bytes of the command line, checked to be UTF-8.
struct Options {
    enum class Command { Render, Presets, Info, Validate };

    Command command = Command::Render;
    bool verbose = false;
    bool json = false;

    std::vector<std::string> inputs;
    std::string preset;
    std::string output;
    std::optional<std::string> quality;
    std::vector<std::string> settings;
    std::optional<KTime> in;
    std::optional<KTime> out;
    std::string branding; ///< empty: none
    bool overwrite = false;
    Kestra::Proc::MediaLimits mediaLimits;
    ProgressStyle progress = ProgressStyle::Automatic;

    std::optional<std::string> tag;

    ExportCore::TimelineOptions timelines;

    /// Reads the command line. Nothing when the program has to end at once, with `exitCode`: help or the version was
    /// asked for and has been printed, or the usage was wrong and one line on standard error says how.
    static std::optional<Options> read(int argc, char** argv, int& exitCode);
};

} // namespace Cli
