// The explorer of pictures. Its findings are a PictureList.
#pragma once

#include "core/explorer.h"

namespace tarvelo {

extern const Explorer picturesExplorer;

}  // namespace tarvelo
