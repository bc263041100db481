// SPDX-License-Identifier: GPL-3.0-or-later
// How the engine writes numbers in a program whose locale writes them in its own way.
#include "Kestra/Proc/ProcessingError.h"
#include "fakes/streams/ExportDriver.h"
#include "fakes/streams/ScratchFolder.h"
#include "fakes/streams/SyntheticAudio.h"
#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <gtest/gtest.h>

using namespace Fakes;
using namespace Kestra;

namespace {

/// Decimals with a comma, as long as it lives.
class CommaLocale {
public:
    CommaLocale() {
        const std::string make = "localedef -i de_DE -f UTF-8 '" + folder.File("de_DE.UTF-8") + "' 2> /dev/null";
        made = std::system(make.c_str()) == 0;
        setenv("LOCPATH", folder.File("").c_str(), 1);
        made = setlocale(LC_NUMERIC, "de_DE.UTF-8") != nullptr && made;
    }
    ~CommaLocale() {
        setlocale(LC_NUMERIC, "C");
        unsetenv("LOCPATH");
    }
    CommaLocale(const CommaLocale&) = delete;
    CommaLocale& operator=(const CommaLocale&) = delete;

    bool rules() const { return made && std::to_string(0.5).find(',') != std::string::npos; }

private:
    const ScratchFolder folder;
    bool made = false;
};

std::string RefusalOfQuality(double quality) {
    Core::Property description = Description("mp3");
    description.SetChild(Conf::IFormatCodec::TAG_BITRATE_MODE, std::string("quality"));
    description.SetChild(Conf::IFormatCodec::TAG_QUALITY, quality);
    try {
        AudioEncoder(MakeAudio({}), description)->Prepare();
    } catch (...) {
        return Proc::ProcessingError::MakeProcessingErrorFromException(std::current_exception()).GetDescription();
    }
    return "nothing was refused";
}

} // namespace

TEST(Words, HaveTheirDecimalsBehindAPointInEveryLocale) {
    const CommaLocale locale;
    if (!locale.rules())
        GTEST_SKIP() << "no locale can be made here";
    EXPECT_EQ(RefusalOfQuality(2000.5), "libmp3lame refuses the quality 2000.5");
    EXPECT_EQ(RefusalOfQuality(2000), "libmp3lame refuses the quality 2000");
}
