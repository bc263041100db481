// SPDX-License-Identifier: GPL-3.0-or-later
// One export in this process, over a file that has to survive whatever is no good end.
#pragma once

#include "ExportCore/ExportJob.h"
#include "Exported.h"
#include "support/FileHelpers.h"
#include "support/FlashBeep.h"
#include "support/WaitUntil.h"
#include <gtest/gtest.h>
#include <memory>
#include <string>

namespace TestExport {

/// The output is "film", whatever the preset writes; it holds "old", alone in its folder. Who makes something hang
/// opens it and then resets the job before this goes.
class WatchedJob {
protected:
    WatchedJob() { TestFiles::write(output, "old"); }

    void start(const std::string& input, const char* preset, const ExportCore::WatchdogLimits& limits) {
        ExportCore::ExportRequest request = requestOf(input, preset, output);
        request.overwrite = true;
        request.limits = limits;
        make(request);
        job->start();
    }
    void make(const ExportCore::ExportRequest& request) {
        job = std::make_unique<ExportCore::ExportJob>(request);
        QObject::connect(job.get(), &ExportCore::ExportJob::started, [this] { ++startCount; });
        QObject::connect(job.get(), &ExportCore::ExportJob::finished, [this](const ExportCore::ExportOutcome& result) {
            outcome = result;
            ++finishCount;
        });
    }
    /// The end is told once.
    bool waitForEnd() {
        const bool ended = TestSupport::waitUntil([this] { return finishCount > 0; });
        TestSupport::turnEventLoop();
        EXPECT_EQ(finishCount, 1);
        return ended;
    }
    void expectUntouched() const {
        EXPECT_EQ(TestFiles::read(output), "old");
        EXPECT_EQ(TestFiles::namesIn(place / ""), QStringList(QStringLiteral("film")));
    }

    const TestMedia::Folder place;
    const std::string output = place / "film";
    std::unique_ptr<ExportCore::ExportJob> job;
    ExportCore::ExportOutcome outcome;
    int startCount = 0;
    int finishCount = 0;
};

} // namespace TestExport
