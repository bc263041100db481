#include "Export/TranscoderLogOutput.h"

#include <glog/logging.h>

namespace Export {

void setTranscoderLogOutput(TranscoderLogOutput output) {
    FLAGS_logtostderr = true;
    FLAGS_minloglevel = output == TranscoderLogOutput::None ? google::NUM_SEVERITIES : google::GLOG_INFO;
}

} // namespace Export
