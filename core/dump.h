// A dump as explorers get it: the image, and what is known of it from the start.
#pragma once

#include <filesystem>

#include "core/fullflash.h"
#include "core/identification.h"

namespace tarvelo {

struct Dump {
  Fullflash image;
  Identification info;
  // The folder of files that the user adds to what the program knows; empty: there is none.
  std::filesystem::path usersFolder;
};

}  // namespace tarvelo
