// From the first firmware of the demonstration to the second: functions, a patch, names.
#include <wx/stattext.h>

#include "core/file.h"
#include "demo_versions.h"
#include "shell/code/code_panel.h"
#include "shell/compare/compare_panel.h"
#include "shell/desk.h"
#include "shell/list/review_dialog.h"
#include "shell/patch/patch_editor.h"

namespace tarvelo {
namespace {

class CarryDesk : public Desk {
 protected:
  CarryDesk() {
    static const std::vector<std::uint8_t> one = PartOfDemo(DemoKind::First),
                                           two = PartOfDemo(DemoKind::Second);
    second = folder.Write("second.bin", two);
    OpenBytes("demo.bin", one, Id::Info);
    script.file = second;
  }

  // Looks at a review in its dialog as the user does.
  void Look(const std::function<void(ReviewDialog&)>& look) {
    script.lookThrough = [this, look](const Review& review) {
      ReviewDialog dialog(main, main->Bench().texts, review);
      dialog.Show();
      Settle();
      look(dialog);
    };
  }
  static std::string Shown(ListView& list, std::size_t row) {
    const std::string text = TabSeparated(Table{{}, {list.Row(row)}}, "\n");
    return text.substr(text.find('\n') + 1);
  }
  // Carries a patch to the second firmware. Returns what the window says, without the questions for files.
  std::string Carry(const std::string& patch) {
    Choose(Id::PatchMenu);
    Patch().Patch().SetText(Wx(patch));
    return Said(Id::CarryPatch);
  }

  std::filesystem::path second;
};

TEST_F(CarryDesk, FunctionsAreCompared) {
  Choose(Id::CompareWith);
  auto& panel = Desk::Shown<ComparePanel>();
  const std::size_t bytes = List().RowCount();
  Open().NamePlace(0x3140D2, "Start", "");
  panel.ShowFunctions(true);
  EXPECT_NE(Utf8(panel.Figures()).find("    gone: "), std::string::npos) << panel.Figures();
  ASSERT_TRUE(List().Find("3140D2", SearchFrom::Top, 1));
  EXPECT_EQ(RowOf(List(), *List().Selected()),
            "changed\t3140D2\tB1:40D2\t   30\t3164B6\tB1:64B6\t   36\t   2\t   2\tStart\t\n");
  // The call of the text's function moved, two instructions are new, the loop reads a variable elsewhere.
  for (const auto& [row, text] : {std::pair(1u, "3140D6\tMOV DPP2, #0h\t\t3164BA\tMOV DPP2, #0h\n"),
                                  {4u, "3140E2\tCALLS 0B1h, 400Eh\t~\t3164C6\tCALLS 0B1h, 640Eh\n"},
                                  {5u, "\t\t!\t3164CA\tMOV R12, #0Ah\n"},
                                  {7u, "3140E6\tMOV R12, 8240h\t~\t3164D0\tMOV R12, 8242h\n"}})
    EXPECT_EQ(Shown(panel.Sides(), row), text);
  ASSERT_TRUE(List().Find("3140BA", SearchFrom::Top, 1));  // the table of tests moved in its page
  EXPECT_EQ(Shown(panel.Sides(), 3), "3140C4\tMOV R4, [R12+#20Ch]\t?\t3164A8\tMOV R4, [R12+#260Ch]\n");
  EXPECT_FALSE(panel.Commands()->CanRun(Id::DifferencesToPatch));
  Open().NamePlace(0x3140BA, "Run", "");
  EXPECT_EQ(Cell(*List().Selected(), 9), "Run");
  main->ApplyLang(*FindLanguage("DE"));
  EXPECT_EQ(Cell(*List().Selected(), 0), "verschoben");
  List().onActivate(0);
  EXPECT_NE(dynamic_cast<CodePanel*>(main->Panels().Visible()), nullptr);
  Open().Write(0x46C, std::vector<std::uint8_t>{0x66, 0x02});  // calls another function
  Choose(Id::ComparePanel);
  ASSERT_TRUE(List().Find("000436", SearchFrom::Top, 1));
  EXPECT_EQ(Cell(*List().Selected(), 0) + Cell(*List().Selected(), 7), "ge\xC3\xA4ndert   1");
  panel.ShowFunctions(false);
  EXPECT_GE(List().RowCount(), bytes);
  panel.ShowFunctions(true);
  const ListView& list = List();
  main->Dumps().CloseFF();
  EXPECT_EQ(list.RowCount(), 0u);
}

TEST_F(CarryDesk, APatchIsCarriedAndTheOtherDumpOpened) {
  const auto file = folder / "carried.qpt";
  Look([&](ReviewDialog& dialog) {
    EXPECT_EQ(RowOf(dialog.List(), 0), "    2\tcarried\t314078\t316470\t  14\tDAB11A64\tDAB14064\t\n");
    EXPECT_EQ(dialog.Details()->Selected(), 4u);  // of seven instructions
    EXPECT_EQ(Shown(*dialog.Details(), 4), "314078\tCALLS 0B1h, 401Ah\t~\t316470\tCALLS 0B1h, 641Ah\n");
    EXPECT_TRUE(FirstIn<wxStaticText>(dialog, [](const wxStaticText& text) {
      return text.GetLabelText() == "Places like it in this fullflash and in the other: 1, 1";
    }));
    EXPECT_EQ(RowOf(dialog.List(), 1), "    3\trefused\t31408C\t\t\tE01C\tE02C\tThere is no such place.\n");
    EXPECT_EQ(Shown(*dialog.Details(), 3), "31408C\tMOV R12, #1h\t!\t\t\n");  // its function is gone
    EXPECT_EQ(RowOf(dialog.List(), 2), "    4\tcarried\t3401B9\t3425B9\t1025\t42\t62\t\n");
    EXPECT_EQ(Shown(*dialog.Details(), 4).substr(0, 13), "3401B9\t426174");  // its bytes
    EXPECT_EQ(RowOf(dialog.List(), 3),
              "    5\trefused\t\t\t\t\t\tThis is not a line of a patch. \"rubbish\"\n");
    script.file = folder / "carried";  // gets its extension
  });
  // The patch is for the file, whatever was edited since.
  Open().Write(0x314078, std::vector<std::uint8_t>{0, 0, 0, 0});
  const std::string patch = ";Own\n314078: DAB11A40 DAB14840\n31408C: E01C E02C\n3401B9: 42 62\nrubbish\n";
  EXPECT_TRUE(
      Carry(patch).starts_with("open Fullflash (*.bin,*.fls)|*.bin;*.fls|All files|*.* | review Lines "
                               "carried over: 2 / 4\nLine\tState\t"));
  EXPECT_FALSE(FileExist(file));  // cancelled
  script.file = second;
  script.reviewed = ReviewAnswer();
  script.confirm = true;
  EXPECT_NE(Carry(patch).find(" | save second.qpt | iPatch was saved in file" + At(file) +
                              " | ?Open the other fullflash with this patch in a new window?" + At(second)),
            std::string::npos);
  EXPECT_TRUE(script.started.back().ends_with(" \"" + PathText(second) + "\" \"" + PathText(file) + "\""));
  EXPECT_NE(ReadAll(file).find("C55 v25"), std::string::npos);
  EXPECT_NE(ReadAll(file).find(";Own\r\n316470: DAB11A64 DAB14064\r\n;"), std::string::npos) << ReadAll(file);
  WriteFile(file, "old");
  script.file = second;
  EXPECT_NE(Carry(patch).find("carried.qpt.bak"), std::string::npos);
  EXPECT_EQ(ReadAll(folder / "carried.qpt.bak"), "old");
}

TEST_F(CarryDesk, FarAndForeignDumpsAreNamed) {
  std::string lines;
  for (int i = 0; i < 20; ++i) lines += i < 11 ? "314078: 00 01\n" : "3401B9: 42 62\n";
  EXPECT_NE(Carry(lines).find("carried over: 9 / 20\nLess than half of the patch was carried over"),
            std::string::npos);
  const std::string question =
      "?The other fullflash is of another phone or of another size.\nAre you sure to continue ?";
  script.file = WriteDump("small.bin");
  EXPECT_TRUE(Carry(lines).ends_with(" | " + question));
  script.confirm = true;
  EXPECT_NE(Carry(lines).find(question + " | review Lines carried over: 0 / 20"), std::string::npos);
  EXPECT_EQ(Carry(";nothing\n"), "iThe patch holds no changes.");
}

TEST_F(CarryDesk, AnAreaInUseIsExchangedIfWanted) {
  std::vector<std::uint8_t> bytes = PartOfDemo(DemoKind::Second);
  std::fill_n(bytes.begin() + 0x360000, 0x100, 0);
  script.file = folder.Write("second.bin", bytes);
  const std::string patch = "314078: DAB11A40 DAB60000\n360000: FFFFFFFFFFFFFFFF E00CDAB11A40DB00\n";
  const std::string asked =
      "Nothing else may need them.\n\n360000-360007 -> 5B0000-5B0007 | review Lines carried over: ";
  EXPECT_NE(Carry(patch).find(asked + "0 / 2"), std::string::npos);
  script.confirm = true;
  EXPECT_NE(Carry(patch).find(asked + "2 / 2"), std::string::npos);
}

TEST_F(CarryDesk, NamesAreTakenAndFound) {
  folder.Write("demo.names.tsv", std::string("B14094\tOnKey\tup\nB140D2\tStart\nB14038\tPlayMelody\n"
                                             "B14048\tReadBlock\nB1400E\tShow\n"));
  main->Dumps().OpenF(second);
  Open().NamePlace(0x3164B6, "Main", "");
  Open().NamePlace(0x316478, "", "keys");
  Open().NamePlace(0x316440, "ReadBlock", "");
  script.file = folder / "demo.bin";
  script.reviewed = ReviewAnswer();
  const std::string list =
      "new: 1 / 5\nA place that has another name is renamed only if you select it.\n"
      "Name\tAddress\tOffset\tState\tName here\nShow\tB1640E\t31640E\tnew\t\n"
      "PlayMelody\t\t\tThere is no such place.\t\nReadBlock\tB16440\t316440\there already\tReadBlock\n"
      "OnKey\tB16478\t316478\tanother name here\t\nStart\tB164B6\t3164B6\tanother name here\tMain\n";
  const std::string taken = " | iNames taken: ";
  const std::string file = At(folder / "second.names.tsv");
  EXPECT_TRUE(Said(Id::TakeNamesFrom).ends_with(" | review " + list + taken + "1" + file));
  script.reviewed = ReviewAnswer{{{1, 2, 4}}};  // one that was not found, one that is here, another name
  EXPECT_TRUE(Said(Id::TakeNamesFrom).ends_with(taken + "1" + file));
  EXPECT_EQ(Open().PlaceNames().NameAt(0xB164B6), "Start");
  EXPECT_EQ(Open().PlaceNames().NameAt(0xB1640E), "Show");
  EXPECT_EQ(Open().PlaceNames().At(0xB16478)->comment, "keys");
  script.file = second;
  RemoveFile(folder / "second.names.tsv");
  EXPECT_TRUE(Said(Id::TakeNamesFrom).ends_with("iThe other fullflash has no names." + file));

  Open().ReadNames();
  script.file =
      folder.Write("list.txt", std::string("Key = F2F4???? 46FC0200 ED??\nAny = DB00\nNo = 12345678\n-\n"
                                           "Again = F2F4???? 46FC0200 ED??\n"));
  script.reviewed = ReviewAnswer();
  const std::string said = Said(Id::FindNames);
  EXPECT_NE(said.find("new: 2 / 5\n"), std::string::npos) << said;
  for (const char* row : {"\nKey\tB16478\t316478\tnew\t\n", "\nAny\t\t\tfound more than once\t\n",
                          "\nNo\t\t\tfound nowhere\t\n"})
    EXPECT_NE(said.find(row), std::string::npos) << said;
  EXPECT_EQ(ReadAll(folder / "second.names.tsv"), "B16478\tKey\r\n");  // one name for a place
  script.file = folder.Write("list.txt", std::string("; empty\n"));
  EXPECT_TRUE(SaidAtLast(Id::FindNames).starts_with("iThe file holds no patterns."));
}

}  // namespace
}  // namespace tarvelo
