// SPDX-License-Identifier: GPL-3.0-or-later
#include "../sync/Exported.h"
#include "ExportCore/ExportJob.h"
#include "ExportCore/OutroPictures.h"
#include "ExportCore/Refusal.h"
#include "ExportCore/RequestCheck.h"
#include "support/FileHelpers.h"
#include "support/FlashBeep.h"
#include "support/OutroResource.h"
#include "support/WaitUntil.h"
#include <QPixmap>
#include <algorithm>
#include <gtest/gtest.h>

using ExportCore::ExportOutcome;
using ExportCore::ExportRequest;
using ExportCore::OutroPictures;
using TestSupport::OutroResource;
using Status = ExportOutcome::Status;

namespace {

class OutroRequest : public ::testing::Test {
protected:
    OutroRequest() { TestMedia::makeFlashBeep(place / "clip.mov", {}); }

    ExportRequest request(const char* outro) const {
        ExportRequest result = TestExport::requestOf(place / "clip.mov", "mp4-h264-480p", place / "out.mp4");
        result.brandingName = QString::fromUtf8(outro);
        return result;
    }
    void expectNothingWritten() const {
        EXPECT_EQ(TestFiles::namesIn(place / ""), QStringList(QStringLiteral("clip.mov")));
    }

    const TestMedia::Folder place;
};

TEST_F(OutroRequest, KnowsTheOutrosOfTheApplication) {
    const OutroResource outros({{QStringLiteral("mine"), OutroResource::flat(4, 4, 0xffffffff)}});
    EXPECT_EQ(OutroPictures::names(), (std::vector<std::string>{"demo", "mine"}));
    EXPECT_NO_THROW(OutroPictures::require(QStringLiteral("mine")));
    EXPECT_NO_THROW(OutroPictures::require(QString()));
    EXPECT_EQ(OutroPictures::length(QStringLiteral("mine")), KTime(5000));
    EXPECT_EQ(OutroPictures::length(QStringLiteral("yours")), KTime(0));
    EXPECT_EQ(OutroPictures::length(QString()), KTime(0));
}

TEST_F(OutroRequest, OfAnUnknownNameIsRefusedWithTheNamesThatThereAre) {
    for (const std::string name : {"dmeo", "../demo", "demo/", "Demo"}) {
        const ExportOutcome outcome = TestExport::run(request(name.c_str()));
        EXPECT_EQ(outcome.status, Status::Refused) << name;
        EXPECT_EQ(outcome.error.GetDescription(), "There is no outro \"" + name + "\"; there are: demo" +
                                                      (name == "../demo" ? "" : "; did you mean demo?"));
    }
    expectNothingWritten();
}

TEST_F(OutroRequest, OfWhatIsNoPictureIsRefused) {
    const OutroResource outros({{QStringLiteral("text"), "This is no picture.\n"}});
    const ExportOutcome outcome = TestExport::run(request("text"));
    EXPECT_EQ(outcome.status, Status::Refused);
    EXPECT_EQ(outcome.error.GetDescription().find("The outro \"text\" cannot be read: "), 0U)
        << outcome.error.GetDescription();
    expectNothingWritten();
}

TEST_F(OutroRequest, MayHaveAnExportRangeUpToTheOutrosEnd) {
    const KTime duration(4000);
    ExportRequest wanted = request("demo");
    wanted.exportRange = {KTime(1000), KTime(9000)};
    EXPECT_NO_THROW(ExportCore::RequestCheck::streamRange(wanted, {}, duration, KTime(5000)));
    EXPECT_THROW(ExportCore::RequestCheck::streamRange(wanted, {}, duration), ExportCore::Refusal);
    wanted.exportRange = {KTime(1000), KTime(9001)};
    EXPECT_THROW(ExportCore::RequestCheck::streamRange(wanted, {}, duration, KTime(5000)), ExportCore::Refusal);
    EXPECT_EQ(TestExport::run(wanted).status, Status::Refused);
    expectNothingWritten();
}

TEST_F(OutroRequest, CountsTheOutroInItsProgress) {
    ExportCore::ExportJob job(request("demo"));
    std::vector<int> percents;
    ExportOutcome outcome;
    bool ended = false;
    QObject::connect(&job, &ExportCore::ExportJob::progressChanged,
                     [&](const ExportCore::ExportProgress& progress) { percents.push_back(progress.percent); });
    QObject::connect(&job, &ExportCore::ExportJob::finished, [&](const ExportOutcome& result) {
        outcome = result;
        ended = true;
    });
    job.start();
    ASSERT_TRUE(TestSupport::waitUntil([&] { return ended; }));
    ASSERT_EQ(outcome.status, Status::Done) << outcome.error.GetDescription();
    ASSERT_FALSE(percents.empty());
    EXPECT_TRUE(std::is_sorted(percents.begin(), percents.end()));
    EXPECT_EQ(percents.back(), 100);
    EXPECT_EQ(std::count(percents.begin(), percents.end(), 100), 1) << "not before the outro has been written";
}

TEST_F(OutroRequest, TheDemoIsAPictureWithAlpha) {
    const QPixmap demo(QStringLiteral(":/BrandingOutro/demo/outro.png"));
    EXPECT_EQ(demo.size(), QSize(1280, 720));
    EXPECT_TRUE(demo.hasAlphaChannel());
    EXPECT_EQ(qAlpha(demo.toImage().pixel(0, 0)), 0);
}

TEST_F(OutroRequest, StoppedWithinTheOutroLeavesNoFile) {
    ExportRequest wanted = request("demo");
    wanted.exportRange = {KTime(4000), KTime(9000)};
    ExportCore::ExportJob job(wanted);
    ExportOutcome outcome;
    bool ended = false;
    QObject::connect(&job, &ExportCore::ExportJob::started, &job, &ExportCore::ExportJob::stop);
    QObject::connect(&job, &ExportCore::ExportJob::finished, [&](const ExportOutcome& result) {
        outcome = result;
        ended = true;
    });
    job.start();
    ASSERT_TRUE(TestSupport::waitUntil([&] { return ended; }));
    EXPECT_EQ(outcome.status, Status::Stopped);
    expectNothingWritten();
}

} // namespace
