// The explorer of functions. Its findings are a FunctionList.
#pragma once

#include "core/explorer.h"

namespace tarvelo {

extern const Explorer functionsExplorer;

}  // namespace tarvelo
