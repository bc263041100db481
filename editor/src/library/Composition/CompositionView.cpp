#include "Composition/CompositionView.h"

namespace Composition {

CompositionView::~CompositionView() = default;

} // namespace Composition
