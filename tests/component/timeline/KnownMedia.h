// SPDX-License-Identifier: GPL-3.0-or-later
// Media of which every picture and every sample is known.
#pragma once

#include "Kestra/Base/Quantity.h"
#include "support/FlashBeep.h"
#include <boost/rational.hpp>
#include <string>
#include <vector>

namespace TimelineTests {

using Rate = boost::rational<long long>;

/// In steps of 8 bits; `alpha` from 0 to 1.
struct Colour {
    double y;
    double u;
    double v;
    double alpha;
};

/// Pictures of 4 by 3 blocks, which are the bits of their number and of the medium's.
struct KnownPictures {
    int id;
    std::string path{};
    int width;
    int height;
    Rate rate;
    int frames;
    std::string pixelFormat; ///< "yuva...": with transparency, the more the further right
    std::vector<std::string> codec;

    bool hasAlpha() const { return pixelFormat.rfind("yuva", 0) == 0; }
    /// The frame shown at a time of the medium: the first one before it begins, the last one after it ends.
    int frameAt(Kestra::Ticks time) const;
    Colour colourOf(int frame, int column, int row) const;
};
constexpr int COLUMNS = 4;
constexpr int ROWS = 3;

/// A tone, the same in both channels, that begins at sample 0.
struct KnownSound {
    int id;
    std::string path{};
    int rate;
    long long samples;
    std::string codec;

    double frequency() const { return 300 + 137.0 * id; }
    /// At a time in samples of the medium; 0 where it has none.
    double valueAt(double sample) const;
};
constexpr double LOUDNESS = 0.2;

/// Makes them in a folder of its own.
class KnownMedia {
public:
    KnownMedia();

    /// Where the media lie.
    std::string folderPath() const { return folder / ""; }
    /// The path of a file there with that content.
    std::string fileOf(const std::string& name, const std::string& content) const;
    const std::vector<KnownPictures>& pictures() const { return allPictures; }
    const std::vector<KnownSound>& sounds() const { return allSounds; }
    const KnownPictures& picturesOf(const std::string& path) const;
    const KnownSound& soundOf(const std::string& path) const;

private:
    TestMedia::Folder folder;
    std::vector<KnownPictures> allPictures;
    std::vector<KnownSound> allSounds;
};

} // namespace TimelineTests
