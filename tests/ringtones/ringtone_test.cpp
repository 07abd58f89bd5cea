#include <gtest/gtest.h>

#include "images.h"
#include "ringtones/ringtone_length.h"
#include "ringtones/ringtone_search.h"
#include "ringtones/ringtone_table.h"

namespace tarvelo {
namespace {

constexpr std::size_t tableAt = 0x100;
constexpr std::size_t melodyAt = 0x40;  // two notes, 300 ms
constexpr std::size_t small = 0x400;

// The six entries that identify a table and three more, all for one melody.
ImageBuilder WithTable(std::size_t size = small, std::size_t at = tableAt) {
  ImageBuilder image(size);
  std::size_t p = melodyAt;
  for (const std::uint16_t word : {440, 100, 880, 200, 0xFFFC, 0})
    p = image.Word(p, static_cast<std::uint16_t>(word));
  for (std::uint8_t number = 0; number < 9 && at + 8 <= size; ++number)
    at = PutRingtone(image, at, number, 0, melodyAt);
  return image;
}

RingtoneList Found(const ImageBuilder& builder) { return GetRingtones(ImageOf(builder), noProgress); }

// The listed numbers, one hexadecimal digit each.
std::string Numbers(const RingtoneList& list) {
  std::string numbers;
  for (const Ringtone& ringtone : list.ringtones) numbers += "0123456789ABCDEF"[ringtone.number & 0xF];
  return numbers;
}

TEST(GetRingtones, ReadsMelodies) {
  for (const std::size_t size : {small, std::size_t{0x1000001}}) {
    const RingtoneList list = Found(WithTable(size));
    ASSERT_EQ(Numbers(list), "012345678");
    const Ringtone& third = list.ringtones[2];
    EXPECT_EQ(third.data, melodyAt);
    EXPECT_EQ(third.entry, tableAt + 16);
    EXPECT_EQ(third.Notes(), 2);
    EXPECT_EQ(third.time, 300);
  }
}

TEST(GetRingtones, ObeysEachByteOfATable) {
  constexpr std::tuple<const char*, std::size_t, std::uint8_t, const char*> cases[] = {
      {"a number of two bytes", 1, 1, ""},
      {"no 0 behind the kind", 3, 1, ""},
      {"another number in the sixth entry", 40, 6, ""},
      {"no kind of ringtone at the start", 34, 16, ""},
      {"the last kind", 34, 15, "012345678"},
      {"no kind of ringtone in the sixth entry", 42, 16, "01234"},
      {"no kind of ringtone", 58, 16, "0123456"},
      {"a kind that is never listed", 58, 1, "01234568"},
      {"a reserved byte", 59, 99, "012345678"},
      {"a number for the second time", 56, 3, "01234568"},
  };
  for (const auto& [what, offset, value, numbers] : cases) {
    ImageBuilder image = WithTable();
    image.Byte(tableAt + offset, value);
    EXPECT_EQ(Numbers(Found(image)), numbers) << what;
  }
}

TEST(GetRingtones, ReadsATableToTheEndOfTheImage) {
  for (const std::size_t at : {0x7FF8, 0x8000}) EXPECT_EQ(Found(WithTable(0x20000, at)).table, at);
  ImageBuilder shortest = WithTable(tableAt + 41);
  shortest.Byte(tableAt + 40, 5);
  EXPECT_EQ(Found(shortest).table, tableAt);
  EXPECT_EQ(Numbers(Found(WithTable(tableAt + 72))), "012345678");
  EXPECT_EQ(Numbers(Found(WithTable(tableAt + 71))), "01234567");
}

TEST(GetRingtones, PassesOverEights) {
  ImageBuilder image = WithTable();
  for (std::size_t p = tableAt + 48; p < tableAt + 54; p += 2) image.Word(p, 0x0800);
  image.DWord(PutRingtone(image, PutRingtone(image, tableAt + 54, 0xA, 3, melodyAt), 0xB, 0, melodyAt),
              0xFFFFFFFF);
  EXPECT_EQ(Numbers(Found(image)), "012345AB");
  for (const std::size_t odd : {0, 1}) {  // to the very end
    ImageBuilder run = WithTable(small + odd);
    for (std::size_t p = tableAt + 49; p < small + odd; p += 2) run.Byte(p, 8);
    EXPECT_EQ(Numbers(Found(run)), "012345");
  }
}

TEST(GetRingtones, SkipsRingtonesOutsideTheImage) {
  const auto list = [](std::uint8_t kind, std::uint32_t pointer) {
    ImageBuilder image = WithTable();
    image.Byte(tableAt + 50, kind);
    image.DWord(tableAt + 52, pointer);
    image.Byte(0, 'M');
    return Numbers(Found(image));
  };
  // The image lies at 0xFFFC00 .. 0xFFFFFF: page 0x3FF from 0x3C00 on.
  for (const std::uint32_t pointer : {0u, 0x03FF3BFFu, 0x03FF3C00u})
    EXPECT_EQ(list(0, pointer), "01234578") << pointer;
  for (const std::uint32_t pointer : {0x03FF3C01u, 0x03FF4000u, 0xFFFFFFFFu})  // empty past the end
    EXPECT_EQ(list(0, pointer), "012345678") << pointer;
  for (const std::uint32_t pointer : {0u, 0x03FF3BFFu, 0x03FF3FFDu, 0xFFFFFFFFu})
    EXPECT_EQ(list(6, pointer), "01234578") << pointer;
}

TEST(GetRingtones, AnEntryThatIsNotListedLeavesItsNumberFree) {
  ImageBuilder image = WithTable();
  image.DWord(PutRingtone(image, tableAt + 48, 6, 1, melodyAt) + 4, 0);
  image.Byte(tableAt + 56, 6);
  PutRingtone(image, tableAt + 64, 6, 2, melodyAt);
  const RingtoneList list = Found(image);
  ASSERT_EQ(Numbers(list), "0123456");
  EXPECT_EQ(list.ringtones[6].kind, 2);
}

TEST(GetRingtones, FollowsTwoPointersToAFile) {
  const auto found = [](std::uint8_t kind, char first, std::uint32_t second = 0x03FF3F00) {
    ImageBuilder image = WithTable();
    PutRingtone(image, tableAt + 48, 6, kind, 0x2F0);
    image.DWord(0x2F0, second);
    for (const std::size_t file : {0, 0x300, 0x3FF}) image.Byte(file, static_cast<std::uint8_t>(first));
    const RingtoneList list = Found(image);
    if (Numbers(list) == "01234578") return std::string("not listed");
    const Ringtone& file = list.ringtones[6];
    return std::string(file.Extension()) + " " + std::to_string(file.data) + " " + std::to_string(file.size);
  };
  for (const std::uint8_t kind : {6, 7, 8}) {
    EXPECT_EQ(found(kind, 'M'), ".mid 768 0");
    EXPECT_EQ(found(kind, 'R'), ".wav 768 0");
    EXPECT_EQ(found(kind, 'B'), "not listed");
  }
  EXPECT_EQ(found(5, 'M'), ".bin 752 272");  // a melody of FF up to the end of the image
  EXPECT_EQ(found(9, 'M'), ".bin 752 272");
  EXPECT_EQ(found(6, 'M', 0x03FF3FFF), ".mid 1023 0");
  EXPECT_EQ(found(6, 'M', 0x03FF3C00), ".mid 0 0");
  for (const std::uint32_t second : {0u, 0x03FF3BFFu, 0x03FF4000u, 0xFFFFFFFFu})
    EXPECT_EQ(found(6, 'M', second), "not listed") << second;
}

TEST(GetRingtones, MeasuresMelodiesThatShareTheirEnd) {
  ImageBuilder image = WithTable();
  for (std::size_t p = 0x200; p < small; p += 4) image.DWord(p, 0x00010001);  // 1 ms each
  constexpr std::tuple<std::size_t, std::int64_t, std::int64_t> melodies[] = {
      {0x200, 128, 128}, {0x204, 127, 127}, {0x203, 127, 127 * 256},  // reads 0x0100 twice
      {0x202, 127, 127}, {0x3FC, 1, 1},     {0x3FD, 0, 0},           {0x200, 128, 128},
  };
  std::size_t at = tableAt + 4;
  for (const auto& [start, notes, time] : melodies) at = image.Pointer(at, start) + 4;
  const RingtoneList list = Found(image);
  for (std::size_t i = 0; const auto& [start, notes, time] : melodies) {
    EXPECT_EQ(list.ringtones[i].Notes(), notes) << i;
    EXPECT_EQ(list.ringtones[i++].time, time) << start;
  }
}

TEST(RingtoneTable, HasEightColumns) {
  ImageBuilder image = WithTable();
  image.Byte(tableAt + 2, 0xF);
  PutRingtone(image, tableAt + 8, 1, 7, 0x200);
  image.Pointer(0x200, 0x210);
  image.Data(0x210, Data{'R', 'I', 'F', 'F', 12, 0, 0, 0});
  image.DWord(melodyAt, 0);  // numbers 0 to 8 now point to an empty melody
  image.DWord(0x80, 0x2710FFFA);
  image.DWord(0x84, 0);
  image.Pointer(tableAt + 20, 0x80);
  const Fullflash fullflash = ImageOf(image);
  const RingtoneList list = GetRingtones(fullflash, noProgress);
  Table rows = RingtoneRows(list, fullflash).All();
  rows.rows.resize(3);
  EXPECT_EQ(TabSeparated(rows, "\n"),
            "N\tNote\tTime\tT\tOffset\tSize\tRIT\tRingtone\n"
            "00\t   0\t     0\t0F\t000040\t    0\t000100\t\n"
            "01\twav\t     0\t07\t000210\t   20\t000108\t\n"
            "02\t   1\t 10000\t00\t000080\t    4\t000110\t65530:10000 \n");
  EXPECT_EQ(RingtoneInformation(list, Messages()), "Address of RIT-table: 100\nNumber of ringtones: 9\n");
  EXPECT_EQ(RingtoneInformation({}, Messages()), "");
}

TEST(RingtoneTable, BoundsItsTexts) {
  // 0x50000 records without an end, 12 characters each, shared by nine entries.
  ImageBuilder image = WithTable(0x140200);
  for (std::size_t i = 0; i < 9; ++i) image.Pointer(tableAt + 8 * i + 4, 0x200);
  image.Pointer(tableAt + 68, melodyAt);
  const Fullflash fullflash = ImageOf(image);
  const RingtoneList list = GetRingtones(fullflash, noProgress);
  const Table rows = RingtoneRows(list, fullflash).All();
  EXPECT_EQ(rows.rows[0].cells[1], "327680");  // wider than its column
  const auto text = [&](std::size_t row) { return rows.rows[row].cells[7]; };
  // 16 Mi and 4 * 0x140200 are 22022144; five texts are 19660800, the rest holds 196778 pairs.
  EXPECT_EQ(text(4).size(), 12u * 0x50000);
  EXPECT_EQ(text(5).size(), 12u * 196778 + 3);
  EXPECT_EQ(text(5).substr(12 * 196777), "65535:65535 ...");
  EXPECT_EQ(text(6), "...");
  EXPECT_EQ(text(8), "...");  // although its first pair would fit exactly
}

// A MIDI file with a division and tracks, each given as its bytes after "MTrk" and the size.
Data Midi(int format, int division, const std::vector<Data>& tracks) {
  Data file{'M', 'T', 'h', 'd', 0, 0, 0, 6, 0, static_cast<std::uint8_t>(format), 0};
  file.push_back(static_cast<std::uint8_t>(tracks.size()));
  file.push_back(static_cast<std::uint8_t>(division >> 8));
  file.push_back(static_cast<std::uint8_t>(division));
  for (const Data& track : tracks) {
    file.insert(file.end(), {'M', 'T', 'r', 'k', 0, 0, 0, static_cast<std::uint8_t>(track.size())});
    file.insert(file.end(), track.begin(), track.end());
  }
  return file;
}

std::int64_t TimeOf(int format, int division, const std::vector<Data>& tracks) {
  return LengthOfMidi(Midi(format, division, tracks)).time;
}

const Data endAt96{96, 0xFF, 0x2F, 0};

TEST(LengthOfMidi, TimesTheTracks) {
  const Data slowAt48{48, 0xFF, 0x51, 3, 0x0F, 0x42, 0x40, 0, 0xFF, 0x2F, 0};  // one second per quarter
  EXPECT_EQ(TimeOf(0, 96, {endAt96}), 500);            // half a second per quarter by default
  EXPECT_EQ(TimeOf(1, 96, {slowAt48, endAt96}), 750);  // the tempo holds for the other track too
  EXPECT_EQ(TimeOf(1, 96, {endAt96, slowAt48}), 750);
  EXPECT_EQ(TimeOf(2, 96, {slowAt48, endAt96}), 750);  // 250, then 500 at its own tempo
  EXPECT_EQ(TimeOf(2, 96, {endAt96, endAt96}), 1000);
  EXPECT_EQ(TimeOf(0, 7, {{1, 0xFF, 0x2F, 0}}), 71);  // 500 / 7
  EXPECT_EQ(TimeOf(0, 0, {endAt96}), 0);
}

TEST(LengthOfMidi, CountsFramesOfFilm) {
  // 24, 25, 29.97 and 30 frames per second, of 40 or 4 ticks; an unknown frame rate; no ticks.
  constexpr std::pair<int, int> times[] = {{0xE828, 100}, {0xE728, 96}, {0xE304, 801},
                                           {0xE204, 800}, {0xE104, 0},  {0xE200, 0}};
  for (const auto& [division, time] : times) EXPECT_EQ(TimeOf(0, division, {endAt96}), time) << division;
}

TEST(LengthOfMidi, FollowsEventsAsFarAsTheyGo) {
  const std::tuple<const char*, Data, std::int64_t> cases[] = {
      {"running status, a byte and two", {1, 0x90, 60, 9, 2, 60, 0, 4, 0xC0, 5, 8, 6, 0, 0xFF, 0x2F, 0}, 15},
      {"bytes behind the end", {1, 0xFF, 0x2F, 0, 9, 0x90, 60, 9}, 1},
      {"no end", {3, 0xE0, 0, 64, 5, 0xD0, 1}, 8},
      {"long deltas", {0x81, 0x00, 0x90, 60, 9, 0x80, 0x80, 0x80, 0x01, 60, 0}, 129},
      {"a delta of five bytes", {1, 0x90, 60, 9, 0x81, 0x80, 0x80, 0x80, 0, 60, 0}, 1},
      {"a cut delta", {1, 0x90, 60, 9, 0x81}, 1},
      {"a cut event", {1, 0x90, 60, 9, 7, 60}, 1},
      {"a system message and its rest", {1, 0xF0, 2, 0x7E, 0xF7, 2, 0xF7, 1, 0x55, 0, 0xFF, 0x2F, 0}, 3},
      {"one too long", {1, 0x90, 60, 9, 7, 0xF0, 0x8F, 0xFF, 0xFF, 0x7F}, 1},
      {"data without a status", {1, 60, 9}, 0},
      {"a status unknown in files", {1, 0x90, 60, 9, 7, 0xF8, 7, 60, 9}, 1},
      {"a tempo of the wrong size", {0, 0xFF, 0x51, 2, 1, 1, 5, 0xFF, 0x2F, 0}, 5},
  };
  for (const auto& [what, track, ticks] : cases) EXPECT_EQ(TimeOf(0, 500, {track}), ticks) << what;
}

TEST(LengthOfMidi, SizesTheTracksThatExist) {
  Data file = Midi(1, 96, {endAt96, endAt96});
  ASSERT_EQ(file.size(), 38u);
  file.insert(file.end(), {'M', 'T', 'r', 'k', 0, 0, 0, 0});  // one track more than the header says
  const auto size = [](Data bytes, std::size_t at = 0, std::uint8_t value = 'M') {
    bytes[at] = value;
    return LengthOfMidi(bytes).size;
  };
  EXPECT_EQ(size(file), 38);
  EXPECT_EQ(size(file, 11, 3), 46);
  EXPECT_EQ(size(file, 26, 'x'), 26);   // the second chunk is not a track
  EXPECT_EQ(size(file, 18, 0xFF), 46);  // the first passes the end of the image
  EXPECT_EQ(size(file, 7, 18), 46);     // a longer header, in place of the first track
  EXPECT_EQ(size(file, 7, 5), 0);       // a shorter one
  EXPECT_EQ(size(file, 4, 0xFF), 46);   // past the end of everything
  EXPECT_EQ(size(file, 3, 'x'), 0);
  constexpr std::pair<std::size_t, Offset> cuts[] = {{13, 0},  {14, 14}, {21, 14},
                                                     {22, 22}, {24, 24}, {37, 37}};
  for (const auto& [cut, left] : cuts) EXPECT_EQ(LengthOfMidi(Bytes(file).first(cut)).size, left) << cut;
}

TEST(LengthOfMidi, StaysWithinItsNumbers) {
  // The longest delta times at the slowest tempo, as many as a timed file can hold.
  Data file = Midi(0, 1, {{0, 0xFF, 0x51, 3, 0xFF, 0xFF, 0xFF}});
  while (file.size() < 0xFFFF0) file.insert(file.end(), {0xFF, 0xFF, 0xFF, 0x7F, 0xD0, 0});
  file[18] = 0x7F;
  EXPECT_EQ(LengthOfMidi(file).time, (std::int64_t{1} << 36) * 0xFFFFFF / 1000);
  file.resize(0x100001);
  EXPECT_EQ(LengthOfMidi(file).time, 0);
}

// A WAVE file of 8000 bytes per second with 400 bytes of data.
Data Wave() {
  ImageBuilder file(454);
  const auto chunk = [&](std::size_t at, std::string_view name, std::uint32_t length) {
    file.Text(at, name);
    file.DWord(at + 4, length);
  };
  chunk(0, "RIFF", 446);
  file.Text(8, "WAVE");
  chunk(12, "fmt ", 16);
  file.DWord(28, 8000);
  chunk(36, "odd ", 1);  // with a padding byte
  chunk(46, "data", 400);
  return std::move(file).Take();
}

TEST(LengthOfWave, BelievesTheHeaderWithinTheImage) {
  const auto length = [](Data bytes, std::size_t at = 0, std::uint8_t value = 'R') {
    bytes[at] = value;
    const FileLength found = LengthOfWave(bytes);
    return std::to_string(found.size) + " " + std::to_string(found.time);
  };
  const Data file = Wave();
  Data inImage = file;
  inImage.resize(1000, 0xFF);
  EXPECT_EQ(length(inImage), "454 50");
  EXPECT_EQ(length(inImage, 7, 0xFF), "1000 50");
  EXPECT_EQ(length(inImage, 53, 0xFF), "454 50");  // data past the end of the file
  EXPECT_EQ(length(inImage, 5, 0), "198 18");      // 0xBE + 8 bytes, 144 of them data
  EXPECT_EQ(length(inImage, 8, 'x'), "454 0");
  EXPECT_EQ(length(inImage, 16, 11), "454 0");    // no room for a rate
  EXPECT_EQ(length(inImage, 43, 0xFF), "454 0");  // a chunk that passes the end hides the data
  EXPECT_EQ(length(inImage, 3, 'X'), "0 0");
  for (std::size_t cut = 1; cut < file.size(); ++cut) {
    const FileLength found = LengthOfWave(Bytes(file).first(cut));
    EXPECT_EQ(found.size, cut < 8 ? 0 : static_cast<Offset>(cut));
    EXPECT_EQ(found.time, cut < 54 ? 0 : (static_cast<Offset>(cut) - 54 + 4) / 8) << cut;
  }
}

}  // namespace
}  // namespace tarvelo
