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
    state.freeBytes = ExportCore::FreeSpace::beside(path);
    return state;
}

} // namespace

OutputLook::OutputLook(QObject* parent)
    : QObject(parent) {}

OutputLook::~OutputLook() = default;

void OutputLook::look(const QString& path) {
    retire(looking, *this);
    const auto found = std::make_shared<OutputState>();
    looking = std::make_unique<ExportCore::BackgroundTask>(
        "look-at-target", [found, path](const std::atomic<bool>&) { *found = stateOf(path); });
    connect(looking.get(), &ExportCore::BackgroundTask::finished, this, [this, found, path] {
        retire(looking, *this);
        found->path = path;
        Q_EMIT looked(*found);
    });
    looking->start();
}

} // namespace Dialog
