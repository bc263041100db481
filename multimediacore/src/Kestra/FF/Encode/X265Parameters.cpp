#include "Kestra/FF/Encode/X265Parameters.h"

#include "Kestra/FF/Av/Error.h"

namespace Kestra::FF {

using Proc::TranscodingError;

void SetX265Parameter(AVCodecContext& context, const char* name, const char* value) {
    Dictionary parameters;
    Check(av_opt_get_dict_val(context.priv_data, "x265-params", 0, parameters.Address()),
          TranscodingError::CodecRefused, "x265-params");
    parameters.Set(name, value);
    Check(av_opt_set_dict_val(context.priv_data, "x265-params", *parameters.Address(), 0),
          TranscodingError::CodecRefused, "x265-params");
}

} // namespace Kestra::FF
