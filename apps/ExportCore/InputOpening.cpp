#include "ExportCore/InputOpening.h"

#include "ExportCore/Refusal.h"
#include "ExportCore/RequestCheck.h"
#include "Kestra/Proc/ProcException.h"
#include "Kestra/Proc/ProcessingError.h"

namespace ExportCore {

using Kestra::Proc::ProcessingError;
using Kestra::Proc::TranscodingError;

InputOpening::InputOpening(const ExportRequest& request, const Preset& preset, QObject* parent)
    : InputOpening(std::make_shared<Opened>(), request, preset, parent) {}

InputOpening::InputOpening(const std::shared_ptr<Opened>& opened, const ExportRequest& request, const Preset& preset,
                           QObject* parent)
    : BackgroundTask(
          "open-inputs", [=](const std::atomic<bool>& interrupted) { open(*opened, request, preset, interrupted); },
          parent)
    , request(request)
    , opened(opened) {}

std::string InputOpening::step() const {
    const int at = opened->at;
    return at < request.inputs.size() ? "Opening \"" + request.inputs[at].toStdString() + '"'
                                      : "Looking at \"" + request.outputPath.toStdString() + '"';
}

void InputOpening::open(Opened& opened, const ExportRequest& request, const Preset& preset,
                        const std::atomic<bool>& interrupted) {
    std::vector<Kestra::ioPath> paths;
    for (const QString& input : request.inputs) {
        opened.at = static_cast<int>(paths.size());
        RequestCheck::inputs(QStringList(input));
        paths.emplace_back(input.toStdString());
    }
    opened.at = static_cast<int>(paths.size());
    RequestCheck::inputs(request.inputs); // their number
    RequestCheck::output(request);
    RequestCheck::outputName(request, preset);
    try {
        const auto next = [&opened](std::size_t index) { opened.at = static_cast<int>(index); };
        opened.sequence = Render::Sequence::ofFiles(paths, &interrupted, request.mediaLimits, next);
    } catch (...) {
        const auto error = ProcessingError::MakeProcessingErrorFromException(std::current_exception());
        const bool unfit = error.GetCode() == TranscodingError::SourceNotFound ||
                           error.GetCode() == TranscodingError::SourceUnreadable;
        if (unfit)
            KESTRA_THROW(Refusal(error.GetDescription()));
        throw;
    }
}

} // namespace ExportCore
