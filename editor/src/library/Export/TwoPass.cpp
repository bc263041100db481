// SPDX-License-Identifier: GPL-3.0-or-later
#include "Export/TwoPass.h"

#include "Export/MakeStreamProcessor.h"
#include "FileSystem/FS.h"
#include "Types/UniqueId.h"

namespace Export {

namespace {

/// A new encoder at each call, told which pass it runs.
EncoderFactory encoderOfPass(const QString& logFile, const EncoderFactory& videoEncoderFactory, bool firstPass) {
    return [=] { return applyTwoPassSettings(logFile, videoEncoderFactory(), firstPass); };
}

/// Statistics only: neither sound nor an output file is touched.
ProcessorFactory makeFirstPass(const QString& logFile, const EncoderFactory& videoEncoderFactory) {
    return [=] { return makeStreamProcessor(encoderOfPass(logFile, videoEncoderFactory, true), {}, {}); };
}

ProcessorFactory makeSecondPass(const QString& logFile, const EncoderFactory& videoEncoderFactory,
                                const EncoderFactory& audioEncoderFactory, const MuxerFactory& muxerFactory) {
    return [=] {
        return makeStreamProcessor(encoderOfPass(logFile, videoEncoderFactory, false), audioEncoderFactory,
                                   muxerFactory);
    };
}

} // namespace

std::vector<ProcessorFactory> makeTwoPasses(const EncoderFactory& videoEncoderFactory,
                                            const EncoderFactory& audioEncoderFactory, const MuxerFactory& muxerFactory,
                                            const QString& temporaryDirectory) {
    const QString twoPassDirectory = FS::joinPath({temporaryDirectory, QStringLiteral("two_pass")}, QString());
    // Without the directory the encoder cannot open its log, and says so with the path.
    static_cast<void>(FS::makePath(twoPassDirectory));
    const QString logFile = FS::joinPath({twoPassDirectory, Types::nextUniqueId()}, QStringLiteral("log"));
    return {makeFirstPass(logFile, videoEncoderFactory),
            makeSecondPass(logFile, videoEncoderFactory, audioEncoderFactory, muxerFactory)};
}

boost::intrusive_ptr<Kestra::Proc::IEncoder>
applyTwoPassSettings(const QString& logFile, const boost::intrusive_ptr<Kestra::Proc::IEncoder>& encoder,
                     bool firstPass) {
    Kestra::Proc::SettingsTwoPassEncoding settings;
    settings.SetLogFile(logFile.toStdString());
    settings.firstPass = firstPass;
    encoder->Initialize(Kestra::Proc::IEncoder::Settings2Property(settings));
    return encoder;
}

} // namespace Export
