// The explorer of the flash file system. Its findings are a FileList (file_list.h).
#pragma once

#include "core/explorer.h"

namespace tarvelo {

extern const Explorer filesExplorer;

}  // namespace tarvelo
