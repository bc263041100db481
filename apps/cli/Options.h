// Cli::Options: the command line, read.
#pragma once

#include "ExportCore/TimePoint.h"
#include "ExportCore/TimelineOpening.h"
#include "ExportCore/TrackOptions.h"
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

    std::vector<std::string> inputs; ///< of presets their ids
    std::string preset;              ///< an id or a tag; empty: the output's extension tells
    std::string output;
    std::optional<std::string> quality;
    std::vector<std::string> settings;
    std::optional<ExportCore::TimePoint> in;
    std::optional<ExportCore::TimePoint> out;
    std::optional<ExportCore::TimePoint> duration;
    std::string branding; ///< empty: none
    ExportCore::TrackOptions tracks;
    bool overwrite = false;
    Kestra::Proc::MediaLimits mediaLimits;
    ProgressStyle progress = ProgressStyle::Automatic;

    std::optional<std::string> tag;
    bool listTags = false;

    ExportCore::TimelineOptions timelines;

    /// Reads the command line. Nothing when the program has to end at once, with `exitCode`: help or the version was
    /// asked for and has been printed, or the usage was wrong and one line on standard error says how.
    static std::optional<Options> read(int argc, char** argv, int& exitCode);
};

} // namespace Cli
