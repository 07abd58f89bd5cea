#include "ringtones/ringtone_load.h"

#include <gtest/gtest.h>

#include <random>

#include "core/file.h"
#include "images.h"
#include "ringtones/melody.h"
#include "ringtones/ringtone_files.h"
#include "ringtones/ringtone_search.h"
#include "temporary_folder.h"

namespace tarvelo {
namespace {

using Tones = std::vector<Tone>;
using Reason = RefusedRingtone::Reason;

constexpr std::size_t endOfImage = 0x4000;
constexpr std::size_t firstMelody = 0x400;
enum Number : std::size_t { tenNotes, tail, toTheEnd, midi, wave, outside };

Data Records(const Tones& tones) {
  ImageBuilder builder(4 * tones.size());
  std::size_t p = 0;
  for (const Tone& tone : tones) p = builder.Word(builder.Word(p, tone.frequency), tone.duration);
  return std::move(builder).Take();
}

Tones Scale(std::size_t count, std::uint16_t first = 400) {
  Tones tones;
  for (std::size_t i = 0; i < count; ++i) tones.push_back({static_cast<std::uint16_t>(first + i), 5});
  return tones;
}

// A melody of ten notes, one that is its last six notes, one up to the end of the image, a MIDI and a WAVE
// file, and a melody past the end of the image.
Data TestImage() {
  ImageBuilder image(endOfImage);
  image.Data(firstMelody, Records(Scale(10)));
  image.Data(firstMelody + 40, Records({{0xFFFD, 7}}));
  image.Data(endOfImage - 20, Records(Scale(5)));
  image.Data(0x600, MelodyMidi(Scale(8)));
  image.Data(0x900, MelodyWave(Scale(3)));
  image.Pointer(0x300, 0x600);
  image.Pointer(0x304, 0x900);
  const std::size_t targets[] = {firstMelody, firstMelody + 16, endOfImage - 20, 0x300, 0x304, 0};
  const std::uint8_t kinds[] = {0, 0, 0, 6, 7, 0};
  std::size_t at = 0x100;
  for (std::uint8_t n = 0; n < 6; ++n) at = PutRingtone(image, at, n, kinds[n], targets[n]);
  image.DWord(0x104 + 8 * outside, 0x03FFFFFF);
  return std::move(image).Take();
}

class LoadedRingtones : public testing::Test {
 protected:
  LoadedRingtones() { Find(); }

  void Find() { list = GetRingtones(image, noProgress).ringtones; }

  // Loads a file and searches for ringtones again. Returns the reason if it was refused.
  template <typename Contents>
  std::optional<Reason> Load(std::size_t number, const Contents& contents) try {
    const Change change = LoadRingtone(image, list[number], folder.Write("file", contents));
    EXPECT_EQ(change.oldBytes.size(), change.newBytes.size());
    edits.Write(image, {&change, 1});
    Find();
    return {};
  } catch (const RefusedRingtone& refused) {
    EXPECT_EQ(refused.fileSize, std::size(contents));
    EXPECT_EQ(refused.placeSize, list[number].size);
    return refused.reason;
  }

  [[nodiscard]] Data BytesOf(std::size_t number) const {
    const Bytes bytes = image.Region(list[number].data, list[number].size);
    return {bytes.begin(), bytes.end()};
  }

  void UndoAll() {
    while (edits.Undo(image)) continue;
    Find();
  }

  TemporaryFolder folder;
  Fullflash image{Bytes(TestImage())};
  ImageEdits edits;
  std::vector<Ringtone> list;
};

TEST_F(LoadedRingtones, MelodiesAreReadBack) {
  std::mt19937 random(20);
  for (int round = 0; round < 300; ++round) {
    const std::size_t number = random() % 3;
    Tones melody(1 + random() % static_cast<std::size_t>(list[number].size / 4));
    for (Tone& tone : melody)
      tone = {static_cast<std::uint16_t>(random() % 0xFFFC),
              static_cast<std::uint16_t>(1 + random() % 0xFFFF)};
    if (round % 3 == 0) melody.back() = {0xFFFA, 0};
    Data file = Records(melody);
    if (round % 2 == 0) file.insert(file.end(), {0xFC, 0xFF, 0, 0});  // with an end record of its own
    ASSERT_EQ(Load(number, file), std::nullopt);
    EXPECT_EQ(DecodeMelody(image.ff(), list[number].data), melody);
    UndoAll();
  }
}

TEST_F(LoadedRingtones, ShorterMelodiesEndAsTheOldOneDid) {
  EXPECT_EQ(Load(tenNotes, Records(Scale(2, 700))), std::nullopt);
  EXPECT_EQ(BytesOf(tenNotes), Records(Scale(2, 700)));
  EXPECT_EQ(image.DWord(firstMelody + 8), 7 << 16 | 0xFFFD);
  EXPECT_EQ(image.Word(firstMelody + 12), 403);
  EXPECT_EQ(list[tail].size, 24);  // the melody that keeps its remaining notes keeps its end
  EXPECT_EQ(Load(tenNotes, Records(Scale(3))), Reason::TooLong);

  EXPECT_EQ(Load(toTheEnd, Records(Scale(4))), std::nullopt);
  EXPECT_EQ(image.DWord(endOfImage - 4), 0xFFFC);
}

TEST_F(LoadedRingtones, FilesThatDoNotFitAreRefused) {
  Data ended = Records(Scale(8));
  ended[14] = ended[15] = 0;
  const Data longMidi = MelodyMidi(Scale(9)), shortMidi = MelodyMidi(Scale(2));
  Data cutMidi = shortMidi, otherRiff = MelodyWave(Scale(2));
  cutMidi.pop_back();
  Data cutWave = otherRiff;
  cutWave.pop_back();
  otherRiff[8] = 'X';
  const std::tuple<const char*, std::size_t, Data, std::optional<Reason>> cases[] = {
      {"no melody", tenNotes, {}, Reason::Damaged},
      {"a note too many", tenNotes, Records(Scale(11)), Reason::TooLong},
      {"a cut note", tenNotes, Data(39, 7), Reason::OddSize},
      {"notes behind the end", tenNotes, ended, Reason::EndsEarly},
      {"MIDI for a melody", tenNotes, shortMidi, Reason::OtherKind},
      {"RIFF for a melody", tenNotes, otherRiff, Reason::OtherKind},
      {"a note where none has room", outside, Records(Scale(1)), Reason::TooLong},
      {"nothing for nothing", outside, {}, {}},
      {"an end for nothing", outside, Records({{0xFFFC, 0}}), {}},
      {"one byte", midi, {'M'}, Reason::OtherKind},
      {"a name alone", midi, {'M', 'T', 'h', 'd'}, Reason::Damaged},
      {"long MIDI", midi, longMidi, Reason::TooLong},
      {"cut MIDI", midi, cutMidi, Reason::Damaged},
      {"short MIDI", midi, shortMidi, {}},
      {"long WAVE", wave, MelodyWave(Scale(4)), Reason::TooLong},
      {"cut WAVE", wave, cutWave, Reason::Damaged},
      {"another RIFF", wave, otherRiff, Reason::OtherKind},
      {"short WAVE", wave, MelodyWave(Scale(2)), {}},
  };
  for (const auto& [what, number, file, reason] : cases) {
    EXPECT_EQ(Load(number, file), reason) << what;
    if (reason || number == outside) continue;
    EXPECT_EQ(BytesOf(number), file) << what;
  }
  EXPECT_THROW((void)LoadRingtone(image, list[0], folder / "missing"), FileError);
  EXPECT_THROW((void)LoadRingtone(image, list[0], folder.Path()), FileError);
}

// The header announces a second track that is missing: the track left over from the old file would take its
// place.
TEST_F(LoadedRingtones, FilesDoNotGoOnInTheOldOne) {
  Data file = MelodyMidi(Scale(2));
  file[11] = 2;
  ASSERT_EQ(Load(midi, file), std::nullopt);
  edits.Undo(image);
  const Offset behind = list[midi].data + std::ssize(file);
  image.Write(behind, Data{'M', 'T', 'r', 'k', 0, 0, 0, 1, 0});
  EXPECT_EQ(Load(midi, file), Reason::Damaged);
}

TEST_F(LoadedRingtones, DamagedFilesAreRefusedOrReadBack) {
  std::mt19937 random(7);
  int accepted = 0;
  for (int round = 0; round < 2000; ++round) {
    const std::size_t number = round % 2 == 0 ? midi : wave;
    Data file = number == midi ? MelodyMidi(Scale(1 + random() % 8)) : MelodyWave(Scale(1 + random() % 3));
    for (std::size_t i = random() % 3; i > 0; --i)
      file[random() % std::min<std::size_t>(file.size(), 24)] = static_cast<std::uint8_t>(random());
    file.resize(file.size() - std::min<std::size_t>(file.size(), random() % 4));
    const Ringtone place = list[number];
    if (!Load(number, file)) {
      ++accepted;
      ASSERT_EQ(list.size(), 6u) << round;
      EXPECT_EQ(list[number].data, place.data);
      EXPECT_LE(list[number].size, std::ssize(file)) << round;
      EXPECT_LE(std::ssize(file), place.size);
    }
    UndoAll();
    ASSERT_TRUE(std::ranges::equal(image.ff(), TestImage()));
  }
  EXPECT_GT(accepted, 100);
}

}  // namespace
}  // namespace tarvelo
