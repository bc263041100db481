#include "Composition/MarkerView.h"

namespace Composition {

MarkerView::~MarkerView() = default;

} // namespace Composition
