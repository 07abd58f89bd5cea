#include "demo/picture_set.h"

#include <cstddef>
#include <iterator>
#include <span>
#include <string_view>

#include "artwork_files.h"
#include "demo/artwork.h"

namespace tarvelo {
namespace {

using namespace embedded;  // NOLINT: this file is nothing but a list of its files
using enum Storage;

using Pictures = std::vector<EncodedPicture>;

constexpr int all = -1;

// The pictures of an artwork file, each `width` wide, or only the one with this index.
struct Series {
  std::string_view file;
  int width;
  Storage storage;
  int only = all;
};

void Add(Pictures& pictures, std::span<const Series> list) {
  for (const Series& series : list) {
    const std::vector<Bitmap> strip = CutStrip(series.file, series.width);
    for (int i = 0; i < std::ssize(strip); ++i)
      if (series.only == all || series.only == i)
        pictures.push_back(EncodePicture(strip[static_cast<std::size_t>(i)], series.storage));
  }
}

EncodedPicture TableStart(bool pageMode) {
  return pageMode ? EncodePicture(TableMark(), Mono)
                  : EncodePicture(CutStrip(globe_png, 52).front(), SixteenPacked);
}

// Pictures of the user interface: the status line, the menus, the animations.
constexpr Series menu[] = {
    {battery_1_png, 24, Mono},        {signal_1_png, 20, Mono},          {status_marks_png, 12, Mono},
    {mode_marks_png, 21, Mono},       {battery_png, 24, BytePacked},     {signal_png, 20, BytePacked},
    {menu_icons_png, 24, BytePacked}, {tool_icons_png, 24, Byte},        {symbols_png, 22, SixteenPacked},
    {faces_png, 20, Twelve},          {menu_icons_2_png, 24, TwoBit},    {tool_icons_1_png, 24, MonoPacked},
    {weather_png, 32, SixteenPacked}, {spinner_png, 24, MonoPacked},     {hourglass_png, 32, SixteenPacked},
    {ball_png, 24, BytePacked},       {flying_envelope_png, 56, TwoBit}, {digits_png, 14, TwoBit}};

// Pictures that the owner chooses: wallpapers, games, pictures to send. They use every depth.
constexpr Series wallpapers[] = {{wallpapers_16_png, 101, SixteenPacked, 0},
                                 {wallpapers_8_png, 101, BytePacked, 0},
                                 {wallpapers_12_png, 101, TwelvePacked, 0},
                                 {wallpapers_16_png, 101, Sixteen, 1},
                                 {wallpapers_8_png, 101, Byte, 1},
                                 {wallpapers_16_png, 101, SixteenPacked, 2},
                                 {wallpapers_12_png, 101, Twelve, 1},
                                 {wallpapers_16_png, 101, Sixteen, 3},
                                 {wallpapers_16_png, 101, SixteenPacked, 4},
                                 {wallpapers_8_png, 101, Byte, 2},
                                 {wallpapers_12_png, 101, TwelvePacked, 2},
                                 {wallpapers_8_png, 101, BytePacked, 3},
                                 {wallpapers_2_png, 101, TwoBit},
                                 {wallpapers_1_png, 101, Mono, 0},
                                 {wallpapers_1_png, 101, MonoPacked, 1},
                                 {logo_16_png, 101, SixteenPacked},
                                 {logo_8_png, 88, BytePacked},
                                 {logo_12_png, 101, Twelve},
                                 {logo_2_png, 101, TwoBit},
                                 {logo_1_png, 101, MonoPacked},
                                 {small_logo_1_png, 88, Mono}};

// Test cards that show at a glance whether a depth is decoded correctly. Some of those with few colours are
// dithered.
constexpr Series testCards[] = {{test_cards_png, 101, Mono, 0},         {test_cards_png, 101, MonoPacked, 0},
                                {test_cards_png, 101, TwoBit, 1},       {test_cards_png, 101, Byte, 2},
                                {test_cards_png, 101, BytePacked, 3},   {test_cards_png, 101, Twelve, 4},
                                {test_cards_png, 101, TwelvePacked, 4}, {test_cards_png, 101, Sixteen, 5},
                                {test_cards_png, 101, SixteenPacked, 5}};
constexpr Series gradients[] = {{hue_field_png, 101, Sixteen},
                                {colour_wheels_png, 64, SixteenPacked, 0},
                                {colour_wheels_png, 64, TwelvePacked, 1},
                                {colour_wheels_png, 64, BytePacked, 2},
                                {gradients_png, 101, SixteenPacked, 0},
                                {gradients_png, 101, TwelvePacked, 1},
                                {gradients_png, 101, Byte, 2},
                                {gradients_png, 101, Mono, 3}};

constexpr Series games[] = {{cards_png, 28, BytePacked},      {dice_png, 24, SixteenPacked},
                            {chess_pieces_png, 24, TwoBit},   {chess_board_png, 96, BytePacked},
                            {flags_png, 30, SixteenPacked},   {moon_png, 22, SixteenPacked},
                            {turning_globe_png, 28, Sixteen}, {clock_png, 36, TwelvePacked}};

constexpr Series standalone[] = {{wallpapers_1_png, 101, MonoPacked, 2},
                                 {logo_1_png, 101, MonoPacked},
                                 {small_logo_1_png, 88, MonoPacked},
                                 {standalone_1_png, 32, MonoPacked},
                                 {note_1_png, 24, MonoPacked}};

Pictures MenuTable(bool pageMode) {
  Pictures pictures{TableStart(pageMode)};
  Add(pictures, menu);
  return pictures;
}

Pictures AlbumTable(bool pageMode) {
  Pictures pictures{TableStart(pageMode)};
  Add(pictures, wallpapers);
  Add(pictures, testCards);
  pictures.push_back(EncodePicture(ByteColourChart(), BytePacked));
  pictures.push_back(EncodePicture(TwelveColourChart(), Twelve));
  Add(pictures, gradients);
  Add(pictures, games);
  return pictures;
}

// Includes the largest and the smallest sides that a stand-alone picture can have.
Pictures StandalonePictures() {
  Pictures pictures;
  Add(pictures, standalone);
  pictures.push_back(EncodePicture(DottedLine(101, 1), MonoPacked));
  pictures.push_back(EncodePicture(DottedLine(1, 80), MonoPacked));
  return pictures;
}

}  // namespace

PictureSet EncodePictures(bool pageMode) {
  return {MenuTable(pageMode), AlbumTable(pageMode), StandalonePictures()};
}

}  // namespace tarvelo
