// SPDX-License-Identifier: GPL-3.0-or-later
// The destructors of the interfaces that have nothing else: their tables of functions live in this library.
#include "Kestra/Proc/Failure.h"
#include "Kestra/Proc/ICodecFactory.h"
#include "Kestra/Proc/IConcatenation.h"
#include "Kestra/Proc/IData.h"
#include "Kestra/Proc/IDataAudio.h"
#include "Kestra/Proc/IDataRaw.h"
#include "Kestra/Proc/IDataVideo.h"
#include "Kestra/Proc/IDataVideoFFFactory.h"
#include "Kestra/Proc/IEffectFactory.h"
#include "Kestra/Proc/IEffectHost.h"
#include "Kestra/Proc/IEffectVideo.h"
#include "Kestra/Proc/IFilterFactory.h"
#include "Kestra/Proc/IFrameBlender.h"
#include "Kestra/Proc/ILoudnessMeter.h"
#include "Kestra/Proc/IMediaSource.h"
#include "Kestra/Proc/IMuxer.h"
#include "Kestra/Proc/IMuxerFactory.h"
#include "Kestra/Proc/IPacketSource.h"
#include "Kestra/Proc/IProcessingEvents.h"
#include "Kestra/Proc/ISampleMixer.h"
#include "Kestra/Proc/ISourceFactory.h"
#include "Kestra/Proc/IStream.h"
#include "Kestra/Proc/IStreamProcessor.h"

namespace Kestra::Proc {

ICodecFactory::~ICodecFactory() = default;
IConcatenation::~IConcatenation() = default;
IData::~IData() = default;
IDataAudio::~IDataAudio() = default;
IDataRaw::~IDataRaw() = default;
IDataVideo::~IDataVideo() = default;
IDataVideoFFFactory::~IDataVideoFFFactory() = default;
IEffectFactory::~IEffectFactory() = default;
IEffectHost::~IEffectHost() = default;
IEffectVideo::~IEffectVideo() = default;
IFilterFactory::~IFilterFactory() = default;
IFrameBlender::~IFrameBlender() = default;
IMediaSource::~IMediaSource() = default;
boost::intrusive_ptr<IStreamVideo> IMediaSource::CreateVideoStreamAmong(int) {
    return CreateVideoStream();
}
std::vector<Conf::Subtitles> IMediaSource::ReadSubtitles(const std::vector<int>& tracks, const std::atomic<bool>&) {
    return std::vector<Conf::Subtitles>(tracks.size());
}
IMuxer::~IMuxer() = default;
IMuxerFactory::~IMuxerFactory() = default;
IPacketSource::~IPacketSource() = default;
IProcessingEvents::~IProcessingEvents() = default;
ILoudnessMeter::~ILoudnessMeter() = default;
ISampleMixer::~ISampleMixer() = default;
ISourceFactory::~ISourceFactory() = default;

boost::intrusive_ptr<IMediaSource> ISourceFactory::OpenSequence(const SettingsImageSequence&, const std::atomic<bool>*,
                                                                const MediaLimits&) {
    Fail(TranscodingError::NotSupported, "This factory opens no sequences of pictures");
}

boost::intrusive_ptr<IMediaSource> ISourceFactory::CreateGenerator(const SettingsGenerator&) {
    Fail(TranscodingError::NotSupported, "This factory makes neither pictures nor sound");
}

IStream::~IStream() = default;
IStreamProcessor::~IStreamProcessor() = default;

} // namespace Kestra::Proc
