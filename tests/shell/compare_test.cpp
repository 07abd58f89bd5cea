#include "shell/compare/compare_panel.h"

#include "core/notation.h"
#include "patch/image_compare.h"
#include "shell/compare/difference_strip.h"
#include "shell/desk.h"
#include "shell/map/image_strip.h"
#include "shell/patch/patch_editor.h"
#include "shell/view/change_view.h"

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
  // Whether the panel shows a text or a check box.
  [[nodiscard]] bool Shows(const std::string& text) {
    return FirstIn<wxControl>(Panel().Window(), [&](const wxControl& control) {
      wxString label = control.GetLabelText();
      label.Replace("\n", " ");
      return control.IsShown() && Utf8(label).starts_with(text);
    });
  }

  Values bytes, other;
};

TEST_F(CompareDesk, ListsDifferencesWithTheirLabels) {
  other[greetingData + 1] ^= 0x01;
  other[greetingData + 4] ^= 0x01;
  for (std::size_t i = 0; i < 9; ++i) other[erased + i] = static_cast<std::uint8_t>(i);
  CompareTo(other);
  EXPECT_EQ(Title(), "Tarvelo - Comparison");
  EXPECT_EQ(Figures(), "Number of differences: 2    Number of differing bytes: 11");
  const std::string instructions = Utf8(Panel().ShownChange().GetText());
  EXPECT_TRUE(instructions.starts_with("- 80:0700  FFFF      BSET R15.15\n")) << instructions;
  EXPECT_NE(instructions.find("+ 80:0700  0001      ADD R0, R1\n"), std::string::npos) << instructions;
  for (const std::string& text : {"Compared with: " + PathText(folder / "second.bin"), Figures()})
    EXPECT_TRUE(Shows(text)) << text;
  EXPECT_EQ(List().Selected(), 0u);
  EXPECT_EQ(RowOf(List(), 0),
            "000700\t200:0700\t      9\tFFFFFFFFFFFFFFFF...\t0001020304050607...\terased\n");
  EXPECT_TRUE(RowOf(List(), 1).ends_with("\tEEPROM 5076\n"));

  main->ApplyLang(*FindLanguage("DE"));
  EXPECT_EQ(List().Selected(), 1u);
  EXPECT_EQ(List().Captions()[3], "Alt");
  EXPECT_TRUE(RowOf(List(), 0).ends_with("\tunbeschrieben\n")) << RowOf(List(), 0);
}

TEST_F(CompareDesk, ComparesDumpsOfDifferentSize) {
  const auto figures = [](const std::string& count, const std::string& common, const std::string& rest) {
    return "Number of differences: " + count + "    Number of differing bytes: " + count +
           "\nThe fullflashes have different lengths: only the " + common +
           " bytes that both have were compared. The " + rest + " bytes more.";
  };
  CompareTo(other);
  EXPECT_EQ(Figures(), "The fullflashes are the same.");
  EXPECT_FALSE(Shows("Compare from"));
  // By phone address.
  other[greetingData] ^= 0x01;
  CompareTo(Values(other.begin() + 0x200000, other.end()));
  EXPECT_EQ(Figures(), figures("1", "6291456", "open fullflash has 2097152"));
  EXPECT_TRUE(Shows("Compare from"));
  EXPECT_TRUE(RowOf(List(), 0).starts_with("7C0AC4\t3F0:0AC4\t")) << RowOf(List(), 0);
  Panel().Strip().onClick(0x1000);  // in the rest, which was not compared
  EXPECT_EQ(List().Selected(), 0u);
  EXPECT_TRUE(
      Said(Id::DifferencesToPatch, "One")
          .ends_with("7C0AC4: " + HexOfByte(bytes[greetingData]) + " " + HexOfByte(other[greetingData])));
  // From the first byte.
  other = bytes;
  other[erased] = 0;
  CompareTo(Values(other.begin(), other.begin() + 0x1000));
  Panel().SetFromStart(true);
  EXPECT_EQ(Figures(), figures("1", "4096", "open fullflash has 8384512"));
  Panel().Strip().onClick(0x700000);  // in the rest
  EXPECT_EQ(List().Selected(), 0u);
  other = bytes;
  other.push_back(0);
  CompareTo(other);
  EXPECT_GT(List().RowCount(), 1u);  // each second dump is compared by phone address at first
  Panel().SetFromStart(true);
  EXPECT_EQ(Figures(), figures("0", "8388608", "other fullflash has 1"));
}

TEST_F(CompareDesk, IsWalkedByKeysAndStrip) {
  CompareWithChanged({0x10, 0x80, 0xE0});
  for (const auto& [id, row] : {std::pair(Id::Next, 1u), {Id::Next, 2u}, {Id::Previous, 1u}}) {
    main->Run(id);
    EXPECT_EQ(List().Selected(), row);
  }
  List().Select(0);
  Panel().Strip().onClick(erased + 0x6F);
  EXPECT_EQ(List().Selected(), 1u);
  EXPECT_EQ(Utf8(Panel().Strip().describe(erased, 16)), "000700: erased");
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
  for (const auto& file : {folder / "missing.bin", folder.Write("empty.bin", Values())}) {
    script.file = file;
    EXPECT_NE(Said(Id::CompareWith).find(" | !"), std::string::npos);
    EXPECT_EQ(List().RowCount(), 1u);  // a file that cannot be read replaces nothing
    EXPECT_EQ(Utf8(Panel().Head()), "Compared with: " + PathText(folder / "second.bin"));
  }
  main->Dumps().CloseFF();
  EXPECT_EQ(Said(Id::CompareWith), "");
  main->Dumps().OpenF(folder / "demo.bin");
  script.file.reset();
  Choose(Id::CompareWith);  // cancelled
  EXPECT_EQ(script.offered, folder / "second.bin");
  Choose(Id::ComparePanel);
  Open().Write(0, Bytes(other).first(1));
  EXPECT_EQ(List().RowCount(), 0u);
}

TEST_F(CompareDesk, MakesAPatchOfTheSelection) {
  CompareWithChanged({0x10, 0x80, 0x83, 0xE0});
  wxDataViewCtrl& control = List().Control();
  List().Select(0);
  control.Select(dynamic_cast<wxDataViewVirtualListModel&>(*control.GetModel()).GetItem(2));
  EXPECT_EQ(Said(Id::DifferencesToPatch, "Two"),
            "ask Name of the patch: 000710 - 0007E0 | [Tarvelo - Was added patch \"Two\"]"
            "Changes in this patch: 2 / 3\n\n;Two\n\n000710: FF 12\n0007E0: FF 12");
  const std::string text = Patch().Patch().Document();
  EXPECT_EQ(Said(Id::DifferencesToPatch, "Two"), "iThe patch holds these changes already.");
  List().Select(1);
  Said(Id::DifferencesToPatch);  // cancelled
  EXPECT_EQ(Patch().Patch().Document(), text);
  // The patch leads from the bytes of the file, not from edited ones, to the second dump.
  Open().Write(erased + 0x83, Values{0x77});
  List().Select(1);
  EXPECT_TRUE(Said(Id::DifferencesToPatch, "Edited").ends_with("\n000780: FFFFFFFF 12FFFF12"));
  for (std::uint8_t& byte : other) byte ^= 1;
  CompareTo(other);
  EXPECT_EQ(Said(Id::DifferencesToPatch),
            "!Add differences to patch: too many bytes at once (8388608 > 1048576)");
}

TEST(ComparisonRows, StayFewHoweverManyDifferencesThereAre) {
  std::vector<Difference> differences;
  for (Offset at = 0; at < 1000; ++at) differences.push_back({at * 100, at % 10 == 0 ? 60 : 1});
  for (const auto& [place, nearest] :
       {std::pair<Offset, std::size_t>(0, 0), {149, 1}, {151, 2}, {1058, 10} /* within */, {99999999, 999}})
    EXPECT_EQ(NearestDifference(differences, place), nearest);
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
