// SPDX-License-Identifier: GPL-3.0-or-later
#include "sweep/events/RealRunner.h"

#include <QCoreApplication>

namespace Sweep {

EventTurner::EventTurner(World& user)
    : world(user) {
    QCoreApplication::instance()->installEventFilter(this);
}

bool EventTurner::eventFilter(QObject* receiver, QEvent* event) {
    ++events;
    try {
        receiver->event(event);
    } catch (...) {
        world.note("out: " + wordsOf(std::current_exception()));
    }
    return true;
}

// What is posted comes before what a timer does: one pass leaves what is posted during it to the next.
void EventTurner::turn() {
    constexpr int most = 10'000;
    int before = -1;
    for (int round = 0; before != events; ++round) {
        if (round == most)
            return world.note("it never comes to rest");
        before = events;
        QCoreApplication::sendPostedEvents();
        if (before == events)
            QCoreApplication::processEvents();
    }
}

RealRunner::RealRunner(const RunKind& kind)
    : engine(*this)
    , turner(*this) {
    const auto encoder = [this](Call which) { return [this, which] { return engine.encoder(which); }; };
    runner = Export::createStreamProcessingHelper(
        kind.twoPasses ? 1 : 0, kind.video ? Export::EncoderFactory(encoder(Call::Video)) : Export::EncoderFactory(),
        kind.audio ? Export::EncoderFactory(encoder(Call::Audio)) : Export::EncoderFactory(),
        kind.muxer ? Export::MuxerFactory([this] { return engine.muxer(); }) : Export::MuxerFactory(),
        QStringLiteral("/dev/null/nowhere"));
    listen();
}

RealRunner::~RealRunner() {
    runner.reset();
}

void RealRunner::listen() {
    using Helper = Export::IStreamProcessingHelper;
    QObject::connect(runner.get(), &Helper::started, [this] { signal("started"); });
    QObject::connect(runner.get(), &Helper::progressChanged,
                     [this](int percent, KTime remaining) { signal(progressText(percent, remaining.count())); });
    QObject::connect(runner.get(), &Helper::stopped, [this] { signal("stopped"); });
    QObject::connect(runner.get(), &Helper::startFailed,
                     [this](const std::exception_ptr& error) { signal("startFailed " + wordsOf(error)); });
    QObject::connect(runner.get(), &Helper::processingFailed,
                     [this](const std::exception_ptr& error) { signal("processingFailed " + wordsOf(error)); });
}

void RealRunner::start() {
    if (!runner)
        return;
    try {
        runner->start();
    } catch (...) {
        note("thrown: " + wordsOf(std::current_exception()));
    }
}

void RealRunner::stop() {
    if (runner)
        runner->stop();
}

void RealRunner::tell(const EngineEvent& event) {
    engine.tell(event);
}

RunnerWorld::RunnerWorld(const RunKind& kind)
    : runner(*this, kind, signals(), made) {}

ModelOfRunner::Signals RunnerWorld::signals() {
    ModelOfRunner::Signals result;
    result.started = [this] { signal("started"); };
    result.progressChanged = [this](int percent, std::int64_t remaining) { signal(progressText(percent, remaining)); };
    result.stopped = [this] { signal("stopped"); };
    result.startFailed = [this](const std::exception_ptr& error) { signal("startFailed " + wordsOf(error)); };
    result.processingFailed = [this](const std::exception_ptr& error) { signal("processingFailed " + wordsOf(error)); };
    return result;
}

void RunnerWorld::start() {
    if (!lives)
        return;
    try {
        runner.start();
    } catch (...) {
        note("thrown: " + wordsOf(std::current_exception()));
    }
}

void RunnerWorld::stop() {
    if (lives)
        runner.stop();
}

void RunnerWorld::tell(const EngineEvent& event) {
    runner.tell(event);
}

void RunnerWorld::turn() {
    for (bool heard = true; heard;) {
        try {
            heard = runner.hearOne();
        } catch (...) {
            note("out: " + wordsOf(std::current_exception()));
        }
    }
}

void RunnerWorld::destroy() {
    lives = false;
    runner.destroy();
}

} // namespace Sweep
