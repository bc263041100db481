// SPDX-License-Identifier: GPL-3.0-or-later
// ExportCore::InputOpening: opens the inputs of a request away from the event loop.
#pragma once

#include "EditorPreset/Preset.h"
#include "ExportCore/BackgroundTask.h"
#include "ExportCore/ExportRequest.h"
#include "ExportCore/FileMark.h"
#include "Render/Sequence.h"
#include <optional>
#include <string>
#include <vector>

namespace ExportCore {

/// Looks whether inputs and output are fit, the output's name for the preset, then opens the inputs, a timeline with
/// all its media; throws Refusal for what is not fit.
class EXPORTCORE_EXPORT InputOpening : public BackgroundTask {
    Q_OBJECT
public:
    InputOpening(const ExportRequest& request, const Preset& preset, QObject* parent = nullptr);
    /// The inputs alone: nothing is asked of an output yet.
    explicit InputOpening(const ExportRequest& request, QObject* parent = nullptr);
    /// Of a request that is refused anyway: looks what else is wrong, and tells it with that.
    InputOpening(const ExportRequest& request, const std::string& refusal, QObject* parent = nullptr);

    /// After finished() without an error.
    const Render::Sequence& sequence() const { return opened->sequence; }
    /// What is remarkable about a timeline, one sentence each. After finished() without an error.
    const std::vector<std::string>& warnings() const { return opened->warnings; }
    /// What of the inputs gets lost, and is no single medium's. After finished() without an error.
    const std::vector<std::string>& notes() const { return opened->notes; }
    /// Of the inputs, in their order, from before they were read. After finished() without an error.
    const std::vector<FileMark>& marks() const { return opened->marks; }
    /// What is being done at the moment, for a message: 'Opening "/path"'.
    std::string step() const;

private:
    struct Opened {
        Render::Sequence sequence;
        std::vector<std::string> warnings;
        std::vector<std::string> notes;
        std::vector<FileMark> marks;
        std::atomic<int> at{0}; ///< index of an input; behind the last, the output
    };

    InputOpening(const std::shared_ptr<Opened>& opened, const ExportRequest& request, const std::string& refusal,
                 QObject* parent);
    /// Without a preset there is no output yet.
    InputOpening(const std::shared_ptr<Opened>& opened, const ExportRequest& request,
                 const std::optional<Preset>& preset, QObject* parent);
    static std::vector<Kestra::ioPath> requireInputs(Opened& opened, const ExportRequest& request,
                                                     const std::atomic<bool>& interrupted);
    static void openTimeline(Opened& opened, const ExportRequest& request, const std::optional<Preset>& preset,
                             const std::atomic<bool>& interrupted);
    static void openFiles(Opened& opened, const std::vector<Kestra::ioPath>& paths, const ExportRequest& request,
                          const std::optional<Preset>& preset, const std::atomic<bool>& interrupted);
    /// Throws Refusal.
    static void lookWhatElseIsWrong(Opened& opened, const ExportRequest& request, const std::string& refusal,
                                    const std::atomic<bool>& interrupted);
    static void open(Opened& opened, const ExportRequest& request, const std::optional<Preset>& preset,
                     const std::atomic<bool>& interrupted);

    const ExportRequest request;
    const std::shared_ptr<Opened> opened;
};

} // namespace ExportCore
