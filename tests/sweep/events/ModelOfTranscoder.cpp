// SPDX-License-Identifier: GPL-3.0-or-later
#include "sweep/events/ModelOfTranscoder.h"

namespace Sweep {

ModelOfTranscoder::ModelOfTranscoder(const RunKind& runKind)
    : kind(runKind) {
    video.needed = kind.video;
    audio.needed = kind.audio;
    pending = video.needed || audio.needed;
}

ModelOfTranscoder::~ModelOfTranscoder() = default;

void ModelOfTranscoder::stop() {
    if (runner)
        runner->stop();
}

void ModelOfTranscoder::tell(const EngineEvent& event) {
    if (runner)
        runner->tell(event);
}

void ModelOfTranscoder::changed(const Medium& which) {
    pending = pending || (lives && which.needed);
}

/// Whether that changes anything or not: every word of the model about a stream is a change.
void ModelOfTranscoder::setReady(bool isVideo, bool value) {
    if (lives)
        medium(isVideo).ready = value;
    changed(medium(isVideo));
}

void ModelOfTranscoder::setTaken(bool isVideo, bool value) {
    if (lives)
        medium(isVideo).taken = value;
    changed(medium(isVideo));
}

void ModelOfTranscoder::touch(bool isVideo) {
    changed(medium(isVideo));
}

void ModelOfTranscoder::turn() {
    while (turnOnce()) {
    }
    note(fileIsThere ? "a file" : "no file");
}

bool ModelOfTranscoder::turnOnce() {
    try {
        if (runner && runner->hearOne())
            return true;
        if (!pending)
            return false;
        pending = false;
        attempt();
    } catch (...) {
        note("out: " + wordsOf(std::current_exception()));
    }
    return true;
}

bool ModelOfTranscoder::readyToStart() const {
    const auto allows = [](const Medium& which) { return !which.needed || (which.ready && !which.taken); };
    return allows(video) && allows(audio);
}

void ModelOfTranscoder::attempt() {
    if (!readyToStart())
        return;
    for (Medium* which : {&video, &audio}) {
        which->taken = which->needed;
        changed(*which);
    }
    launch();
}

/// What a runner says inside its start is not heard; one whose start throws never is.
void ModelOfTranscoder::launch() {
    if (runner) {
        runner->destroy();
        gone.push_back(std::move(runner));
    }
    connected = false;
    runner = std::make_unique<ModelOfRunner>(*this, kind, signals(), made);
    runner->start();
    connected = true;
}

ModelOfRunner::Signals ModelOfTranscoder::signals() {
    ModelOfRunner::Signals result;
    result.started = [this] {
        if (connected)
            signal("started");
    };
    result.progressChanged = [this](int percent, std::int64_t remaining) {
        if (connected)
            signal(progressText(percent, remaining));
    };
    result.stopped = [this] {
        if (connected)
            signal("stopped");
    };
    result.startFailed = [this](const std::exception_ptr& error) { fail(error, false); };
    result.processingFailed = [this](const std::exception_ptr& error) { fail(error, true); };
    return result;
}

void ModelOfTranscoder::fail(const std::exception_ptr& error, bool processing) {
    if (!connected)
        return;
    signal("failed " + wordsOf(error));
    if (lives)
        signal("stopped");
    fileIsThere = fileIsThere && !processing;
}

void ModelOfTranscoder::destroy() {
    lives = false;
    pending = false;
    if (!runner)
        return;
    runner->destroy();
    gone.push_back(std::move(runner));
}

} // namespace Sweep
