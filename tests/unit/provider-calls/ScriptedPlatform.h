// SPDX-License-Identifier: GPL-3.0-or-later
// Catalogue, settings, completions of descriptions and bitrate limits that answer by a script and write down who asked.
#pragma once

#include "EditorPreset/Preset.h"
#include <cstdint>
#include <deque>
#include <map>
#include <string>
#include <vector>

struct ScriptedPlatform {
    std::vector<std::string> log;
    /// Of the completions of descriptions alone; the presets themselves ask for some when they are compared.
    std::vector<std::string> helperLog;

    bool loads = true;
    std::deque<std::string> tags;
    /// Row by row of what is answered for a tag; the last one stays.
    std::map<std::string, std::deque<std::size_t>> defaults;
    std::map<std::string, std::deque<Preset>> presets;
    /// By the id that is asked for, which need not be the preset's own.
    std::map<std::string, Preset> presetById;
    std::map<std::string, std::map<std::string, Kestra::Core::Property>> modifiers;
    std::string group;
    std::string id;
    std::int64_t minimum = 0;
    std::int64_t standard = 0;
    std::int64_t maximum = 0;
    /// The call whose log line begins so throws std::runtime_error with that line.
    std::string throwing;

    /// Throws when the script says so.
    void call(const std::string& line);
    void callHelper(const std::string& line);
    static ScriptedPlatform& instance();

private:
    void throwIfScripted(const std::string& line) const;
};
