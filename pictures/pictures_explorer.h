// Pictures as an explorer. The records of its findings are a PictureList.
#pragma once

#include "core/explorer.h"

namespace tarvelo {

extern const Explorer picturesExplorer;

}  // namespace tarvelo
