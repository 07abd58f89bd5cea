// The service menu of the demonstration phone: functions that show how a program uses the things in a dump.
#pragma once

#include "demo/demo_flash.h"

namespace tarvelo {

// The things that the program uses, by offset. The texts are found by what they say.
struct ProgramNeeds {
  std::size_t pictures = 0;   // the first picture table
  std::size_t ringtones = 0;  // the ringtone table
  Area texts;
  bool isLater = false;  // the program of the second firmware
};

// Writes the program. It calls functions, passes pointers to texts in two registers, reads tables in other
// pages, picks a function from a table of pointers, has a switch, and keeps variables and bits in RAM. Its
// constants follow its code. The later program can dim the light, which its start does, has no keypad test
// and nothing that plays melodies, and one more variable before the others.
void WriteProgram(Flash& flash, Area area, const ProgramNeeds& needs);

}  // namespace tarvelo
