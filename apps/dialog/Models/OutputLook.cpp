#include "dialog/Models/OutputLook.h"

#include "ExportCore/FreeSpace.h"
#include "dialog/Models/Retired.h"
#include <filesystem>
#include <system_error>

namespace Dialog {
namespace {

namespace fs = std::filesystem;

OutputState stateOf(const QString& path) {
    OutputState state;
    state.path = path;
    std::error_code error;
    state.exists = fs::exists(fs::symlink_status(fs::path(path.toStdString()), error));
    state.name = path.mid(path.lastIndexOf(QLatin1Char('/')) + 1);
    state.freeBytes = ExportCore::FreeSpace::beside(path);
    return state;
}

OutputState stateOf(const QString& path, const ExportCore::SequenceName& sequence) {
    OutputState state;
    state.path = path;
    const std::vector<std::string> there = sequence.there();
    state.exists = !there.empty();
    state.name = state.exists ? QString::fromStdString(there.front()) : QString();
    state.freeBytes = ExportCore::FreeSpace::beside(QString::fromUtf8(sequence.folder));
    return state;
}

} // namespace

OutputLook::OutputLook(QObject* parent)
    : QObject(parent) {}

OutputLook::~OutputLook() = default;

void OutputLook::look(const QString& path, const std::optional<ExportCore::SequenceName>& sequence) {
    retire(looking, *this);
    const auto found = std::make_shared<OutputState>();
    looking = std::make_unique<ExportCore::BackgroundTask>(
        "look-at-target", [found, path, sequence](const std::atomic<bool>&) {
            *found = sequence ? stateOf(path, *sequence) : stateOf(path);
        });
    connect(looking.get(), &ExportCore::BackgroundTask::finished, this, [this, found, path] {
        retire(looking, *this);
        found->path = path;
        Q_EMIT looked(*found);
    });
    looking->start();
}

} // namespace Dialog
