// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "Export/CreateStreamProcessingHelper.h"
#include <exception>
#include <functional>
#include <string>

/// A runner that does nothing but note its calls; its signals are for the test to emit. A program that links its source
/// gives it to the transcoder in place of the product's: the definition in the program comes first.
class FakeRunner : public Export::IStreamProcessingHelper {
public:
    /// Steps are told as "made", "start", "stop", "destroyed" and, for each of the signals, "connect <its name>".
    using Listener = std::function<void(const std::string& step)>;
    /// For every runner from now on; Script() again ends it.
    struct Script {
        Listener onStep;
        std::exception_ptr errorOfMaking;
        std::exception_ptr errorOfStart;
        bool makeNone = false;
        bool emitAllFromStart = false;
    };

    FakeRunner();
    ~FakeRunner() override;

    void start() override;
    void stop() override;
    /// Emits each signal once, in the order of their declaration.
    void emitAll();

    /// The runner that was made last and still lives; null when there is none.
    static FakeRunner* current();
    static Script& script();

    int starts = 0;
    int stops = 0;
    int passMode = -1;
    QString temporaryDirectory;
    Export::EncoderFactory videoEncoderFactory;
    Export::EncoderFactory audioEncoderFactory;
    Export::MuxerFactory muxerFactory;

protected:
    void connectNotify(const QMetaMethod& signal) override;

private:
    static void tell(const std::string& step);
};
