#include "cli/ProgressText.h"

#include <algorithm>
#include <cstdio>

namespace Cli {
namespace {

std::string clockText(qint64 milliseconds) {
    const qint64 seconds = (milliseconds + 999) / 1000;
    char text[48];
    if (seconds >= 3600)
        std::snprintf(text, sizeof text, "%lld:%02lld:%02lld", seconds / 3600, seconds / 60 % 60, seconds % 60);
    else
        std::snprintf(text, sizeof text, "%lld:%02lld", seconds / 60, seconds % 60);
    return text;
}

} // namespace

std::string progressText(const ExportCore::ExportProgress& progress) {
    char head[32];
    std::snprintf(head, sizeof head, "%d %%", progress.percent);
    std::string text = head;
    if (progress.speed > 0) {
        std::snprintf(head, sizeof head, ", %.2fx", progress.speed);
        text += head;
    }
    if (progress.remainingMs >= 0)
        text += ", " + clockText(progress.remainingMs) + " left";
    return text;
}

std::string progressBar(const ExportCore::ExportProgress& progress, int columns) {
    constexpr int widest = 30, narrowest = 5, frame = 3; // the frame: two brackets and a blank
    ExportCore::ExportProgress told = progress;
    const auto room = [&] { return columns - static_cast<int>(progressText(told).size()); };
    if (room() < 0)
        told.speed = 0;
    if (room() < 0)
        told.remainingMs = -1;
    const int width = std::min(room() - frame, widest);
    if (width < narrowest)
        return progressText(told);
    const int full = std::clamp(progress.percent, 0, 100) * width / 100;
    return '[' + std::string(static_cast<std::size_t>(full), '#') +
           std::string(static_cast<std::size_t>(width - full), '-') + "] " + progressText(told);
}

} // namespace Cli
