// The factory interfaces' destructors: their tables of functions live in this library.
#include "Kestra/Proc/ICodecFactory.h"
#include "Kestra/Proc/IDataVideoFFFactory.h"
#include "Kestra/Proc/IEffectFactory.h"
#include "Kestra/Proc/IFilterFactory.h"
#include "Kestra/Proc/IMuxerFactory.h"
#include "Kestra/Proc/ISourceFactory.h"

namespace Kestra::Proc {

ICodecFactory::~ICodecFactory() = default;
IDataVideoFFFactory::~IDataVideoFFFactory() = default;
IEffectFactory::~IEffectFactory() = default;
IFilterFactory::~IFilterFactory() = default;
IMuxerFactory::~IMuxerFactory() = default;
ISourceFactory::~ISourceFactory() = default;

} // namespace Kestra::Proc
