// The pictures of one clip, brought to the frame and the rate of an export.
#pragma once

#include "EditorProject/Span.h"
#include "Kestra/Conf/IFormatCodecVideo.h"
#include "Kestra/Proc/IStreamVideo.h"

namespace Project {

/// Whether the track's pictures come in the frame and rate of `target` as they are, so that fields survive.
bool keepsFields(const Kestra::Proc::VideoTrackInfo& track, const Kestra::Conf::IFormatCodecVideo& target);

/// The span of the clip in the frame and rate of `target`, from time 0; frames may last several periods. What else
/// `target` names (pixel format, colour) is asked for, not promised. A clip without a picture is black.
/// Interlaced pictures stay so where `target` is interlaced and keepsFields(); the others are deinterlaced.
/// Opens nothing before the first read. Throws ProcException.
boost::intrusive_ptr<Kestra::Proc::IStreamVideo> createClipPictures(const Timeline& timeline, const PictureSpan& span,
                                                                    const Kestra::Conf::IFormatCodecVideo& target);

} // namespace Project
