#include "demo/picture_set.h"

#include <cstddef>
#include <span>

#include "demo/picture_art.h"
#include "demo/picture_encoder.h"

namespace tarvelo {
namespace {

using namespace art;  // NOLINT: this file is nothing but a list of its drawings

using Pictures = std::vector<EncodedPicture>;
using Frame = Canvas (*)(int);

void Add(Pictures& pictures, const Canvas& canvas, Storage storage, Shading shading = Shading::Flat) {
  pictures.push_back(EncodePicture(canvas, storage, shading));
}

void AddAll(Pictures& pictures, std::span<const Canvas> canvases, Storage storage) {
  for (const Canvas& canvas : canvases) Add(pictures, canvas, storage);
}

void AddIcons(Pictures& pictures, std::span<const Drawing> icons, int size, Storage storage) {
  for (const Drawing icon : icons) Add(pictures, DrawIcon(icon, size), storage);
}

// Pictures `first` to `last` of a numbered series.
void AddSeries(Pictures& pictures, Frame frame, int first, int last, Storage storage) {
  for (int i = first; i <= last; ++i) Add(pictures, frame(i), storage);
}

void AddFrames(Pictures& pictures, Frame frame, Storage storage) {
  AddSeries(pictures, frame, 0, frames - 1, storage);
}

EncodedPicture TableStart(bool pageMode) {
  return pageMode ? EncodePicture(TableMark(), Storage::Mono)
                  : EncodePicture(DrawIcon(DrawGlobe, 52), Storage::SixteenPacked);
}

// What the phone shows while it is used: the status line, the menus, the animations.
Pictures MenuTable(bool pageMode) {
  Pictures pictures{TableStart(pageMode)};
  AddSeries(pictures, Battery, 0, batteryLevels - 1, Storage::Mono);
  AddSeries(pictures, SignalBars, 0, signalLevels - 1, Storage::Mono);
  AddAll(pictures, StatusMarks(), Storage::Mono);
  AddSeries(pictures, Battery, 0, batteryLevels - 1, Storage::BytePacked);
  AddSeries(pictures, SignalBars, 0, signalLevels - 1, Storage::BytePacked);
  AddIcons(pictures, MenuIcons(), 24, Storage::BytePacked);
  AddIcons(pictures, ToolIcons(), 24, Storage::Byte);
  AddIcons(pictures, SymbolIcons(), 22, Storage::SixteenPacked);
  AddIcons(pictures, Faces(), 20, Storage::Twelve);
  AddIcons(pictures, MenuIcons().first(6), 24, Storage::TwoBit);
  AddIcons(pictures, ToolIcons().first(6), 24, Storage::MonoPacked);
  AddIcons(pictures, WeatherIcons(), 32, Storage::SixteenPacked);
  AddFrames(pictures, Spinner, Storage::MonoPacked);
  AddFrames(pictures, Hourglass, Storage::SixteenPacked);
  AddFrames(pictures, BouncingBall, Storage::BytePacked);
  AddFrames(pictures, FlyingEnvelope, Storage::TwoBit);
  AddSeries(pictures, SegmentDigit, 0, 10, Storage::TwoBit);
  return pictures;
}

struct Wallpaper {
  Storage storage;
  Shading shading;
};

// How each scene is stored: every depth gets its turn, the coarse ones dithered.
constexpr Wallpaper dayWallpapers[] = {{Storage::SixteenPacked, Shading::Flat},
                                       {Storage::BytePacked, Shading::Dithered},
                                       {Storage::TwelvePacked, Shading::Dithered},
                                       {Storage::Sixteen, Shading::Flat},
                                       {Storage::Byte, Shading::Dithered}};
constexpr Wallpaper nightWallpapers[] = {
    {Storage::SixteenPacked, Shading::Flat}, {Storage::Twelve, Shading::Dithered},
    {Storage::Sixteen, Shading::Flat},       {Storage::SixteenPacked, Shading::Dithered},
    {Storage::Byte, Shading::Dithered},      {Storage::TwelvePacked, Shading::Flat}};

void AddScenes(Pictures& pictures, std::span<const Drawing> scenes, std::span<const Wallpaper> wallpapers) {
  for (std::size_t i = 0; i < scenes.size(); ++i)
    Add(pictures, DrawScene(scenes[i]), wallpapers[i].storage, wallpapers[i].shading);
}

void AddWallpapers(Pictures& pictures) {
  AddScenes(pictures, DayScenes(), dayWallpapers);
  AddScenes(pictures, NightScenes(), nightWallpapers);
  // Scenes in the depths with few colours.
  Add(pictures, DrawScene(DayScenes()[0]), Storage::BytePacked, Shading::Dithered);
  Add(pictures, GreyCopy(DrawScene(NightScenes()[0])), Storage::TwoBit, Shading::Dithered);
  Add(pictures, GreyCopy(DrawScene(DayScenes()[4])), Storage::Mono, Shading::Dithered);
  Add(pictures, GreyCopy(DrawScene(DayScenes()[3])), Storage::MonoPacked, Shading::Dithered);
}

void AddBanners(Pictures& pictures) {
  Add(pictures, LogoBanner(101, 64), Storage::SixteenPacked);
  Add(pictures, LogoBanner(88, 31), Storage::BytePacked, Shading::Dithered);
  Add(pictures, LogoBanner(101, 20), Storage::Twelve);
  Add(pictures, MonoBanner(101, 64, Rgb(0x2850DC)), Storage::TwoBit);
  Add(pictures, MonoBanner(101, 64, black), Storage::MonoPacked);
  Add(pictures, MonoBanner(88, 24, black), Storage::Mono);
}

void AddTestPictures(Pictures& pictures) {
  Add(pictures, MonoTestCard(), Storage::Mono);
  Add(pictures, MonoTestCard(), Storage::MonoPacked);
  Add(pictures, TestCard("2 BIT"), Storage::TwoBit, Shading::Dithered);
  Add(pictures, TestCard("8 BIT"), Storage::Byte);
  Add(pictures, TestCard("8 BIT"), Storage::BytePacked, Shading::Dithered);
  Add(pictures, TestCard("12 BIT"), Storage::Twelve);
  Add(pictures, TestCard("12 BIT"), Storage::TwelvePacked);
  Add(pictures, TestCard("16 BIT"), Storage::Sixteen);
  Add(pictures, TestCard("16 BIT"), Storage::SixteenPacked);
  Add(pictures, ByteColourChart(), Storage::BytePacked);
  Add(pictures, TwelveColourChart(), Storage::Twelve);
  Add(pictures, HueField(), Storage::Sixteen);
  Add(pictures, ColourWheel(64), Storage::SixteenPacked);
  Add(pictures, ColourWheel(64), Storage::TwelvePacked);
  Add(pictures, ColourWheel(64), Storage::BytePacked, Shading::Dithered);
  Add(pictures, GradientStrip(Rgb(0xFF8A1E), Rgb(0x2A10A0)), Storage::SixteenPacked);
  Add(pictures, GradientStrip(Rgb(0xFFE860), Rgb(0x0A7A50)), Storage::TwelvePacked);
  Add(pictures, GradientStrip(Rgb(0xFF90C0), Rgb(0x3020C0)), Storage::Byte, Shading::Dithered);
  Add(pictures, GradientStrip(white, black), Storage::Mono, Shading::Dithered);
}

void AddGames(Pictures& pictures) {
  AddSeries(pictures, PlayingCard, 0, cardKinds - 1, Storage::BytePacked);
  AddSeries(pictures, Die, 1, 6, Storage::SixteenPacked);
  for (int kind = 0; kind < chessKinds; ++kind)
    for (const bool dark : {false, true}) Add(pictures, ChessPiece(kind, dark), Storage::TwoBit);
  Add(pictures, ChessBoard(), Storage::BytePacked);
}

// What the owner chooses: wallpapers, games, pictures to send.
Pictures AlbumTable(bool pageMode) {
  Pictures pictures{TableStart(pageMode)};
  AddWallpapers(pictures);
  AddBanners(pictures);
  AddTestPictures(pictures);
  AddGames(pictures);
  AddAll(pictures, Flags(), Storage::SixteenPacked);
  AddFrames(pictures, MoonPhase, Storage::SixteenPacked);
  AddFrames(pictures, TurningGlobe, Storage::Sixteen);
  AddFrames(pictures, ClockFace, Storage::TwelvePacked);
  return pictures;
}

// Up to the largest and down to the smallest sides that a stand-alone picture can have.
Pictures StandalonePictures() {
  Pictures pictures;
  constexpr Storage storage = Storage::MonoPacked;
  Add(pictures, GreyCopy(DrawScene(DayScenes()[1])), storage, Shading::Dithered);
  Add(pictures, MonoBanner(101, 64, black), storage);
  Add(pictures, MonoBanner(88, 24, black), storage);
  Add(pictures, Hourglass(1), storage);
  Add(pictures, DrawIcon(DrawHandset, 32), storage);
  Add(pictures, DrawIcon(DrawNote, 24), storage);
  Add(pictures, DottedLine(101, 1), storage);
  Add(pictures, DottedLine(1, 80), storage);
  return pictures;
}

}  // namespace

PictureSet DrawPictures(bool pageMode) {
  return {MenuTable(pageMode), AlbumTable(pageMode), StandalonePictures()};
}

}  // namespace tarvelo
