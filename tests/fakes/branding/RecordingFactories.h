// SPDX-License-Identifier: GPL-3.0-or-later
// Factories to be set in Core::CoreManager that write down what they are asked for.
#pragma once

#include "Kestra/Proc/IDataVideoFFFactory.h"
#include "Kestra/Proc/IEffectFactory.h"
#include "Kestra/Proc/IFilterFactory.h"
#include "fakes/kestra/CallLog.h"
#include <exception>
#include <map>
#include <optional>
#include <vector>

namespace Kestra::Fakes {

/// One log for all three. Filters forward to their source; "resizer of frame rate of ..." is what they describe
/// themselves as. Thread-bound.
class RecordingFactories {
public:
    /// What was asked for, in order: "CreateResizer default" and so on, with "AddEffect NAME", "Append NAME".
    CallLog log;
    /// The call of that name throws it.
    std::map<std::string, std::exception_ptr> failures;

    boost::intrusive_ptr<Proc::IStreamVideo> resizerSource;
    std::optional<Proc::SettingsResizer> resizer;
    boost::intrusive_ptr<Proc::IStreamAudio> trimmerSource;
    std::optional<Proc::SettingsFilterDurationTrimmer> trimmer;
    boost::intrusive_ptr<Proc::IStreamAudio> trimmed;
    std::optional<Proc::SettingsColorspaceConverter> converter;
    std::optional<Proc::TimeToProgress> progress;
    std::vector<boost::intrusive_ptr<Proc::IStreamVideo>> appended;
    boost::intrusive_ptr<Proc::IConcatenation> concatenation;
    std::optional<Conf::FrameInfo> pictureFrame;
    std::optional<Conf::PixelFormat> pictureFormat;

    /// Writes the call down, or throws what was ordered.
    void Call(const std::string& name, const std::string& implName);

    /// Puts them in place of the engine's until it is destroyed; then lets go of the streams that are kept here, which
    /// hold the record themselves.
    class Installed {
    public:
        explicit Installed(const std::shared_ptr<RecordingFactories>& record);
        ~Installed();
        Installed(const Installed&) = delete;
        Installed& operator=(const Installed&) = delete;

    private:
        const std::shared_ptr<RecordingFactories> record;
    };
};

} // namespace Kestra::Fakes
