// SPDX-License-Identifier: GPL-3.0-or-later
// Sweep::ReferenceExport: small exports that a sweep runs thousands of times, and what is left after each.
#pragma once

#include "ExportCore/ExportRequest.h"
#include "fakes/chunks/SoundChunks.h"
#include "support/FlashBeep.h"
#include <QString>
#include <string>
#include <vector>

namespace Sweep {

struct Reference {
    const char* name;
    const char* preset;
    const char* branding;
    std::vector<std::string> settings;
    int passes = 1;
    bool isLong = false;    ///< twice as long
    bool isVariant = false; ///< of another one: what that has in common with it is looked at in the long form alone
    Kestra::Fakes::SoundChunks chunks{}; ///< for a CountedEngine
    bool hasAllSounds = false;           ///< of three tracks
};

/// One pass with an outro, two passes, sound alone: ten pictures of 64x36, or two seconds of sound. Then sound in four
/// chunks on two threads, and two passes whose first one looks at halves, and three tracks of sound.
const std::vector<Reference>& references();
/// For the names of tests: "OnePassWithOutro".
std::string shortNameOf(int reference);

/// Clips for all of them, and a place with a file that nothing but a good end may touch.
class Place {
public:
    Place();

    ExportCore::ExportRequest request(const Reference& reference) const;
    /// What is wrong with the output's folder after a run that did not come to a good end; empty when nothing is.
    std::string complaint() const;
    void restore() const;

private:
    const TestMedia::Folder media;
    const TestMedia::Folder folder;

public:
    const std::string clip;
    const std::string longClip;
    const std::string soundsClip; ///< with three tracks of sound
    const std::string output;
};

/// What a process holds, counted.
struct Holdings {
    int descriptors = 0;
    int threads = 0;
    int temporaryFolders = 0;

    static Holdings now();
    /// Waits, as threads end a moment after they were joined in the system's list; true when nothing more is held than
    /// `before`.
    static bool returnTo(const Holdings& before);
};

std::ostream& operator<<(std::ostream& out, const Holdings& holdings);

/// As many runs as the variable SWEEP_COUNT says; `usual` without one.
int countOr(int usual);
/// Whether there is such a variable.
bool isLongForm();

} // namespace Sweep
