// The status line: a few pixels each, so placed pixel by pixel.

#include <array>
#include <string_view>

#include "demo/lettering.h"
#include "demo/picture_art.h"

namespace tarvelo::art {
namespace {

constexpr int markSize = 12;

// '#' is a drawn pixel, '.' a light one, a blank nothing.
using Mark = std::array<std::string_view, markSize>;

constexpr Mark letterMark{"            ", "############", "##........##", "#.#......#.#",
                          "#..#....#..#", "#...#..#...#", "#....##....#", "#..........#",
                          "#..........#", "############", "            ", "            "};

constexpr Mark bellMark{"     ##     ", "    #..#    ", "   #....#   ", "   #....#   ",
                        "   #....#   ", "   #....#   ", "  #......#  ", "  #......#  ",
                        " #........# ", " ########## ", "     ##     ", "            "};

constexpr Mark keyMark{"            ", "  ####      ", " #....#     ", "#..##..#    ",
                       "#.#  #.#####", "#.#  #.....#", "#..##..#.#.#", " #....##.#.#",
                       "  #### #.###", "       ###  ", "            ", "            "};

constexpr Mark divertMark{"            ", "       #    ", "       ##   ", "  ########  ",
                          " ########## ", " ##     ##  ", " ##    ##   ", " ##   ##    ",
                          " ##         ", " ##         ", " ##         ", "            "};

constexpr Mark roamingMark{"            ", "     ##     ", "    ####    ", "    #..#    ",
                           "   ##..##   ", "   #....#   ", "  ##....##  ", "  #......#  ",
                           " ##......## ", " ########## ", "############", "            "};

constexpr Mark clockMark{"   ######   ", "  #......#  ", " #...##...# ", "#....##....#",
                         "#....##....#", "#....##....#", "#....#####.#", "#....#####.#",
                         "#..........#", " #........# ", "  #......#  ", "   ######   "};

constexpr Mark pointerMark{"##          ", "#.#         ", "#..#        ", "#...#       ",
                           "#....#      ", "#.....#     ", "#......#    ", "#...####    ",
                           "#.#..#      ", "##.#..#     ", "    #..#    ", "     ##     "};

constexpr Mark infraredMark{"            ", "        #   ", "      #  #  ", "###    #  # ",
                            "####  # # # ", "##### # # # ", "##### # # # ", "####  # # # ",
                            "###    #  # ", "      #  #  ", "        #   ", "            "};

constexpr const Mark* marks[] = {&letterMark,  &bellMark,  &keyMark,     &divertMark,
                                 &roamingMark, &clockMark, &pointerMark, &infraredMark};

Canvas DrawMark(const Mark& mark) {
  Canvas canvas(markSize, markSize);
  for (int y = 0; y < markSize; ++y) {
    const std::string_view row = mark[static_cast<std::size_t>(y)];
    for (int x = 0; x < markSize; ++x) {
      const char pixel = row[static_cast<std::size_t>(x)];
      if (pixel != ' ') canvas.Put(x, y, pixel == '#' ? black : white);
    }
  }
  return canvas;
}

// The name of an input mode, light on dark.
Canvas ModeMark(std::string_view name) {
  Canvas canvas(21, markSize);
  canvas.Fill(Path::RoundRect(0, 0, 21, markSize, 2), black);
  canvas.Stroke(CentredLetters(name, 10.5, 2.5), 1, white);
  return canvas;
}

// The middle of each segment of a digit: across at the top, middle and bottom, upright left and
// right, upper and lower.
struct Segment {
  double x;
  double y;
  bool upright;
};

constexpr Segment segments[] = {{7, 2, false},   {12, 6.5, true}, {12, 15.5, true}, {7, 20, false},
                                {2, 15.5, true}, {2, 6.5, true},  {7, 11, false}};

// Bit n lights segment n.
constexpr std::array<unsigned, 10> litSegments{0x3F, 0x06, 0x5B, 0x4F, 0x66, 0x6D, 0x7D, 0x07, 0x7F, 0x6F};

Path SegmentShape(const Segment& s) {
  const Path bar = Path::Polygon({{s.x - 4.5, s.y},
                                  {s.x - 3, s.y - 1.5},
                                  {s.x + 3, s.y - 1.5},
                                  {s.x + 4.5, s.y},
                                  {s.x + 3, s.y + 1.5},
                                  {s.x - 3, s.y + 1.5}});
  return s.upright ? bar.Turned(s.x, s.y, 90) : bar;
}

}  // namespace

Canvas Battery(int level) {
  const Colour light[] = {Rgb(0xC01818), Rgb(0xC07000), Rgb(0x2F8A30), Rgb(0x2F8A30), Rgb(0x2F8A30)};
  Canvas canvas(24, 12);
  const Colour edge = level == 0 ? Rgb(0xC01818) : ink;
  canvas.Fill(Path::RoundRect(0, 0, 22, 12, 1), edge);
  canvas.Fill(Path::Rect(22, 3, 2, 6), edge);
  canvas.Fill(Path::Rect(1, 1, 20, 10), Paint::Vertical(1, 11, {white, Rgb(0xD4DCEA)}));
  for (int cell = 0; cell < level; ++cell) {
    const double x = 2 + cell * 5;
    canvas.Fill(Path::Rect(x, 2, 4, 8), light[level]);
    canvas.Fill(Path::Rect(x, 3, 3, 1), Rgb(0xFFFFFF, 110));
  }
  return canvas;
}

Canvas SignalBars(int level) {
  Canvas canvas(20, 12);
  for (int bar = 0; bar < signalLevels - 1; ++bar) {
    const double height = bar < level ? 4 + bar * 2 : 1;
    canvas.Fill(Path::Rect(bar * 4, 12 - height, 3, height),
                Paint::Vertical(0, 12, {Rgb(0x4A74D8), Rgb(0x1B2F7A)}));
  }
  return canvas;
}

std::vector<Canvas> StatusMarks() {
  std::vector<Canvas> canvases;
  for (const Mark* mark : marks) canvases.push_back(DrawMark(*mark));
  for (const std::string_view name : {"ABC", "123"}) canvases.push_back(ModeMark(name));
  return canvases;
}

Canvas SegmentDigit(int digit) {
  const Colour lit = Rgb(0x2850DC);
  Canvas canvas(digit < 10 ? 14 : 6, 22);
  if (digit == 10) {
    for (const double y : {6.0, 13.0}) canvas.Fill(Path::Rect(1, y, 3, 3), lit);
    return canvas;
  }
  for (std::size_t i = 0; i < std::size(segments); ++i)
    if ((litSegments[static_cast<std::size_t>(digit)] >> i & 1) != 0)
      canvas.Fill(SegmentShape(segments[i]), lit);
  return canvas;
}

}  // namespace tarvelo::art
