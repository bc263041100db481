// SPDX-License-Identifier: GPL-3.0-or-later
#include "Exported.h"

#include "ExportCore/ExportJob.h"
#include "support/WaitUntil.h"
#include <gtest/gtest.h>

namespace TestExport {

ExportCore::ExportOutcome run(const ExportCore::ExportRequest& request) {
    ExportCore::ExportJob job(request);
    ExportCore::ExportOutcome outcome;
    bool ended = false;
    QObject::connect(&job, &ExportCore::ExportJob::finished, [&](const ExportCore::ExportOutcome& result) {
        outcome = result;
        ended = true;
    });
    job.start();
    EXPECT_TRUE(TestSupport::waitUntil([&ended] { return ended; }));
    return outcome;
}

ExportCore::ExportRequest requestOf(const std::string& input, const char* preset, const std::string& output) {
    ExportCore::ExportRequest request;
    request.inputs << QString::fromStdString(input);
    request.presetId = preset;
    request.outputPath = QString::fromStdString(output);
    return request;
}

ExportCore::ExportRequest requestOfPictures(const std::string& input, const char* preset, const std::string& output) {
    ExportCore::ExportRequest request = requestOf(input, preset, output);
    request.tracks.sound = ExportCore::TrackOptions::Sound::None;
    return request;
}

} // namespace TestExport
