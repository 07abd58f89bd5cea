#include "pictures/colours.h"

#include <memory>

namespace tarvelo {
namespace {

constexpr std::array<Colour, 8> redLevels{81, 102, 125, 146, 169, 190, 213, 235};
constexpr std::array<Colour, 8> greenLevels{25, 52, 82, 111, 142, 172, 204, 235};
constexpr std::array<Colour, 4> blueLevels{95, 115, 154, 208};

constexpr Colour Rgb(Colour red, Colour green, Colour blue) { return red << 16 | green << 8 | blue; }

// A component of 5 bits, spread over 0 .. 255.
constexpr Colour Expand5(std::size_t component) {
  const auto c = static_cast<Colour>(component & 0x1F);
  return c * 8 + c / 4;
}

std::unique_ptr<ColourTables> Make() {
  auto tables = std::make_unique<ColourTables>();
  for (std::size_t v = 0; v < tables->bits8.size(); ++v)
    tables->bits8[v] = Rgb(redLevels[v >> 5], greenLevels[v >> 2 & 7], blueLevels[v & 3]);
  for (Colour v = 0; v < tables->bits12.size(); ++v)
    tables->bits12[v] = Rgb((v >> 8) * 17, (v >> 4 & 0xF) * 17, (v & 0xF) * 17);
  for (std::size_t v = 0; v < tables->bits16.size(); ++v)
    tables->bits16[v] = Rgb(Expand5(v >> 11), Expand5(v >> 6), Expand5(v));
  tables->bits8[0xC0] = backgroundColour;
  tables->bits16[0xE000] = backgroundColour;
  return tables;
}

}  // namespace

const ColourTables& GetColors() {
  static const std::unique_ptr<ColourTables> tables = Make();
  return *tables;
}

}  // namespace tarvelo
