#pragma once

#include "Export/CreateStreamProcessingHelper.h"

/// A runner that does nothing but note its calls; its signals are for the test to emit. A program that links its source
/// gives it to the transcoder in place of the product's: the definition in the program comes first.
class FakeRunner : public Export::IStreamProcessingHelper {
public:
    FakeRunner();
    ~FakeRunner() override;

    void start() override;
    void stop() override { ++stops; }

    /// The runner that was made last and still lives; null when there is none.
    static FakeRunner* current();

    int starts = 0;
    int stops = 0;
    int passMode = -1;
    QString temporaryDirectory;
};
