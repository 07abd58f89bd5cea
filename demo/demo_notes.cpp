#include "demo/demo_notes.h"

#include <sstream>
#include <stdexcept>
#include <string>

namespace tarvelo {
namespace {

[[noreturn]] void Refuse(const std::string& token) { throw std::invalid_argument("no note: " + token); }

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

int Ticks(const std::string& token) {
  const bool dotted = token.back() == '.';
  const int part = std::stoi(token);
  if (ticksOfWhole % part != 0) Refuse(token);
  const int ticks = ticksOfWhole / part;
  return dotted ? ticks + ticks / 2 : ticks;
}

int Key(const std::string& token) {
  constexpr int semitones[] = {9, 11, 0, 2, 4, 5, 7};  // of a .. g above c
  if (token.size() < 2 || token[0] < 'a' || token[0] > 'g' || !IsDigit(token.back())) Refuse(token);
  int key = 12 * (token.back() - '0' + 1) + semitones[token[0] - 'a'];
  if (token.size() == 3 && token[1] == '#') return key + 1;
  if (token.size() == 3 && token[1] == 'b') return key - 1;
  if (token.size() != 2) Refuse(token);
  return key;
}

}  // namespace

std::vector<Note> ParseNotes(std::string_view text) {
  std::vector<Note> notes;
  int ticks = 0;
  std::istringstream tokens{std::string(text)};
  for (std::string token; tokens >> token;) {
    if (token == "|") continue;
    if (IsDigit(token[0])) {
      ticks = Ticks(token);
    } else if (ticks == 0 || (token == "~" && notes.empty())) {
      Refuse(token);
    } else if (token == "~") {
      notes.back().ticks += ticks;
    } else {
      notes.push_back({token == "r" ? rest : Key(token), ticks});
    }
  }
  return notes;
}

}  // namespace tarvelo
