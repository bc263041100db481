// SPDX-License-Identifier: GPL-3.0-or-later
// Any bytes as an archive of a timeline and its media: it is refused with an error, or what it holds is in order;
// nothing is written but below the folder for it, and nothing stays there.
#include "Timeline/Reader/OtioReader.h"
#include "fuzz/TimelineOrder.h"
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>

namespace {

namespace fs = std::filesystem;
constexpr const char* CUT = "cut.otioz";
constexpr const char* UNPACKED = "unpacked";
constexpr const char* WITNESS = "witness"; ///< what leads out of the archive would find it
constexpr const char* WORDS = "not to be touched";

struct Place {
    Place() {
        folder.write(WITNESS, WORDS);
        fs::create_directory(folder.path(UNPACKED));
        ::setenv("TMPDIR", folder.path(UNPACKED).c_str(), 1);
    }
    void requireUntouched() const {
        std::ifstream file(folder.path(WITNESS));
        const std::string words{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
        Fuzz::require(words == WORDS, "nothing is written outside");
        const auto count = std::distance(fs::directory_iterator(folder.path({})), fs::directory_iterator());
        Fuzz::require(count == 3, "nothing is made outside");
    }
    void requireNothingUnpacked() const {
        Fuzz::require(fs::is_empty(folder.path(UNPACKED)), "what was unpacked goes with the document");
    }
    const Fuzz::Folder folder;
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const Place place;
    Fuzz::Bytes bytes(data, size);
    // The first byte says how it is read.
    const unsigned how = bytes.next();
    const auto options = Fuzz::readingOptions((how & 1) != 0, (how & 2) != 0);
    place.folder.write(CUT, bytes.rest());
    {
        const auto reading = Timeline::OtioReader().read(Kestra::ioPath(place.folder.path(CUT)), options);
        Fuzz::requireOrder(reading);
        place.requireUntouched();
    }
    place.requireNothingUnpacked();
    return 0;
}
