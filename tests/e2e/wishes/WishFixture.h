// SPDX-License-Identifier: GPL-3.0-or-later
// Presets with a single wish: refused by the catalogue, or exported.
#pragma once

#include "../sync/Exported.h"
#include "support/CatalogueFixture.h"
#include "support/FlashBeep.h"
#include "support/MediaProbe.h"

namespace TestWishes {

class WishFixture : public TestPresets::CatalogueFixture {
protected:
    static void SetUpTestSuite() {
        media = new TestMedia::Folder;
        TestMedia::runFfmpeg({"-f",
                              "lavfi",
                              "-i",
                              "testsrc2=size=256x144:rate=25,noise=alls=30:allf=t",
                              "-f",
                              "lavfi",
                              "-i",
                              "anoisesrc=r=48000:a=0.5:seed=7",
                              "-map",
                              "0:v",
                              "-map",
                              "1:a",
                              "-t",
                              "0.2",
                              "-c:v",
                              "ffv1",
                              "-c:a",
                              "pcm_s16le",
                              "-ac",
                              "2",
                              *media / "short.mkv"});
        TestMedia::runFfmpeg({"-f", "lavfi", "-i", "anoisesrc=r=48000:a=0.5:seed=7", "-f", "lavfi", "-i",
                              "anoisesrc=r=48000:a=0.5:seed=8", "-filter_complex", "[0][1]amerge", "-t", "4", "-c:a",
                              "pcm_s16le", *media / "noise.wav"});
    }
    static void TearDownTestSuite() { delete media; }

    /// Whether the catalogue takes the preset; a refusal has to name the place of the wish.
    bool accepts(const QJsonObject& preset, const std::string& pointer) {
        QJsonObject named = preset;
        named.insert(QStringLiteral("id"), QStringLiteral("wish"));
        QJsonObject catalogue = TestPresets::object("{'version': 1, 'tags': [{'name': 'all', 'default': 0, 'presets': "
                                                    "['wish']}]}");
        catalogue.insert(QStringLiteral("presets"), QJsonArray{named});
        writeCatalogue(catalogue);
        PresetStorage storage;
        if (load(storage))
            return true;
        EXPECT_NE(storage.lastError().find(": /presets/0" + pointer), std::string::npos) << storage.lastError();
        return false;
    }

    /// What the preset that was accepted last makes of the clip; nothing, with a failure, when it makes no file.
    TestMedia::ProbedMedia exported(const char* clip, const std::string& extension) {
        const std::string output = *media / ("out." + extension);
        ExportCore::ExportRequest request = TestExport::requestOf(*media / clip, "wish", output);
        request.overwrite = true;
        const ExportCore::ExportOutcome outcome = TestExport::run(request);
        EXPECT_EQ(outcome.status, ExportCore::ExportOutcome::Status::Done) << outcome.error.GetDescription();
        if (outcome.status != ExportCore::ExportOutcome::Status::Done)
            return {};
        size = outcome.facts.sizeBytes;
        path = output;
        return TestMedia::probe(output);
    }

    static TestMedia::Folder* media;
    long long size = 0; ///< bytes of the last export
    std::string path;
};

inline TestMedia::Folder* WishFixture::media = nullptr;

} // namespace TestWishes
