#include "Kestra/FF/Filter/AudioSegmenter.h"

#include "Kestra/FF/Av/Error.h"
#include "Kestra/FF/Filter/PacketSegment.h"
#include <stdexcept>

namespace Kestra::FF {

namespace {

/// A raw stream that is nothing but its packet source.
class SegmentStream final : public Proc::IStreamRaw, public RefCountImpl {
public:
    explicit SegmentStream(const boost::intrusive_ptr<Proc::IPacketSource>& segment)
        : IStreamRaw(segment) {}

    boost::intrusive_ptr<Proc::IDataRaw> ReadRaw() override { return packetSource->ReadPacket(); }
    void Initialize(const Core::Property&) override { Refuse("be initialized"); }
    Core::Property GetSettings() const override { return Core::Property(); }
    std::int64_t GetDuration() const override { return packetSource->GetDuration(); }
    std::int64_t GetPosition() const override { return packetSource->GetPosition(); }
    boost::intrusive_ptr<Proc::IData> ReadData() override { return ReadRaw(); }
    void Seek(std::int64_t, Proc::SeekMode) override { Refuse("seek"); }
    void Interrupt() override { packetSource->Interrupt(); }
    bool IsSeekable() const override { return false; }
    void GetFormatCodec(boost::intrusive_ptr<Conf::IFormatCodec>& format) const override {
        packetSource->GetFormat(format);
    }
    std::string Describe() const override { return packetSource->Describe(); }
    void PreferFormat(const Conf::IFormatCodec&) override {}
    void Prepare() override { packetSource->Prepare(); }
    void Reset() override { packetSource->Reset(); }

private:
    [[noreturn]] void Refuse(const char* what, SourcePlace place = SourcePlace::Here()) const {
        Fail(Proc::TranscodingError::NotSupported, Describe() + " cannot " + what, place);
    }
};

} // namespace

boost::intrusive_ptr<Proc::IStreamRaw> CreateAudioSegmenter(const boost::intrusive_ptr<Proc::IStreamRaw>& stream,
                                                            std::int64_t start, std::int64_t end) {
    if (!stream || !stream->GetPacketSource())
        KESTRA_THROW(std::invalid_argument("a segment needs a stream of packets; it was given none"));
    if (start < 0 || end <= start)
        KESTRA_THROW(std::invalid_argument("a segment from " + std::to_string(start) + " to " + std::to_string(end) +
                                           " (engine time) of a stream is empty or begins before it"));
    return new SegmentStream(new PacketSegment(stream->GetPacketSource(), start, end));
}

} // namespace Kestra::FF
