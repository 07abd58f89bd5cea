#include "demo/lettering.h"

#include <algorithm>
#include <cstddef>
#include <iterator>

namespace tarvelo::art {
namespace {

struct Letter {
  char name;
  std::string_view strokes;  // rows of points with blanks between; a point is a column and a row
};

constexpr Letter letters[] = {
    {'A', "0602204246 0444"},
    {'B', "06003041423303 3344453606"},
    {'C', "4130100105163645"},
    {'D', "06003041453606"},
    {'E', "40000646 0333"},
    {'F', "400006 0333"},
    {'G', "41301001051636454323"},
    {'H', "0006 4046 0343"},
    {'I', "1030 2026 1636"},
    {'J', "4045361605"},
    {'K', "0006 4003 0346"},
    {'L', "000646"},
    {'M', "0600234046"},
    {'N', "06004640"},
    {'O', "103041453616050110"},
    {'P', "06003041423303"},
    {'Q', "103041453616050110 2446"},
    {'R', "06003041423303 2346"},
    {'S', "413010010213334445361605"},
    {'T', "0040 2026"},
    {'U', "000516364540"},
    {'V', "002640"},
    {'W', "0016233640"},
    {'X', "0046 4006"},
    {'Y', "002340 2326"},
    {'Z', "00400646"},
    {'0', "103041453616050110"},
    {'1', "112026 1636"},
    {'2', "01103041420646"},
    {'3', "011030414233 1333 334445361605"},
    {'4', "36300444"},
    {'5', "400003334445361605"},
    {'6', "4130100105163645443303"},
    {'7', "0040412326"},
    {'8', "133342413010010213 1304051636454433"},
    {'9', "4313020110304145361605"},
    {':', "22 24"},
    {'-', "0343"},
    {'+', "0343 2125"},
    {'.', "26"},
    {'!', "2024 26"},
    {'?', "01103041422324 26"},
};

constexpr double advance = 6;
constexpr double letterWidth = 4;

std::string_view StrokesOf(char name) {
  const auto found = std::ranges::find(letters, name, &Letter::name);
  return found == std::end(letters) ? std::string_view() : found->strokes;
}

void AddLetter(Path& path, std::string_view strokes, double x, double y, double unit) {
  bool begins = true;
  for (std::size_t i = 0; i < strokes.size();) {
    if (strokes[i] == ' ') {
      begins = true;
      ++i;
      continue;
    }
    const double px = x + (strokes[i] - '0') * unit;
    const double py = y + (strokes[i + 1] - '0') * unit;
    begins ? path.Move(px, py) : path.Line(px, py);
    begins = false;
    i += 2;
  }
}

}  // namespace

Path Letters(std::string_view text, double x, double y, double unit) {
  Path path;
  for (const char name : text) {
    AddLetter(path, StrokesOf(name), x, y, unit);
    x += advance * unit;
  }
  return path;
}

double LettersWidth(std::string_view text, double unit) {
  if (text.empty()) return 0;
  return (advance * static_cast<double>(text.size() - 1) + letterWidth) * unit;
}

Path CentredLetters(std::string_view text, double cx, double y, double unit) {
  return Letters(text, cx - LettersWidth(text, unit) / 2, y, unit);
}

}  // namespace tarvelo::art
