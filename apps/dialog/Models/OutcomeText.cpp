// SPDX-License-Identifier: GPL-3.0-or-later
#include "dialog/Models/OutcomeText.h"

#include "ExportCore/PlainText.h"
#include "dialog/Models/PeoplesText.h"
#include "dialog/Models/PresetText.h"
#include "dialog/Models/Sentence.h"
#include <QLocale>

namespace Dialog {
namespace {

using ExportCore::ExportFacts;
using ExportCore::ExportOutcome;
using Kestra::Proc::TranscodingError;
using Status = ExportOutcome::Status;

/// What went wrong, as a heading.
QString nameOf(TranscodingError code) {
    switch (code) {
    case TranscodingError::SourceNotFound:
        return OutcomeText::tr("The source is not there");
    case TranscodingError::SourceUnreadable:
        return OutcomeText::tr("The source cannot be read");
    case TranscodingError::SourceDamaged:
        return OutcomeText::tr("The source is damaged");
    case TranscodingError::OutputNotWritable:
        return OutcomeText::tr("The file cannot be written");
    case TranscodingError::DiskFull:
        return OutcomeText::tr("The disk is full");
    case TranscodingError::OutputFailed:
        return OutcomeText::tr("Writing the file failed");
    case TranscodingError::CodecNotFound:
        return OutcomeText::tr("An encoder is missing");
    case TranscodingError::CodecRefused:
        return OutcomeText::tr("The encoder refused its settings");
    case TranscodingError::EncodeFailed:
        return OutcomeText::tr("Encoding failed");
    case TranscodingError::FilterFailed:
        return OutcomeText::tr("Preparing the pictures or the sound failed");
    case TranscodingError::MuxerRefused:
        return OutcomeText::tr("The file's format cannot hold this");
    case TranscodingError::OutOfMemory:
        return OutcomeText::tr("There is not enough memory");
    case TranscodingError::Stalled:
        return OutcomeText::tr("The export made no progress");
    case TranscodingError::InvalidArgument:
        return OutcomeText::tr("This cannot be exported");
    case TranscodingError::NotSupported:
        return OutcomeText::tr("This is not supported");
    case TranscodingError::None:
    case TranscodingError::Unknown:
        break;
    }
    return OutcomeText::tr("The export failed");
}

QString adviceFor(TranscodingError code) {
    switch (code) {
    case TranscodingError::SourceNotFound:
    case TranscodingError::SourceUnreadable:
        return OutcomeText::tr("Check that the file is where it was, and that its disk or share is connected.");
    case TranscodingError::SourceDamaged:
        return OutcomeText::tr("Export the part before the damage, or get the file anew.");
    case TranscodingError::OutputNotWritable:
        return OutcomeText::tr("Save the file under another name or in another folder.");
    case TranscodingError::DiskFull:
        return OutcomeText::tr("Make room on the disk, save to another one, or choose a lower quality.");
    case TranscodingError::OutputFailed:
        return OutcomeText::tr("Check the disk, or save to another one.");
    case TranscodingError::CodecNotFound:
    case TranscodingError::CodecRefused:
    case TranscodingError::EncodeFailed:
    case TranscodingError::MuxerRefused:
    case TranscodingError::NotSupported:
        return OutcomeText::tr("Choose another preset, or reset the custom settings.");
    case TranscodingError::OutOfMemory:
        return OutcomeText::tr("Close other programs, or export a smaller picture.");
    case TranscodingError::Stalled:
        return OutcomeText::tr("Check that the disks and shares of source and file answer, then try again.");
    default:
        return {};
    }
}

/// A refusal has one code, whatever it is about; its path tells more.
TranscodingError kindOf(const Job& job) {
    const ExportOutcome& outcome = *job.outcome;
    if (outcome.status != Status::Refused || outcome.errorPath.isEmpty())
        return outcome.error.GetCode();
    return outcome.errorPath == job.request.outputPath ? TranscodingError::OutputNotWritable
                                                       : TranscodingError::SourceUnreadable;
}

QString plain(const std::string& text) {
    return QString::fromStdString(ExportCore::PlainText::escaped(text));
}

QString said(const std::string& english) {
    return Sentence::translated(plain(english));
}

QStringList said(const QString& heading, const QStringList& lines) {
    QStringList all;
    for (const QString& line : lines)
        all << QStringLiteral("%1: %2").arg(heading, said(line.toStdString()));
    return all;
}

QString pictureFacts(const ExportFacts& facts) {
    return OutcomeText::tr("%1, %2 × %3, %n frame(s)", nullptr, static_cast<int>(facts.frames))
        .arg(PresetText::codec(Kestra::Conf::CodecIDFromString(facts.videoCodec)))
        .arg(facts.width)
        .arg(facts.height);
}

QString soundFacts(const ExportFacts& facts) {
    return OutcomeText::tr("%1, %2, %n channel(s)", nullptr, facts.channels)
        .arg(QString::fromStdString(facts.audioCodec).toUpper(), PeoplesText::sampleRate(facts.sampleRate));
}

QString factsOf(const ExportFacts& facts) {
    QStringList lines{OutcomeText::tr("%1 long, %2")
                          .arg(PeoplesText::length(KTime(facts.durationMs)), PeoplesText::size(facts.sizeBytes))};
    if (!facts.videoCodec.empty())
        lines << pictureFacts(facts);
    if (!facts.audioCodec.empty())
        lines << soundFacts(facts);
    return lines.join(QLatin1Char('\n'));
}

/// What somebody should know of a file that is done, the gravest first.
QStringList remarksOn(const ExportOutcome& outcome) {
    constexpr int most = 5;
    QStringList remarks =
        said(OutcomeText::tr("Warning"), outcome.warnings) + said(OutcomeText::tr("Note"), outcome.notes);
    const int more = remarks.size() - most;
    if (more <= 0)
        return remarks;
    return remarks.mid(0, most) << OutcomeText::tr("and %n more, in the details", nullptr, more);
}

QString doneText(const ExportOutcome& outcome) {
    const QString time = PeoplesText::length(KTime(outcome.facts.elapsedMs));
    const QStringList remarks = remarksOn(outcome);
    const QString made =
        remarks.isEmpty() ? OutcomeText::tr("Made in %1. Read back to its last byte: it is what was ordered.").arg(time)
                          : OutcomeText::tr("Made in %1. Read back to its last byte.").arg(time);
    return (QStringList{factsOf(outcome.facts), made} + remarks).join(QLatin1Char('\n'));
}

QString detailsOf(const Job& job, const OutcomeText& text) {
    const ExportOutcome& outcome = *job.outcome;
    const TranscodingError code = outcome.error.GetCode();
    QStringList lines{text.title, outcome.status == Status::Done ? factsOf(outcome.facts) : text.reason};
    // For whoever gets the report and reads another language.
    if (const QString english = plain(outcome.error.GetDescription()); job.hasFailed() && english != text.reason)
        lines << english;
    if (job.hasFailed())
        lines << QStringLiteral("%1 %2 (%3)")
                     .arg(OutcomeText::tr("Error:"))
                     .arg(static_cast<int>(code))
                     .arg(QString::fromLatin1(Kestra::Proc::TranscodingErrorToString(code)));
    lines << QStringLiteral("%1 %2").arg(OutcomeText::tr("Preset:"), QString::fromStdString(job.request.presetId));
    lines << QStringLiteral("%1 %2").arg(OutcomeText::tr("File:"), plain(job.request.outputPath.toStdString()));
    for (const QString& input : job.request.inputs)
        lines << QStringLiteral("%1: %2").arg(OutcomeText::tr("Source"), plain(input.toStdString()));
    lines << said(OutcomeText::tr("Warning"), outcome.warnings) << said(OutcomeText::tr("Note"), outcome.notes);
    return lines.join(QLatin1Char('\n'));
}

} // namespace

OutcomeText OutcomeText::of(const Job& job) {
    OutcomeText text;
    if (!job.outcome)
        return text;
    const ExportOutcome& outcome = *job.outcome;
    switch (outcome.status) {
    case Status::Done:
        text.title = OutcomeText::tr("%1 is done").arg(job.name());
        text.reason = doneText(outcome);
        break;
    case Status::Stopped:
        text.title = OutcomeText::tr("Stopped");
        text.reason = OutcomeText::tr("Nothing was written.");
        if (!outcome.error.GetDescription().empty())
            text.reason += QLatin1Char(' ') + said(outcome.error.GetDescription());
        break;
    default:
        text.title = nameOf(kindOf(job));
        text.reason = said(outcome.error.GetDescription());
        text.advice = adviceFor(kindOf(job));
        break;
    }
    text.details = detailsOf(job, text);
    return text;
}

} // namespace Dialog
