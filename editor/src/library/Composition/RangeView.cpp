#include "Composition/RangeView.h"

namespace Composition {

RangeView::~RangeView() = default;

} // namespace Composition
