// A dump as explorers get it: the image, and what is known about it from the start.
#pragma once

#include <filesystem>

#include "core/fullflash.h"
#include "core/identification.h"
#include "core/names.h"
#include "core/sieve_marks.h"

namespace tarvelo {

struct Dump {
  Fullflash image;
  Identification info;
  // The folder of the user's own files, which add to what the program knows. Empty: none.
  std::filesystem::path usersFolder;
  Names names = {};
  SieveMarks marks = {};  // while several explorers search (document/joint_search.h); otherwise none
};

}  // namespace tarvelo
