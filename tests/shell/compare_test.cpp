#include "shell/compare_panel.h"

#include <wx/dataview.h>

#include "demo/demo_image.h"
#include "eeprom/block_store.h"
#include "patch/patch_apply.h"
#include "shell/comparison_rows.h"
#include "shell/desk.h"
#include "shell/image_strip.h"
#include "shell/list_view.h"
#include "shell/patch_editor.h"
#include "shell/patch_panel.h"

namespace tarvelo {
namespace {

using Values = std::vector<std::uint8_t>;

constexpr std::size_t erased = 0x700;

// The demonstration fullflash is open; a second dump is made of the same bytes.
class CompareDesk : public Desk {
 protected:
  CompareDesk() : bytes(DemoImage()) {
    std::fill_n(bytes.begin() + erased, 0x100, 0xFF);
    other = bytes;
    main->OpenF(folder.Write("demo.bin", bytes));
  }

  void CompareTo(const Values& second) {
    script.file = folder.Write("second.bin", second);
    Choose(CompareWith);
    EXPECT_TRUE(script.TakeSaid().starts_with("open Fullflash (*.bin,*.fls)|"));
  }

  // Where the live data of a block is.
  [[nodiscard]] std::size_t DataOf(int number) const {
    NoProgress progress;
    const BlockStore store = GetEE(main->Open().image, main->Open().info.Model, progress);
    for (const auto& record : store.records)
      if (record.Number == number && !record.IsDeleted()) return static_cast<std::size_t>(record.DataOffset);
    ADD_FAILURE() << "no block " << number;
    return 0;
  }

  [[nodiscard]] ComparePanel& Panel() { return dynamic_cast<ComparePanel&>(*main->Visible()); }
  [[nodiscard]] ListView& List() { return Panel().ListC(); }
  [[nodiscard]] std::string Figures() { return Utf8(Panel().Figures()); }
  [[nodiscard]] std::string PatchText() const { return main->Patch().Patch().Document(); }
  // A row as the clipboard has it.
  [[nodiscard]] std::string Row(std::size_t row) {
    List().Select(row);
    List().CopyRows();
    const std::string text = ClipboardText();
    return text.substr(text.find('\n') + 1);
  }
  [[nodiscard]] std::string SavedList() {
    Choose(SaveText);
    EXPECT_EQ(script.TakeSaid(), "iList was saved in file\n\n" + PathText(folder / "demo_C.txt"));
    return ReadAll(folder / "demo_C.txt");
  }

  Values bytes, other;
};

const std::string captionLine = "Offset\tAddress\tLength\tOld\tNew\tWhat lies there\r\n";

TEST_F(CompareDesk, ListsWhatDiffersAndWhatLiesThere) {
  Choose(ComparePanelMenu);
  EXPECT_EQ(List().RowCount(), 0u);
  const std::size_t block = DataOf(5076);
  other[block + 1] ^= 0x01;
  other[block + 4] ^= 0x01;
  for (std::size_t i = 0; i < 9; ++i) other[erased + i] = static_cast<std::uint8_t>(i);
  CompareTo(other);
  EXPECT_EQ(Title(), "Tarvelo - Comparison");
  EXPECT_EQ(Utf8(Panel().Head()), "Compared with: " + PathText(folder / "second.bin"));
  EXPECT_EQ(Figures(), "Number of differences: 2    Number of differing bytes: 11");
  EXPECT_EQ(List().Selected(), 0u);
  EXPECT_EQ(Row(0), "000700\t200:0700\t     9\tFFFFFFFFFFFFFFFF...\t0001020304050607...\terased\n");
  const std::string second = Row(1);
  EXPECT_EQ(second.substr(15, 8), "\t     4\t");
  EXPECT_TRUE(second.ends_with("\tEEPROM 5076\n")) << second;
  std::string saved = SavedList();
  EXPECT_EQ(saved.substr(0, captionLine.size()), captionLine);
  EXPECT_EQ(std::ranges::count(saved, '\n'), 3);
  EXPECT_TRUE(saved.ends_with("\tEEPROM 5076\r\n"));
}

TEST_F(CompareDesk, ComparesWhatBothDumpsHave) {
  CompareTo(other);
  EXPECT_EQ(Figures(), "The fullflashes are the same.");
  EXPECT_EQ(SavedList(), captionLine);
  for (const int id : {OpenDifference, OffsetDifference, AddressDifference, NextDifference,
                       PreviousDifference, DifferencesToPatch})
    main->Run(id);
  EXPECT_EQ(Title(), "Tarvelo - Comparison");
  other[erased] = 0;
  CompareTo(Values(other.begin(), other.begin() + 0x1000));
  EXPECT_EQ(Figures(),
            "Number of differences: 1    Number of differing bytes: 1\n"
            "The fullflashes have different lengths: only the first 4096 bytes were compared. "
            "The open fullflash has 8384512 bytes more.");
  Panel().Strip().onClick(0x700000);  // in the rest
  EXPECT_EQ(List().Selected(), 0u);
  other[erased] = 0xFF;
  other.push_back(0);
  CompareTo(other);
  EXPECT_EQ(Figures(),
            "Number of differences: 0    Number of differing bytes: 0\n"
            "The fullflashes have different lengths: only the first 8388608 bytes were compared. "
            "The other fullflash has 1 bytes more.");
  CompareTo({1, 2});
  EXPECT_EQ(List().RowCount(), 1u);
}

TEST_F(CompareDesk, IsWalkedByKeysAndStrip) {
  for (const std::size_t i : {0x10, 0x80, 0xE0}) other[erased + i] = 0;
  CompareTo(other);
  for (const std::size_t row : {1u, 2u, 2u}) {
    main->Run(NextDifference);
    EXPECT_EQ(List().Selected(), row);
  }
  Panel().Strip().onClick(erased + 0x6F);
  EXPECT_EQ(List().Selected(), 1u);
  main->Run(OffsetDifference);
  EXPECT_EQ(ClipboardText(), "000780");
  main->Run(AddressDifference);
  EXPECT_EQ(ClipboardText(), "200:0780");
  EXPECT_EQ(Utf8(Panel().Strip().describe(erased, 16)), "000700: erased");
  main->Run(OpenDifference);
  EXPECT_EQ(Title(), "Tarvelo - Hex view");
  Choose(ComparePanelMenu);
  EXPECT_EQ(List().Selected(), 1u);  // as it was left
}

TEST_F(CompareDesk, ComparesAgainAfterEdits) {
  for (const std::size_t i : {0x10, 0x80}) other[erased + i] = 0;
  CompareTo(other);
  List().Select(1);
  ListView& list = List();
  Choose(HexView);
  main->WriteImage(erased + 0x10, Bytes(other).subspan(erased + 0x10, 1));
  EXPECT_EQ(list.RowCount(), 2u);  // nobody sees it
  Choose(ComparePanelMenu);
  EXPECT_EQ(list.RowCount(), 1u);
  EXPECT_TRUE(Row(0).starts_with("000780\t"));
  main->UndoImage();
  EXPECT_EQ(list.RowCount(), 2u);
  EXPECT_EQ(list.Selected(), 1u);
  EXPECT_EQ(Figures(), "Number of differences: 2    Number of differing bytes: 2");
}

TEST_F(CompareDesk, GoesWithTheFullflash) {
  other[erased] = 0;
  CompareTo(other);
  ListView& list = List();
  main->CloseFF();
  EXPECT_EQ(list.RowCount(), 0u);
  main->Run(CompareWith);
  EXPECT_TRUE(script.said.empty());
  main->OpenF(folder / "demo.bin");
  Choose(ComparePanelMenu);
  EXPECT_EQ(SavedList(), captionLine);
  script.file.reset();
  Choose(CompareWith);  // cancelled
  EXPECT_EQ(script.offered, folder / "second.bin");
  EXPECT_EQ(list.RowCount(), 0u);
  main->WriteImage(0, Bytes(other).first(1));
  main->OpenF(WriteDump("small.bin"));
  CompareTo(other);
  EXPECT_GT(list.RowCount(), 1u);
}

TEST_F(CompareDesk, KeepsTheComparisonWhereAFileCannotBeRead) {
  other[erased] = 0;
  CompareTo(other);
  const auto missing = folder / "missing.bin";
  const auto empty = folder.Write("empty.bin", Values());
  for (const auto& [file, text] :
       {std::pair{missing, "!Can't open file !"}, {empty, "!The file is empty."}}) {
    script.said.clear();
    script.file = file;
    Choose(CompareWith);
    script.TakeSaid();
    EXPECT_TRUE(script.TakeSaid().starts_with(text));
    EXPECT_EQ(List().RowCount(), 1u);
    EXPECT_EQ(Utf8(Panel().Head()), "Compared with: " + PathText(folder / "second.bin"));
  }
}

TEST_F(CompareDesk, MakesAPatchOfTheSelection) {
  for (const std::size_t i : {0x10, 0x80, 0x83, 0xE0}) other[erased + i] = 0x12;
  CompareTo(other);
  wxDataViewCtrl& control = List().Control();
  List().Select(0);
  control.Select(dynamic_cast<wxDataViewVirtualListModel&>(*control.GetModel()).GetItem(2));
  EXPECT_EQ(List().SelectedRows(), (std::vector<std::size_t>{0, 2}));
  script.answer = "Two";
  main->Run(DifferencesToPatch);
  EXPECT_EQ(script.TakeSaid(), "ask Name of the patch: demo.bin");
  const std::vector<Difference> two{{erased + 0x10, 1}, {erased + 0xE0, 1}};
  EXPECT_EQ(script.TakeSaid(), "[Tarvelo - Was added patch \"Two\"];Two\n\n" + PatchLines(bytes, other, two));
  control.SelectAll();
  main->Run(DifferencesToPatch);
  const std::string text = PatchText();
  const ReadPatch patch = ReadPatchText(text.substr(text.rfind(";Two")));
  Fullflash image{Bytes(bytes)};
  ImageEdits().Write(image, CheckPatch(patch.changes, image).ToWrite(patch.changes));
  EXPECT_TRUE(std::ranges::equal(image.ff(), other));
  script.said.clear();
  script.answer.clear();
  main->Run(DifferencesToPatch);  // cancelled
  EXPECT_EQ(PatchText(), text);
  for (std::uint8_t& byte : other) byte ^= 1;
  script.said.clear();
  CompareTo(other);
  EXPECT_EQ(List().RowCount(), 1u);
  main->Run(DifferencesToPatch);
  EXPECT_EQ(script.TakeSaid(), "!Add differences to patch: 8388608 > 1048576");
  main->Status().SetPanel(StatusBar::patchPanel, "");
}

TEST_F(CompareDesk, GoesOnWithoutLabelsWhereBlocksAreTooMany) {
  ImageBuilder builder(0x10000);
  for (std::size_t header = 0; header < std::size_t{2001} * 12; header += 12) {
    builder.Word(header, 0x00FC);
    builder.Word(header + 2, 16);
    builder.DWord(header + 4, 0xFFF000);
    builder.Word(header + 8, 5);
    builder.Word(header + 10, 0xFC00);
  }
  const Values many = std::move(builder).Take();
  main->OpenF(folder.Write("many.bin", many));
  Values changed = many;
  changed[0xE000] = 0;
  script.said.clear();
  CompareTo(changed);
  EXPECT_EQ(script.TakeSaid(), "!There are more than 2000 EEPROM blocks.");
  EXPECT_TRUE(Row(0).ends_with("\tFF\t00\t\n")) << Row(0);
  CompareTo(changed);  // told once
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
  const auto parts = StripOf(differences, 99950, 1024 * 200, *wxRED);  // cells of 201 bytes
  EXPECT_EQ(parts.size(), 1u);
  EXPECT_EQ(parts[0].size, 99950);
  const auto apart = StripOf(std::vector<Difference>{{0, 1}, {402, 2}, {999, 10}}, 1100, 1024 * 200, *wxRED);
  ASSERT_EQ(apart.size(), 3u);
  EXPECT_EQ(apart[1].offset, 402);
  EXPECT_EQ(apart[1].size, 201);
  EXPECT_EQ(apart[2].offset, 804);
  EXPECT_EQ(apart[2].size, 296);  // two cells, as far as was compared
  EXPECT_FALSE(JoinDifferences(differences, 1000));
  EXPECT_EQ(differences.size(), 1000u);
  EXPECT_TRUE(JoinDifferences(differences, 500));
  EXPECT_EQ(differences.size(), 1u);
  EXPECT_EQ(differences[0], (Difference{0, 99901}));
}

}  // namespace
}  // namespace tarvelo
