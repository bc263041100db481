// SPDX-License-Identifier: GPL-3.0-or-later
#include "sweep/events/RealTranscoder.h"

#include <QFile>

namespace Sweep {

RealTranscoder::RealTranscoder(Export::PresetProvider& presets, QString outputPath)
    : output(std::move(outputPath))
    , engine(*this)
    , turner(*this)
    , transcoder(std::make_unique<Export::Transcoder>(nullptr)) {
    QFile::remove(output);
    listen();
    Export::Transcoder::Data data;
    data.composition = &model.composition;
    data.outputPath = output;
    data.presetProvider = &presets;
    QString refusal;
    if (!transcoder->initialize(data, refusal))
        note("refused: " + refusal.toStdString());
}

RealTranscoder::~RealTranscoder() {
    transcoder.reset();
}

void RealTranscoder::listen() {
    using Export::Transcoder;
    QObject::connect(transcoder.get(), &Transcoder::started, [this] { signal("started"); });
    QObject::connect(transcoder.get(), &Transcoder::progressChanged,
                     [this](int percent, KTime remaining) { signal(progressText(percent, remaining.count())); });
    QObject::connect(transcoder.get(), &Transcoder::stopped, [this] { signal("stopped"); });
    QObject::connect(transcoder.get(), &Transcoder::failed, [this](const Kestra::Proc::ProcessingError& error) {
        // What is said of an exception of an unknown type is not settled here.
        const std::string words = error.GetDescription();
        signal("failed " + (words.find("fault in ") == 0 ? words : std::string("odd")));
    });
}

void RealTranscoder::stop() {
    if (transcoder)
        transcoder->stop();
}

void RealTranscoder::turn() {
    turner.turn();
    note(QFile::exists(output) ? "a file" : "no file");
}

void RealTranscoder::setReady(bool video, bool value) {
    if (video && model.videoStreams.stream())
        model.videoStreams.setAvailable(value);
    else if (!video && model.audioStreams.stream())
        model.audioStreams.setAvailable(value);
}

void RealTranscoder::setTaken(bool video, bool value) {
    if (video && model.videoStreams.stream())
        model.videoStreams.setUsing(value);
    else if (!video && model.audioStreams.stream())
        model.audioStreams.setUsing(value);
}

void RealTranscoder::touch(bool video) {
    if (video && model.videoStreams.stream())
        model.videoStreams.setVersion(++lastVersion);
    else if (!video && model.audioStreams.stream())
        model.audioStreams.setVersion(++lastVersion);
}

void RealTranscoder::write() {
    QFile file(output);
    if (!file.open(QIODevice::WriteOnly))
        note("cannot write");
}

} // namespace Sweep
