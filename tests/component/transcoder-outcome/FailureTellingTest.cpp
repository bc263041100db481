// SPDX-License-Identifier: GPL-3.0-or-later
// Failures whose telling fails.
#include "Kestra/Proc/ProcException.h"
#include "component/transcoder-outcome/OutcomeFixture.h"
#include <stdexcept>

namespace {

std::exception_ptr errorOfTelling;

} // namespace

/// In place of the preset library's: the definition in the program comes first.
std::string Preset::formattedPresetInfo() const {
    if (errorOfTelling)
        std::rethrow_exception(errorOfTelling);
    return "id = " + id() + '\n';
}

class FailureTelling : public Outcome {
protected:
    ~FailureTelling() override { errorOfTelling = nullptr; }

    const std::exception_ptr failure =
        std::make_exception_ptr(Kestra::Proc::ProcException(Kestra::Proc::TranscodingError::DiskFull, "disk full"));
};

TEST_F(FailureTelling, DescribesItsOwnExceptionInPlaceOfTheFailures) {
    start();
    errorOfTelling = std::make_exception_ptr(std::runtime_error("unspeakable preset"));
    Q_EMIT runner().processingFailed(failure);
    EXPECT_EQ(tags(), (std::vector<int>{395, 401})) << "the preset's line is missing";
    EXPECT_NE(log.lines.at(1).text.find("unspeakable preset"), std::string::npos) << log.lines.at(1).text;
    EXPECT_EQ(log.lines.at(1).text.find("disk full"), std::string::npos) << log.lines.at(1).text;
}

TEST_F(FailureTelling, OfAForeignTypeEndsInSilence) {
    start();
    errorOfTelling = std::make_exception_ptr(42);
    Q_EMIT runner().startFailed(failure);
    EXPECT_EQ(tags(), std::vector<int>{377});
}

TEST_F(FailureTelling, KeepsNothingFromBeingTold) {
    start();
    errorOfTelling = std::make_exception_ptr(std::runtime_error("unspeakable preset"));
    Q_EMIT runner().processingFailed(failure);
    EXPECT_EQ(emissions, (Signals{"failed", "stopped"}));
    EXPECT_EQ(error.GetCode(), Kestra::Proc::TranscodingError::DiskFull) << "the failure itself is what is told";
    EXPECT_FALSE(QFileInfo::exists(output()));
}
