// The factory interfaces' destructors: their tables of functions live in this library.
#include "Kestra/Core/ICodecFactory.h"
#include "Kestra/Core/IDataVideoFFFactory.h"
#include "Kestra/Core/IEffectFactory.h"
#include "Kestra/Core/IFilterFactory.h"
#include "Kestra/Core/IMuxerFactory.h"
#include "Kestra/Core/ISourceFactory.h"

namespace Kestra::Core {

ICodecFactory::~ICodecFactory() = default;
IDataVideoFFFactory::~IDataVideoFFFactory() = default;
IEffectFactory::~IEffectFactory() = default;
IFilterFactory::~IFilterFactory() = default;
IMuxerFactory::~IMuxerFactory() = default;
ISourceFactory::~ISourceFactory() = default;

} // namespace Kestra::Core
