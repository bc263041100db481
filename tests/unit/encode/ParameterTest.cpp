// SPDX-License-Identifier: GPL-3.0-or-later
// Parameters that an encoder takes as one option of its own.
#include "unit/encode/EncodeFixture.h"

namespace EncodeTest {
namespace {

using Kestra::Core::Property;
using Kestra::Proc::TranscodingError;

Kestra::Proc::ProcessingError FailureWith(const char* codec, const char* option, const char* name, const char* value) {
    Property description = Fakes::Description(codec);
    Fakes::Options(description).SetChild(option).SetChild(name, std::string(value));
    return Failure([&] { Fakes::VideoEncoder(Fakes::MakeVideo({}), description)->Prepare(); });
}

void ExpectRefused(const char* codec, const char* option, const char* name, const char* value) {
    const auto failure = FailureWith(codec, option, name, value);
    EXPECT_EQ(failure.GetCode(), TranscodingError::CodecRefused) << option << " " << name;
    EXPECT_NE(failure.GetDescription().find(name), std::string::npos) << failure.GetDescription();
    EXPECT_NE(failure.GetDescription().find(option), std::string::npos) << failure.GetDescription();
}

TEST(EncoderParameters, ThatAreUnknownAreRefusedByName) {
    ExpectRefused("h264", "x264-params", "subbme", "7");
    ExpectRefused("hevc", "x265-params", "aq-mood", "2");
}

TEST(EncoderParameters, WithAValueThatIsNoneAreRefusedByName) {
    ExpectRefused("h264", "x264-params", "me", "wonderful");
    ExpectRefused("hevc", "x265-params", "aq-mode", "wonderful");
}

TEST(EncoderParameters, ThatAreKnownAreTaken) {
    EXPECT_EQ(FailureWith("h264", "x264-params", "subme", "7").GetCode(), TranscodingError::None);
    EXPECT_EQ(FailureWith("hevc", "x265-params", "aq-mode", "2").GetCode(), TranscodingError::None);
}

} // namespace
} // namespace EncodeTest
