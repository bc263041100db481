// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/ProgressText.h"

#include "ExportCore/SizeText.h"
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
    char part[64];
    std::snprintf(part, sizeof part, "%d %%", progress.percent);
    std::string text = part;
    if (progress.framesPerSecond > 0) {
        constexpr double HUNDRED = 99.95;
        std::snprintf(part, sizeof part, ", %.*f fps", progress.framesPerSecond < HUNDRED ? 1 : 0,
                      progress.framesPerSecond);
        text += part;
    }
    if (progress.speed > 0) {
        std::snprintf(part, sizeof part, ", %.2fx", progress.speed);
        text += part;
    }
    if (progress.bytes >= 0)
        text += ", " + ExportCore::SizeText::format(progress.bytes);
    if (progress.remainingMs >= 0)
        text += ", " + clockText(progress.remainingMs) + " left";
    return text;
}

std::string progressBar(const ExportCore::ExportProgress& progress, int columns) {
    constexpr int widest = 30, narrowest = 5, frame = 3; // the frame: two brackets and a blank
    ExportCore::ExportProgress told = progress;
    const auto room = [&] { return columns - static_cast<int>(progressText(told).size()); };
    if (room() < frame + narrowest)
        told.framesPerSecond = 0;
    if (room() < frame + narrowest)
        told.bytes = -1;
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
