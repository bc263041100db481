// SPDX-License-Identifier: GPL-3.0-or-later
// ExportCore::FirstPictures: what later inputs lose as the first pictures decide for all.
#pragma once

#include "EditorPreset/Preset.h"
#include "EditorProject/SeenPictures.h"
#include "ExportCore/ExportRequest.h"
#include <boost/rational.hpp>
#include <string>
#include <vector>

namespace ExportCore {

/// Of an export whose frame and rate are those of the first of its media, as far as the preset takes them. Each answers
/// a sentence with the way out, empty where nothing is lost or the user has chosen otherwise.
class FirstPictures {
public:
    /// `pictures` are borrowed, as the others.
    FirstPictures(const std::vector<Project::SeenPictures>& pictures, const ExportRequest& request,
                  const Preset& preset);

    /// Which of the others are scaled down to the first ones' size, though the preset would take more.
    std::string noteOnSize() const;
    /// Of which of the others pictures are left out or shown for unequal times in the file's `rate`, which is that of
    /// the first ones; 0 where it is another.
    std::string noteOnRate(const boost::rational<long long>& rate) const;

private:
    bool isGiven(const std::vector<std::string>& keys) const;
    bool hasOthers() const;

    const std::vector<Project::SeenPictures>& pictures;
    const ExportRequest& request;
    const Preset& preset;
};

} // namespace ExportCore
