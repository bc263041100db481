#include "Kestra/Proc/Settings/SettingsTwoPassEncoding.h"

namespace Kestra::Proc {

SettingsTwoPassEncoding::~SettingsTwoPassEncoding() = default;

} // namespace Kestra::Proc
