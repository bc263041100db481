// The pictures of one clip, brought to the frame and the rate of an export.
#pragma once

#include "EditorProject/Section.h"
#include "Kestra/Conf/IFormatCodecVideo.h"
#include "Kestra/Proc/IStreamVideo.h"

namespace Project {

/// The section of the clip in the frame and rate of `target`, from time 0; frames may last several periods. What else
/// `target` names (pixel format, colour) is asked for, not promised. A clip without a picture is black.
/// Opens nothing before the first read. Throws ProcException.
boost::intrusive_ptr<Kestra::Proc::IStreamVideo> createClipPictures(const Timeline& timeline, const Section& section,
                                                                    const Kestra::Conf::IFormatCodecVideo& target);

} // namespace Project
