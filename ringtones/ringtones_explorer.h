// Ringtones as an explorer. The records of its findings are a RingtoneList.
#pragma once

#include "core/explorer.h"

namespace tarvelo {

extern const Explorer ringtonesExplorer;

}  // namespace tarvelo
