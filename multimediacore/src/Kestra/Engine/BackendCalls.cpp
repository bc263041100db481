// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/ClientAPI/EncoderQuery.h"
#include "Kestra/Engine/Backend.h"
#include "Kestra/Proc/FileCheck.h"
#include "Kestra/Proc/LibraryVersions.h"
#include "Kestra/Proc/PictureReading.h"
#include "Kestra/Proc/Segmenter.h"

namespace Kestra {

using ClientAPI::EncoderQuery;

bool EncoderQuery::TakesPixelFormat(Conf::CodecID codec, const std::string& pixelFormat) {
    return Backend().TakesPixelFormat(codec, pixelFormat);
}

std::string EncoderQuery::WhyNotOption(Conf::CodecID codec, const std::string& name, const std::string& value,
                                       bool exactRate) {
    return Backend().WhyNotOption(codec, name, value, exactRate);
}

std::string EncoderQuery::WhyNotMuxerOption(const std::string& container, const std::string& name,
                                            const std::string& value) {
    return Backend().WhyNotMuxerOption(container, name, value);
}

Proc::CheckedFile Proc::CheckFile(const ioPath& path, const std::atomic<bool>& interrupted) {
    return Backend().CheckFile(path, interrupted);
}

Proc::CheckedFile Proc::CheckPictures(const ioPath& folder, const Conf::NumberedName& name,
                                      const std::atomic<bool>& interrupted) {
    return Backend().CheckPictures(folder, name, interrupted);
}

std::vector<Proc::LibraryVersion> Proc::GetLibraryVersions() {
    return Backend().GetLibraryVersions();
}

boost::intrusive_ptr<Proc::IStreamRaw> Proc::CreateAudioSegmenter(const boost::intrusive_ptr<IStreamRaw>& stream,
                                                                  std::int64_t start, std::int64_t end) {
    return Backend().CreateAudioSegmenter(stream, start, end);
}

Proc::RgbPicture Proc::ReadPicture(const IDataVideo& picture, int width, int height) {
    return Backend().ReadPicture(picture, width, height);
}

} // namespace Kestra
