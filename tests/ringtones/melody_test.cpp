#include "ringtones/melody.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "core/file.h"
#include "images.h"
#include "ringtones/ringtone_files.h"
#include "temporary_folder.h"

namespace tarvelo {
namespace {

using Tones = std::vector<Tone>;
// The result of DecodeMelody for these words, which alternate between note and duration.
Tones Decoded(std::initializer_list<std::uint16_t> words, std::size_t cut = 0) {
  ImageBuilder builder(2 * words.size());
  std::size_t p = 0;
  for (const std::uint16_t word : words) p = builder.Word(p, word);
  Data bytes = std::move(builder).Take();
  bytes.resize(bytes.size() - cut);
  return DecodeMelody(bytes, 0);
}

TEST(DecodeMelody, KnowsTheEnd) {
  const Tone first{440, 500};
  EXPECT_EQ(Decoded({440, 500, 0xFFFC, 7, 880, 1}), Tones{first});
  EXPECT_EQ(Decoded({440, 500, 0xFFFD, 7, 880, 1}), Tones{first});
  EXPECT_EQ(Decoded({440, 500, 880, 0, 880, 1}), Tones{first});
  EXPECT_EQ(Decoded({440, 500, 0xFFFB, 0, 880, 1}), Tones{first});
  EXPECT_EQ(Decoded({440, 500, 0xFFFA, 0, 0, 1, 0xFFFC, 0}), (Tones{first, {0xFFFA, 0}, {0, 1}}));
  EXPECT_EQ(Decoded({440, 500, 0xFFFB, 9, 0xFFFE, 9, 0xFFFF, 9}),
            (Tones{first, {0xFFFB, 9}, {0xFFFE, 9}, {0xFFFF, 9}}));
}

TEST(DecodeMelody, KeepsWholeRecordsAtTheEndOfTheImage) {
  EXPECT_EQ(Decoded({440, 500, 880, 1}).size(), 2u);
  for (const std::size_t cut : {1, 2, 3, 4}) EXPECT_EQ(Decoded({440, 500, 880, 1}, cut).size(), 1u) << cut;
  EXPECT_EQ(Decoded({440, 500}, 1), Tones{});
}

TEST(DecodeMelody, IsBounded) {
  const Data ones(41, 1);
  EXPECT_EQ(DecodeMelody(ones, 0).size(), 10u);
  EXPECT_EQ(DecodeMelody(ones, 0, 3).size(), 3u);
  for (const Offset data : {Offset{-4}, Offset{38}, Offset{41}, Offset{1} << 40})
    EXPECT_EQ(DecodeMelody(ones, data), Tones{}) << data;
}

TEST(ParseMelody, ReadsTonesAsTheyAreHeard) {
  const std::pair<const char*, Tones> cases[] = {
      {"440:500 880:250 ", {{440, 500}, {880, 250}}},
      {"65500:1 65501:1 65536:1", {{65500, 1}, {0, 1}, {0, 1}}},
      {"440:10000 440:10001 440:20000", {{440, 10000}, {440, 0}, {440, 0}}},
      {"4294967736:4294967796", {{0, 0}}},  // 440 and 500 above 2^32
      {"99999999999999999999999:5", {{0, 5}}},
      {"  440:5   880:6  ", {{440, 5}, {880, 6}}},
      {"440", {{440, 0}}},
      {"440 880:6", {{440, 0}, {880, 6}}},
      {":", {{0, 0}}},
      {"440: 500", {{440, 0}, {500, 0}}},
      {"a4:500 440:b", {{0, 500}, {440, 0}}},
      {"-440:-500 +440:500", {{0, 0}, {0, 500}}},
      {"440.9:1e3", {{440, 1}}},
      {"440:500:600", {{440, 500}}},
      {"440:5\t880:6", {{440, 5}}},  // only blanks separate pairs
  };
  for (const auto& [text, tones] : cases) EXPECT_EQ(ParseMelody(text), tones) << text;
}

TEST(ParseMelody, TakesAMillionPairs) {
  std::string text;
  for (int i = 0; i < 1000000; ++i) text.append("1 ");  // not a single colon
  EXPECT_EQ(ParseMelody(text).size(), 1000000u);
  EXPECT_EQ(ParseMelody(std::string(1000000, ' ')).size(), 0u);
}

TEST(KeyOf, IsTheNearestSemitone) {
  // 452.9 Hz is half-way from 69 to 70; 127 is 12543.9 Hz, and 12911.4 Hz is half a semitone above it.
  constexpr std::pair<int, int> keys[] = {{440, 69}, {452, 69}, {453, 70}, {8, 0}, {12911, 127}};
  for (const auto& [frequency, key] : keys) EXPECT_EQ(KeyOf(frequency), key) << frequency;
  for (const int frequency : {0, 7, 12912, 65500}) EXPECT_EQ(KeyOf(frequency), std::nullopt) << frequency;
}

// A tone, a rest, an inaudible tone, one too high for a key, and the first one again for 5 s.
const Tones tune{{440, 100}, {0xFFFB, 50}, {440, 10001}, {20000, 25}, {440, 5000}, {0xFFFB, 150}};

TEST(MelodyMidi, HasATickAMillisecond) {
  const Data expected{'M',  'T',  'h',  'd',  0,    0,    0,    6,  0, 0, 0, 1, 0x01, 0xF4,  // 500 a quarter
                      'M',  'T',  'r',  'k',  0,    0,    0,    32,                          //
                      0x00, 0xFF, 0x51, 0x03, 0x07, 0xA1, 0x20,      // 500000 microseconds
                      0x00, 0xC0, 80,                                //
                      0x00, 0x90, 69,   100,  0x64, 0x80, 69,   64,  // 100
                      0x4B, 0x90, 69,   100,                         // 75 = 50 + 25
                      0xA7, 0x08, 0x80, 69,   64,                    // 5000 = 0x27 * 128 + 8
                      0x81, 0x16, 0xFF, 0x2F, 0x00};                 // 150 = 1 * 128 + 22
  EXPECT_EQ(MelodyMidi(tune), expected);
}

TEST(MelodyMidi, EndsAtAPauseThatIsTooLong) {
  // 26843 rests of 10 s are 268430000 ms; 0x0FFFFFFF is 268435455.
  const Tones rests(30000, Tone{0, 10000});
  const Data file = MelodyMidi(rests);
  const Data end(file.end() - 7, file.end());
  EXPECT_EQ(end, (Data{0xFF, 0xFF, 0xD5, 0x30, 0xFF, 0x2F, 0x00}));  // 268430000 = 0x0FFFEAB0
}

TEST(MelodyWave, IsASquareWave) {
  // 2205 Hz: 10 samples per period; 22.05 samples per millisecond, 88.2 in all.
  const Data file = MelodyWave(Tones{{2205, 1}, {0xFFFB, 1}, {11026, 1}, {11025, 1}});
  ASSERT_EQ(file.size(), 44u + 88);
  const auto samples = [&](int from, int count) {
    return Data(file.begin() + 44 + from, file.begin() + 44 + from + count);
  };
  EXPECT_EQ(samples(0, 12), (Data{192, 192, 192, 192, 192, 64, 64, 64, 64, 64, 192, 192}));
  EXPECT_EQ(samples(22, 44), Data(44, 128));
  EXPECT_EQ(samples(66, 4), (Data{192, 64, 192, 64}));
}

TEST(MelodyWave, KeepsTimeAndIsBounded) {
  EXPECT_EQ(MelodyWave(Tones(1000, Tone{440, 1})).size(), 44u + 22050);
  const Data odd = MelodyWave(Tones{{440, 20}});  // 441 samples and a padding byte
  EXPECT_EQ(odd.size(), 44u + 442);
  EXPECT_EQ(odd[4] + 256 * odd[5], 36 + 442);
  EXPECT_EQ(odd[40] + 256 * odd[41], 441);
  EXPECT_EQ(MelodyWave(Tones(61, Tone{440, 10000})).size(), 44u + 600 * 22050);
  EXPECT_EQ(MelodyWave({}).size(), 44u);
}

TEST(SaveDump, WritesOnlyBytesWithinTheImage) {
  const Fullflash image{Bytes(Data{1, 2, 3, 4, 5, 6})};
  const TemporaryFolder folder;
  const auto saved = [&](Offset offset, Offset size) {
    return ReadAll(SaveDump(image, folder / "MIDI", "dump", 0xAB, ".bin", offset, size));
  };
  EXPECT_EQ(saved(1, 3), "\x02\x03\x04");
  EXPECT_EQ(ReadAll(folder / "MIDI" / "dump_00AB.bin"), "\x02\x03\x04");
  EXPECT_EQ(saved(5, 1), "\x06");  // replaces an older, longer file
  EXPECT_EQ(saved(4, Offset{1} << 40), "\x05\x06");
  constexpr std::pair<Offset, Offset> nothing[] = {{6, 1}, {100, 1}, {2, -1}};
  for (const auto& [offset, size] : nothing) EXPECT_EQ(saved(offset, size), "") << offset;

  const auto other = folder.Write("other", std::string("old"));
  RemoveFile(folder / "MIDI" / "dump_00AB.bin");
  std::error_code error;
  std::filesystem::create_symlink(other, folder / "MIDI" / "dump_00AB.bin", error);
  if (error) GTEST_SKIP() << "no links here: " << error.message();
  EXPECT_EQ(saved(0, 1), "\x01");  // replaces a link rather than write through it
  EXPECT_EQ(ReadAll(other), "old");
}

TEST(SaveRingtone, TurnsOnlyMelodiesIntoSoundFiles) {
  ImageBuilder builder(0x100);
  builder.DWord(0x10, 100u << 16 | 440);
  builder.Word(0x14, 0xFFFC);
  const Fullflash image = ImageOf(std::move(builder));
  const TemporaryFolder folder;
  const auto save = [&](RingtoneForm form, RingtoneFormat format) {
    const Ringtone ringtone{.number = 0x1F, .form = form, .data = 0x10, .size = 4};
    const auto path = SaveRingtone(image, ringtone, folder.Path(), "d", format);
    return path ? path->filename().string() + " " + std::to_string(std::filesystem::file_size(*path)) : "";
  };
  EXPECT_EQ(save(RingtoneForm::Melody, RingtoneFormat::Raw), "d_001F.bin 4");
  EXPECT_EQ(save(RingtoneForm::Melody, RingtoneFormat::Wave), "d_001F.wav 2250");  // 44, 2205, 1
  EXPECT_EQ(save(RingtoneForm::Melody, RingtoneFormat::Midi), "d_001F.mid 44");    // 14 + 8 + 7 + 3 + 8 + 4
  EXPECT_EQ(save(RingtoneForm::Midi, RingtoneFormat::Midi), "d_001F.mid 4");
  EXPECT_EQ(save(RingtoneForm::Midi, RingtoneFormat::Wave), "");
  EXPECT_EQ(save(RingtoneForm::Wave, RingtoneFormat::Raw), "d_001F.wav 4");
  EXPECT_EQ(save(RingtoneForm::Wave, RingtoneFormat::Wave), "d_001F.wav 4");
  EXPECT_EQ(save(RingtoneForm::Wave, RingtoneFormat::Midi), "");
}

}  // namespace
}  // namespace tarvelo
