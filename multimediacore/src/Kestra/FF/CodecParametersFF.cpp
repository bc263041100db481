#include "Kestra/FF/CodecParametersFF.h"

#include "Kestra/Base/RefCountImpl.h"

namespace Kestra::FF {

namespace {

template <class Base>
class Parameters final : public Base, public CodecParametersFF, public RefCountImpl {
public:
    Parameters(const AVCodecParameters& source, AVRational timeBase, const Core::Property& description)
        : CodecParametersFF(source, timeBase)
        , tree(description) {}

    const Core::Property& GetProperty() const override { return tree; }
    void SetProperty(const Core::Property& newTree) override { tree = newTree; }

protected:
    Core::Property& EditProperty() override { return tree; }

private:
    Core::Property tree;
};

} // namespace

CodecParametersFF::CodecParametersFF(const AVCodecParameters& source, AVRational timeBase)
    : parameters(CopyCodecParameters(source))
    , timeBase(timeBase) {}

CodecParametersFF::~CodecParametersFF() = default;

CodecParametersHandle CopyCodecParameters(const AVCodecParameters& source) {
    CodecParametersHandle copy = MakeCodecParameters();
    if (avcodec_parameters_copy(copy.get(), &source) < 0)
        throw std::bad_alloc();
    return copy;
}

boost::intrusive_ptr<Conf::IFormatCodec> MakeVideoParameters(const AVCodecParameters& parameters, AVRational timeBase,
                                                             const Core::Property& description) {
    return new Parameters<Conf::IFormatCodecVideo>(parameters, timeBase, description);
}

boost::intrusive_ptr<Conf::IFormatCodec> MakeAudioParameters(const AVCodecParameters& parameters, AVRational timeBase,
                                                             const Core::Property& description) {
    return new Parameters<Conf::IFormatCodecAudio>(parameters, timeBase, description);
}

const CodecParametersFF* CodecParametersOf(const Conf::IFormatCodec& format) noexcept {
    return dynamic_cast<const CodecParametersFF*>(&format);
}

} // namespace Kestra::FF
