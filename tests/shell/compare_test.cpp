#include "shell/compare/compare_panel.h"

#include <wx/dataview.h>

#include "core/notation.h"
#include "patch/image_compare.h"
#include "shell/compare/difference_strip.h"
#include "shell/desk.h"
#include "shell/map/image_strip.h"
#include "shell/patch/patch_editor.h"
#include "shell/patch/patch_panel.h"

namespace tarvelo {
namespace {

using Values = std::vector<std::uint8_t>;

constexpr std::size_t erased = 0x700;
constexpr std::size_t greetingData = 0x7C0AC4;  // of block 5076

// The demonstration fullflash is open; the second dump starts as a copy of it.
class CompareDesk : public Desk {
 protected:
  CompareDesk() : bytes(DemoImage()) {
    std::fill_n(bytes.begin() + erased, 0x100, 0xFF);
    other = bytes;
    OpenBytes("demo.bin", bytes, Id::Info);
  }

  void CompareTo(const Values& second) {
    script.file = folder.Write("second.bin", second);
    script.said.clear();
    Choose(Id::CompareWith);
    EXPECT_TRUE(script.TakeSaid().starts_with("open Fullflash (*.bin,*.fls)|"));
  }
  // Changes these erased bytes in the second dump, then compares.
  void CompareWithChanged(std::initializer_list<std::size_t> places) {
    for (const std::size_t i : places) other[erased + i] = 0x12;
    CompareTo(other);
  }

  [[nodiscard]] ComparePanel& Panel() { return Shown<ComparePanel>(); }
  [[nodiscard]] std::string Figures() { return Utf8(Panel().Figures()); }
  [[nodiscard]] std::string Head() { return Utf8(Panel().Head()); }

  Values bytes, other;
};

TEST_F(CompareDesk, ListsDifferencesWithTheirLabels) {
  Choose(Id::ComparePanel);
  EXPECT_EQ(List().RowCount(), 0u);
  other[greetingData + 1] ^= 0x01;
  other[greetingData + 4] ^= 0x01;
  for (std::size_t i = 0; i < 9; ++i) other[erased + i] = static_cast<std::uint8_t>(i);
  CompareTo(other);
  EXPECT_EQ(Title(), "Tarvelo - Comparison");
  EXPECT_EQ(Head(), "Compared with: " + PathText(folder / "second.bin"));
  EXPECT_EQ(Figures(), "Number of differences: 2    Number of differing bytes: 11");
  EXPECT_EQ(List().Selected(), 0u);
  EXPECT_EQ(RowOf(List(), 0),
            "000700\t200:0700\t      9\tFFFFFFFFFFFFFFFF...\t0001020304050607...\terased\n");
  const std::string second = RowOf(List(), 1);
  EXPECT_EQ(second.substr(15, 9), "\t      4\t");
  EXPECT_TRUE(second.ends_with("\tEEPROM 5076\n")) << second;

  List().Select(1);
  main->ApplyLang(*FindLanguage("DE"));
  EXPECT_EQ(List().Selected(), 1u);
  EXPECT_EQ(List().Captions()[3], "Alt");
  EXPECT_TRUE(RowOf(List(), 0).ends_with("\tunbeschrieben\n")) << RowOf(List(), 0);
}

TEST_F(CompareDesk, ComparesDumpsOfDifferentSizeByPhoneAddress) {
  CompareTo(other);
  EXPECT_EQ(Figures(), "The fullflashes are the same.");
  other[greetingData] ^= 0x01;
  CompareTo(Values(other.begin() + 0x200000, other.end()));
  EXPECT_EQ(Figures(),
            "Number of differences: 1    Number of differing bytes: 1\n"
            "The fullflashes have different lengths: only the 6291456 bytes that both have were compared. "
            "The open fullflash has 2097152 bytes more.");
  EXPECT_TRUE(RowOf(List(), 0).starts_with("7C0AC4\t3F0:0AC4\t")) << RowOf(List(), 0);
  Panel().Strip().onClick(0x1000);  // in the rest, which was not compared
  EXPECT_EQ(List().Selected(), 0u);
  const std::string lines = Said(Id::DifferencesToPatch, "One");
  EXPECT_NE(lines.find("7C0AC4: " + HexOfByte(bytes[greetingData]) + " " + HexOfByte(other[greetingData])),
            lines.npos)
      << lines;
}

TEST_F(CompareDesk, ComparesFromTheFirstByteIfChosen) {
  other[erased] = 0;
  CompareTo(Values(other.begin(), other.begin() + 0x1000));
  Panel().SetFromStart(true);
  EXPECT_EQ(Figures(),
            "Number of differences: 1    Number of differing bytes: 1\n"
            "The fullflashes have different lengths: only the 4096 bytes that both have were compared. "
            "The open fullflash has 8384512 bytes more.");
  Panel().Strip().onClick(0x700000);  // in the rest
  EXPECT_EQ(List().Selected(), 0u);
  other[erased] = 0xFF;
  other.push_back(0);
  CompareTo(other);
  EXPECT_GT(List().RowCount(), 1u);  // each second dump is compared by phone address at first
  Panel().SetFromStart(true);
  EXPECT_EQ(Figures(),
            "Number of differences: 0    Number of differing bytes: 0\n"
            "The fullflashes have different lengths: only the 8388608 bytes that both have were compared. "
            "The other fullflash has 1 bytes more.");
}

TEST_F(CompareDesk, IsWalkedByKeysAndStrip) {
  CompareWithChanged({0x10, 0x80, 0xE0});
  main->Run(Id::Next);
  main->Run(Id::Next);
  EXPECT_EQ(List().Selected(), 2u);
  main->Run(Id::Previous);
  EXPECT_EQ(List().Selected(), 1u);
  List().Select(0);
  Panel().Strip().onClick(erased + 0x6F);
  EXPECT_EQ(List().Selected(), 1u);
  main->Run(Id::CopyOffset);
  EXPECT_EQ(ClipboardText(), "000780");
  main->Run(Id::CopyAddress);
  EXPECT_EQ(ClipboardText(), "200:0780");
  EXPECT_EQ(Utf8(Panel().Strip().describe(erased, 16)), "000700: erased");
  main->Run(Id::OpenHex);
  EXPECT_EQ(Title(), "Tarvelo - Hex view");
  Choose(Id::ComparePanel);
  EXPECT_EQ(List().Selected(), 1u);  // unchanged
}

TEST_F(CompareDesk, ComparesAgainAfterEdits) {
  CompareWithChanged({0x10, 0x80});
  ListView& list = List();
  list.Select(1);
  Choose(Id::HexView);
  Open().Write(erased + 0x10, Bytes(other).subspan(erased + 0x10, 1));
  EXPECT_EQ(list.RowCount(), 2u);  // the panel is not visible
  Choose(Id::ComparePanel);
  EXPECT_EQ(list.RowCount(), 1u);
  EXPECT_TRUE(RowOf(list, 0).starts_with("000780\t"));
  Open().Undo();
  EXPECT_EQ(list.RowCount(), 2u);
  EXPECT_EQ(list.Selected(), 1u);
  EXPECT_EQ(Figures(), "Number of differences: 2    Number of differing bytes: 2");
}

TEST_F(CompareDesk, GoesWithTheFullflash) {
  CompareWithChanged({0});
  main->Dumps().CloseFF();
  EXPECT_EQ(Said(Id::CompareWith), "");
  main->Dumps().OpenF(folder / "demo.bin");
  script.file.reset();
  Choose(Id::CompareWith);  // cancelled
  EXPECT_EQ(script.offered, folder / "second.bin");
  Choose(Id::ComparePanel);
  Open().Write(0, Bytes(other).first(1));
  EXPECT_EQ(List().RowCount(), 0u);
  main->Dumps().OpenF(WriteDump("small.bin"));
  CompareTo(other);
  EXPECT_GT(List().RowCount(), 1u);
}

TEST_F(CompareDesk, KeepsTheComparisonIfAFileCannotBeRead) {
  CompareWithChanged({0});
  for (const auto& file : {folder / "missing.bin", folder.Write("empty.bin", Values())}) {
    script.file = file;
    EXPECT_NE(Said(Id::CompareWith).find(" | !"), std::string::npos);
    EXPECT_EQ(List().RowCount(), 1u);
    EXPECT_EQ(Head(), "Compared with: " + PathText(folder / "second.bin"));
  }
}

TEST_F(CompareDesk, MakesAPatchOfTheSelection) {
  CompareWithChanged({0x10, 0x80, 0x83, 0xE0});
  wxDataViewCtrl& control = List().Control();
  List().Select(0);
  control.Select(dynamic_cast<wxDataViewVirtualListModel&>(*control.GetModel()).GetItem(2));
  EXPECT_EQ(Said(Id::DifferencesToPatch, "Two"),
            "ask Name of the patch: 000710 - 0007E0 | [Tarvelo - Was added patch \"Two\"]"
            "Changes in this patch: 2 / 3\n\n;Two\n\n"
            "000710: FF 12\n0007E0: FF 12");
  const std::string text = Patch().Patch().Document();
  EXPECT_EQ(Said(Id::DifferencesToPatch, "Two"), "iThe patch holds these changes already.");
  List().Select(1);
  Said(Id::DifferencesToPatch);  // cancelled
  EXPECT_EQ(Patch().Patch().Document(), text);
  for (std::uint8_t& byte : other) byte ^= 1;
  CompareTo(other);
  EXPECT_EQ(Said(Id::DifferencesToPatch),
            "!Add differences to patch: too many bytes at once (8388608 > 1048576)");
}

TEST_F(CompareDesk, GoesOnWithoutLabelsIfBlocksAreTooMany) {
  const Values many = ImageOfBlocks(std::vector(2001, 5));
  OpenBytes("many.bin", many, Id::Info);
  Values changed = many;
  changed[0xE000] = 0;
  CompareTo(changed);
  EXPECT_EQ(script.TakeSaid(), "!There are more than 2000 EEPROM blocks.");
  EXPECT_TRUE(RowOf(List(), 0).ends_with("\tFF\t00\t\n"));
  CompareTo(changed);  // reported once
  EXPECT_TRUE(script.said.empty());
}

TEST(ComparisonRows, StayFewHoweverManyDifferencesThereAre) {
  std::vector<Difference> differences;
  for (Offset at = 0; at < 1000; ++at) differences.push_back({at * 100, at % 10 == 0 ? 60 : 1});
  EXPECT_EQ(NearestDifference(differences, 0), 0u);
  EXPECT_EQ(NearestDifference(differences, 149), 1u);
  EXPECT_EQ(NearestDifference(differences, 151), 2u);
  EXPECT_EQ(NearestDifference(differences, 1058), 10u);  // within
  EXPECT_EQ(NearestDifference(differences, 99999999), 999u);
  EXPECT_EQ(StripOf({.differences = differences, .common = 99950}, 1024 * 200, *wxRED).size(), 1u);
  const Comparison three{.differences = {{10, 1}, {402, 2}, {999, 10}}, .start = 5, .common = 1095};
  const auto apart = StripOf(three, 1024 * 200, *wxRED);  // cells of 201 bytes
  ASSERT_EQ(apart.size(), 3u);
  EXPECT_EQ(apart[0].offset, 5);  // the first cell begins with the compared bytes
  EXPECT_EQ(apart[1].offset, 402);
  EXPECT_EQ(apart[1].size, 201);
  EXPECT_EQ(apart[2].size, 296);  // two cells, clipped to the compared bytes
  EXPECT_FALSE(JoinDifferences(differences, 1000));
  EXPECT_TRUE(JoinDifferences(differences, 500));
  ASSERT_EQ(differences.size(), 1u);
  EXPECT_EQ(differences[0], (Difference{0, 99901}));
}

}  // namespace
}  // namespace tarvelo
