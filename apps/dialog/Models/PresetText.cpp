// SPDX-License-Identifier: GPL-3.0-or-later
#include "dialog/Models/PresetText.h"

#include "Kestra/ClientAPI/CodecLimits.h"
#include "Kestra/ClientAPI/ContainerLimits.h"
#include "dialog/Models/PeoplesText.h"
#include <QStringList>

namespace Dialog {
namespace {

using Kestra::ClientAPI::CodecLimits;
using Kestra::Conf::CodecID;

QString translated(const std::string& id) {
    return QCoreApplication::translate("editorPresets", id.c_str());
}

/// "high-dynamic-range" as words.
QString inWords(const std::string& id) {
    QString words = QString::fromStdString(id).replace(QLatin1Char('-'), QLatin1Char(' '));
    return words.isEmpty() ? words : words.front().toUpper() + words.mid(1);
}

QString pictureFacts(const Preset& preset) {
    const QString codec = PresetText::codec(preset.videoCodec());
    QString facts =
        preset.hasFixedResolution()
            ? PresetText::tr("%1 picture, %2 × %3").arg(codec).arg(preset.width()).arg(preset.height())
            : PresetText::tr("%1 picture, up to %2 × %3").arg(codec).arg(preset.maxWidth()).arg(preset.maxHeight());
    if (CodecLimits::IsLossless(preset.videoCodec()))
        facts += PresetText::tr(", lossless");
    if (preset.isVideoTwoPassEncodingEnabled() && preset.videoBitrateMode() != Export::BitrateMode::Quality)
        facts += PresetText::tr(", two passes");
    return facts;
}

QString soundFacts(const Preset& preset) {
    QString facts = PresetText::tr("%1 sound").arg(PresetText::codec(preset.audioCodec()));
    if (preset.audioBitrateBps() > 0)
        facts += QStringLiteral(", ") + PeoplesText::bitrate(preset.audioBitrateBps());
    return facts;
}

} // namespace

QString PresetText::title(const Preset& preset) {
    const QString title = translated(preset.id());
    return title == QString::fromStdString(preset.id()) ? QString::fromStdString(preset.title()) : title;
}

QString PresetText::facts(const Preset& preset) {
    QStringList facts;
    if (preset.hasVideo())
        facts << pictureFacts(preset);
    if (preset.hasAudio())
        facts << soundFacts(preset);
    facts << QLatin1Char('.') + extension(preset, preset.hasVideo());
    return facts.join(QStringLiteral("; "));
}

QString PresetText::codec(CodecID codec) {
    switch (codec) {
    case CodecID::H264:
        return QStringLiteral("H.264");
    case CodecID::MPEG4:
        return QStringLiteral("MPEG-4");
    case CodecID::MPEG2:
        return QStringLiteral("MPEG-2");
    case CodecID::ProRes:
        return QStringLiteral("ProRes");
    case CodecID::DNxHD:
        return QStringLiteral("DNxHD");
    case CodecID::Opus:
        return QStringLiteral("Opus");
    case CodecID::Vorbis:
        return QStringLiteral("Vorbis");
    case CodecID::AC3:
        return QStringLiteral("AC-3");
    case CodecID::PCM:
    case CodecID::PCM_S16LE:
    case CodecID::PCM_S24LE:
        return QStringLiteral("PCM");
    default: // abbreviations
        return QString::fromLatin1(Kestra::Conf::CodecIDToString(codec)).toUpper();
    }
}

QString PresetText::name(const std::string& id) {
    const QString name = translated(id);
    return name == QString::fromStdString(id) ? inWords(id) : name;
}

QString PresetText::extension(const Preset& preset, bool withPicture) {
    const auto usual = Kestra::ClientAPI::ContainerLimits::Extensions(preset.containerId(), withPicture);
    return QString::fromStdString(usual.empty() ? preset.containerId() : usual.front());
}

} // namespace Dialog
