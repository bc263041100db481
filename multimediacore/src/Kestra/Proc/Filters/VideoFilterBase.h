// Kestra::Proc::VideoFilterBase: a stream that does with its source what it does not do itself.
#pragma once

#include "Kestra/Base/RefCountImpl.h"
#include "Kestra/Proc/IStreamVideo.h"
#include <string>

namespace Kestra::Proc {

/// Forwards every operation to its source, which it holds; a filter overrides what it changes. Initialize and
/// GetSettings throw FilterException: filters take their settings when they are made.
class KESTRA_EXPORT VideoFilterBase : public IStreamVideo, public RefCountImpl {
public:
    /// `name` is for messages. Throws std::invalid_argument for a null source.
    VideoFilterBase(boost::intrusive_ptr<IStreamVideo> source, std::string name);
    ~VideoFilterBase() override;

    boost::intrusive_ptr<IDataVideo> ReadVideo() override;
    void GetVideoFormat(boost::intrusive_ptr<Conf::IFormatCodecVideo>& format) const override;
    void Initialize(const Core::Property& settings) override;
    Core::Property GetSettings() const override;
    std::int64_t GetDuration() const override;
    std::int64_t GetPosition() const override;
    boost::intrusive_ptr<IData> ReadData() override;
    void Seek(std::int64_t time, SeekMode mode) override;
    void Interrupt() override;
    bool IsSeekable() const override;
    void GetFormatCodec(boost::intrusive_ptr<Conf::IFormatCodec>& format) const override;
    std::string Describe() const override;
    void PreferFormat(const Conf::IFormatCodec& format) override;
    void Prepare() override;
    void Reset() override;

protected:
    const boost::intrusive_ptr<IStreamVideo> source;

private:
    std::string name;
};

} // namespace Kestra::Proc
