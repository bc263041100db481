// SPDX-License-Identifier: GPL-3.0-or-later
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
    enum class Command { Render, Queue, Presets, PresetFiles, Info, Validate, Version, Describe };

    Command command = Command::Render;
    std::vector<std::string> words; ///< all of them, as they were given, without the program's name
    bool verbose = false;
    bool quiet = false; ///< errors alone are told
    std::string log;    ///< a file that keeps all that is told; empty: none
    bool json = false;

    std::vector<std::string> inputs; ///< of presets their ids
    std::string preset;              ///< an id or a tag; empty: the output's extension tells
    std::string output;
    std::optional<std::string> quality;
    std::vector<std::string> settings;
    std::optional<ExportCore::TimePoint> in;
    std::optional<ExportCore::TimePoint> out;
    std::optional<ExportCore::TimePoint> duration;
    std::optional<double> loudness;
    std::string branding; ///< empty: none
    ExportCore::TrackOptions tracks;
    bool overwrite = false;
    bool dryRun = false;
    bool each = false;  ///< every input is an export of its own into the folder `output`
    std::string report; ///< a file to be written; empty: none
    Kestra::Proc::MediaLimits mediaLimits;
    ProgressStyle progress = ProgressStyle::Automatic;

    std::string queueFile;
    std::string described; ///< what Describe prints: "presets", "tags", "names" (both) or "qualities"

    enum class PresetAction { Export, Import, Validate, Diff };
    PresetAction presetAction = PresetAction::Export;
    std::optional<std::string> tag;
    bool listTags = false;

    ExportCore::TimelineOptions timelines;
    std::vector<std::string> timelineOptions; ///< the names of those that were given

    /// A sentence on options that nothing but a timeline knows, where no input is one; else empty.
    std::string noteWithoutEffect() const;

    /// One job of a queue: the words behind "render". Throws ExportCore::Refusal.
    static Options ofJob(const std::vector<std::string>& words);

    /// Reads the command line. Nothing when the program has to end at once, with `exitCode`: help or the version was
    /// asked for and has been printed, or the usage was wrong and one line on standard error says how.
    static std::optional<Options> read(int argc, char** argv, int& exitCode);
};

} // namespace Cli
