#include "ExportCore/EventLoopFailures.h"
