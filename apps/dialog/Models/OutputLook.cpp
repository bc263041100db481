// SPDX-License-Identifier: GPL-3.0-or-later
#include "dialog/Models/OutputLook.h"

#include "ExportCore/FreeSpace.h"
#include "ExportCore/RequestCheck.h"
#include "dialog/Models/Retired.h"
#include <filesystem>
#include <string>
#include <system_error>
#include <vector>

namespace Dialog {
namespace {

namespace fs = std::filesystem;

constexpr std::chrono::milliseconds LIMIT{5000};

/// What is not there stays as it is written.
QString resolved(const QString& path) {
    std::error_code error;
    const fs::path real = fs::weakly_canonical(fs::path(path.toStdString()), error);
    return error ? path : QString::fromStdString(real.string());
}

OutputState stateOfFile(const OutputPlace& place) {
    OutputState state;
    state.path = place.path;
    state.place = resolved(place.path);
    std::error_code error;
    state.exists = fs::exists(fs::symlink_status(fs::path(place.path.toStdString()), error));
    state.isFolder = fs::is_directory(fs::path(place.path.toStdString()), error);
    state.isInput = ExportCore::RequestCheck::isInput(place.path.toUtf8(), place.inputs);
    state.name = place.path.mid(place.path.lastIndexOf(QLatin1Char('/')) + 1);
    state.freeBytes = ExportCore::FreeSpace::beside(place.path);
    return state;
}

OutputState stateOfPictures(const OutputPlace& place) {
    OutputState state;
    state.path = place.path;
    state.place = resolved(QString::fromUtf8(place.sequence->pathOf(0)));
    const std::vector<std::string> there = place.sequence->there();
    state.exists = !there.empty();
    state.name = state.exists ? QString::fromStdString(there.front()) : QString();
    state.freeBytes = ExportCore::FreeSpace::beside(QString::fromUtf8(place.sequence->folder));
    return state;
}

OutputState stateOf(const OutputPlace& place) {
    OutputState state = place.sequence ? stateOfPictures(place) : stateOfFile(place);
    state.isReadOnly =
        ExportCore::RequestCheck::isClosed(place.sequence ? place.sequence->pathOf(0) : place.path.toUtf8());
    state.haveInputsChanged = !place.marks.empty() && ExportCore::FileMark::of(place.inputs) != place.marks;
    return state;
}

} // namespace

OutputLook::OutputLook(QObject* parent)
    : QObject(parent)
    , way(&stateOf) {
    timer.setSingleShot(true);
    timer.setInterval(LIMIT);
    connect(&timer, &QTimer::timeout, this, [this] {
        forget();
        OutputState state;
        state.path = wanted;
        state.isKnown = false;
        Q_EMIT looked(state);
    });
}

OutputLook::~OutputLook() = default;

void OutputLook::look(const OutputPlace& place) {
    forget();
    wanted = place.path;
    const auto found = std::make_shared<OutputState>();
    looking = std::make_unique<ExportCore::BackgroundTask>(
        "look-at-target", [found, place, look = way](const std::atomic<bool>&) { *found = look(place); });
    looking->setParent(this);
    connect(looking.get(), &ExportCore::BackgroundTask::finished, this, [this, found](const std::exception_ptr& error) {
        forget();
        found->path = wanted;
        found->isKnown = !error;
        Q_EMIT looked(*found);
    });
    looking->start();
    timer.start();
}

void OutputLook::forget() {
    timer.stop();
    retire(looking, *this);
}

} // namespace Dialog
