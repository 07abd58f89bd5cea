// The explorer of ringtones. Its findings are a RingtoneList.
#pragma once

#include "core/explorer.h"

namespace tarvelo {

extern const Explorer ringtonesExplorer;

}  // namespace tarvelo
