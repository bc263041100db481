#include "cli/ProgressText.h"

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

} // namespace Cli
