// Real keys in menus, dialogs and panels, and what happens to several selected rows.
#include <wx/timer.h>

#include "shell/frame/wx_dialogs.h"
#include "shell/hex_desk.h"
#include "shell/keys.h"
#include "shell/list/review_dialog.h"
#include "shell/patch/apply_patch.h"
#include "shell/patch/patch_editor.h"
#include "shell/pictures/gallery.h"
#include "shell/pictures/pictures_panel.h"
#include "shell/ringtones/piano_roll.h"
#include "shell/ringtones/ringtones_panel.h"

namespace tarvelo {
namespace {

// --- dialogs ---

TEST_F(Desk, EnterAnswersNoAndEscapeCancels) {
  const Messages messages(*FindLanguage("DE"));
  WxDialogs dialogs(main, messages);
  for (const auto& [key, answer] : {std::pair{WXK_RETURN, wxID_NO}, {WXK_ESCAPE, wxID_CANCEL}}) {
    wxTimer presser;
    presser.Bind(wxEVT_TIMER, [&, pressed = key](wxTimerEvent&) {
      PointAt(*main);
      wxUIActionSimulator().Char(pressed);
    });
    presser.Start(400);
    EXPECT_EQ(dialogs.AnswerTo("Are you sure to continue ?"), answer);
  }
}

TEST(BreakLongLines, KeepsTheNameOfAFile) {
  const std::string folder = "/" + std::string(58, 'f') + "/";
  const struct {
    std::string text, broken;
  } rows[] = {
      {"Saved\n\n/tmp/a b.bin", "Saved\n\n/tmp/a b.bin"},
      {folder + std::string(20, 'n'), folder + std::string(20, 'n')},  // 80 columns
      {folder + std::string(21, 'n'), folder + "\n" + std::string(21, 'n')},
      {"C:\\" + std::string(50, 'f') + "\\" + std::string(40, 'n') + "\n\nAdvice",
       "C:\\" + std::string(50, 'f') + "\\\n" + std::string(40, 'n') + "\n\nAdvice"},
      {"/tmp/" + std::string(155, 'n'), "/tmp/" + std::string(75, 'n') + "\n" + std::string(80, 'n')},
      {std::string(39, 'n') + "转转" + std::string(38, 'n'),
       std::string(39, 'n') + "转转" + std::string(37, 'n') + "\nn"},
  };
  for (const auto& [text, broken] : rows) EXPECT_EQ(Utf8(BreakLongLines(Wx(text))), broken);
}

TEST_F(Desk, ListOfMisfitsShowsTheHeaderOfThePatch) {
  main->Dumps().OpenF(WriteDump("phone.bin"));
  for (const char* header : {"", ";C55 24\n;Greeting\n"}) {
    const ReadPatch patch = ReadPatchText(std::string(header) + "1: 00 11\n;end\n");
    const PatchCheck check = CheckPatch(patch.changes, Image());
    const MisfitTable misfits(patch, check, Image(), main->Bench().texts);
    const Review review = ReviewOf(misfits);
    ReviewDialog dialog(main, main->Bench().texts, review);
    const auto shows = [](const wxTextCtrl& text) { return text.GetValue() == ";C55 24\n;Greeting"; };
    EXPECT_EQ(FirstIn<wxTextCtrl>(dialog, shows) != nullptr, *header != '\0');
  }
}

TEST(SystemLauncher, SaysThatTheSystemRefusedAFile) {
  wxUnsetEnv("BROWSER");
  EXPECT_FALSE(SystemLauncher()->OpenWithSystem(TemporaryFolder() / "missing.mid"));
}

// --- keys ---

TEST_F(Desk, PianoRollLeavesFindToTheMenu) {
  OpenDemo(ringtones);
  PianoRoll& roll = Shown<RingtonesPanel>().Roll();
  roll.SetFocus();
  EXPECT_TRUE(PressUntil(roll, 'F', wxMOD_CONTROL, [&] { return !script.said.empty(); }));
  EXPECT_EQ(script.TakeSaid(), "ask Enter the string for search: ");
}

// The menu opens at what is chosen, which scrolls into view, and not at the mouse.
class MenuKeyDesk : public HexDesk {
 protected:
#ifdef __WXMSW__
  static constexpr int key = WXK_WINDOWS_MENU, modifiers = wxMOD_NONE;
#else
  static constexpr int key = WXK_F10, modifiers = wxMOD_SHIFT;
#endif

  // Where the menu of a window opens, in its own coordinates.
  template <typename W>
  wxPoint PlaceByKey(W& window) {
    std::optional<wxPoint> place;
    window.onContextMenu = [&](const wxPoint& at) { place = at; };
    window.SetFocus();
    EXPECT_TRUE(PressUntil(window, key, modifiers, [&] { return place.has_value(); }));
    return window.ScreenToClient(place.value_or(wxPoint(-1, -1)));
  }
};

TEST_F(MenuKeyDesk, OpensTheMenuOfTheHexViewAtTheCursor) {
  Panel().Go(0x7FFF00, 0);
  const wxPoint place = PlaceByKey(Canvas());
  EXPECT_TRUE(Canvas().GetClientRect().Contains(place));
  Panel().Go(0x7FFF14, 0);  // one row down, four bytes to the right
  const wxPoint other = PlaceByKey(Canvas());
  EXPECT_GT(other.y, place.y);
  EXPECT_GT(other.x, place.x);
}

TEST_F(MenuKeyDesk, OpensTheMenuOfTheGalleryAtTheThumbnail) {
  Choose(pictures);
  Gallery& gallery = Shown<PicturesPanel>().AllPictures();
  for (const std::size_t picture : {1u, 200u}) {
    List().Select(picture);
    gallery.Scroll(0, picture == 1 ? 99 : 0);
    const wxPoint place = PlaceByKey(gallery);
    EXPECT_TRUE(gallery.GetClientRect().Contains(place)) << picture;
    Mouse(gallery, wxEVT_LEFT_DOWN, place);
    EXPECT_EQ(List().Selected(), picture);  // the place lies on it
  }
}

TEST_F(MenuKeyDesk, OpensTheMenuOfThePianoRollAtTheNote) {
  Choose(ringtones);
  PianoRoll& roll = Shown<RingtonesPanel>().Roll();
  for (const std::size_t note : {std::size_t{1}, roll.Notes().size() - 1}) {
    roll.Choose(note);
    roll.Scroll(note == 1 ? 99 : 0, 0);
    EXPECT_EQ(roll.NoteAt(PlaceByKey(roll) + wxPoint(1, 0)), note);
  }
}

TEST_F(MenuKeyDesk, MenuOfThePatchOpensBelowTheCaret) {
  Choose(Id::PatchMenu);
  PatchEditor& editor = Patch().Patch();
  editor.Append("one\ntwo\nthree");
  const wxPoint end = editor.BelowCaret();
  EXPECT_EQ(end.y, 3 * editor.TextHeight(0));
  editor.GotoPos(0);
  EXPECT_EQ(editor.BelowCaret().y, editor.TextHeight(0));
  EXPECT_LT(editor.BelowCaret().x, end.x);
}

TEST_F(Desk, KeysOfOtherPanelsChangeNoPatch) {
  main->Dumps().OpenF(WriteDump("phone.bin"));
  Choose(Id::PatchMenu);
  PatchEditor& editor = Patch().Patch();
  editor.Append("one\ntwo\n");
  editor.GotoPos(0);
  const auto type = [&](char key) {
    return PressUntil(editor, key, wxMOD_NONE,
                      [&] { return editor.GetText().Contains(wxString(key).Lower()); });
  };
  ASSERT_TRUE(type('X'));
  for (const int key : {'L', 'T'}) wxUIActionSimulator().Char(key, wxMOD_CONTROL | wxMOD_SHIFT);
  ASSERT_TRUE(type('Y'));
  EXPECT_EQ(editor.GetLine(1), "two\n");
  EXPECT_EQ(editor.GetLineCount(), 3);
}

// --- selections ---

class SelectionDesk : public Desk {
 protected:
  [[nodiscard]] std::vector<std::string> SelectedPlaces(std::size_t column) {
    std::vector<std::string> places;
    for (const std::size_t row : List().SelectedRows()) places.push_back(Cell(row, column));
    return places;
  }
  [[nodiscard]] std::set<std::string> FilesIn(const char* name) const {
    std::set<std::string> names;
    for (const auto& file : std::filesystem::directory_iterator(folder / name))
      names.insert(PathText(file.path().filename()));
    return names;
  }
};

using Places = std::vector<std::string>;
using Names = std::set<std::string>;

TEST_F(SelectionDesk, AllSelectedPicturesAndRingtonesAreSaved) {
  OpenDemo(pictures);
  List().SelectRows({7, 2, 5});
  EXPECT_EQ(Said(Id::SavePic), "iPictures saved: 3\n\n" + PathText(folder / "BMP"));
  EXPECT_EQ(FilesIn("BMP"), (Names{"demo_0002.bmp", "demo_0005.bmp", "demo_0007.bmp"}));

  Choose(ringtones);
  List().SelectRows({1, 5});  // the numbers 1 and 6
  main->Run(Id::SaveMidi);
  EXPECT_EQ(Said(Id::SaveRing), "iRingtones saved: 2\n\n" + PathText(folder / "MIDI"));
  EXPECT_EQ(FilesIn("MIDI"), (Names{"demo_0001.bin", "demo_0001.mid", "demo_0001.wav", "demo_0006.mid"}));

  std::filesystem::remove_all(folder / "MIDI");
  std::filesystem::create_directories(folder / "MIDI" / "demo_0006.mid");  // in the way of the file
  EXPECT_EQ(Said(Id::SaveRing), "iRingtones saved: 1 / 2\n\n" + PathText(folder / "MIDI"));
}

// Three erased regions in a plain dump: the list filtered, sorted downwards, two rows selected.
TEST_F(SelectionDesk, OutlivesEditsInTheMap) {
  std::vector<std::uint8_t> plain(0x10000, 0x90);
  for (const std::size_t start : {0x1000, 0x4000, 0x8000}) std::fill_n(plain.begin() + start, 0x200, 0xFF);
  OpenBytes("plain.bin", plain, Id::Dump);
  List().Filter("erased");
  for (int i = 0; i < 2; ++i) List().SortBy(0);
  List().SelectRows({3, 5});
  ASSERT_EQ(SelectedPlaces(0), (Places{"008000", "004000"}));
  Open().Write(0x100, std::vector<std::uint8_t>(0x200, 0xFF));
  Settle();
  ASSERT_EQ(List().RowCount(), 9u);
  EXPECT_EQ(SelectedPlaces(0), (Places{"008000", "004000"}));
  EXPECT_EQ(Cell(*List().Selected(), 0), "004000");  // still the current one
  EXPECT_EQ(List().ShownRows().count, 4u);
  List().SortBy(3);  // other rows move, too
  EXPECT_EQ(SelectedPlaces(0), (Places{"004000", "008000"}));
  main->Dumps().CloseFF();
  main->Dumps().OpenF(folder / "plain.bin");
  Choose(Id::Dump);
  EXPECT_EQ(List().ShownRows().count, 7u);  // of a new dump, all
}

TEST_F(SelectionDesk, OutlivesEditsInComparisonAndHits) {
  std::vector<std::uint8_t> bytes(0x10000, 0x90);
  const auto dump = bytes;
  for (const std::size_t place : {0x1000, 0x2000, 0x3000, 0x4000}) bytes[place] = 0x12;
  OpenBytes("plain.bin", dump, Id::Info);
  script.file = folder.Write("second.bin", bytes);
  Choose(Id::CompareWith);
  for (int i = 0; i < 2; ++i) List().SortBy(0);
  List().SelectRows({1, 3});
  Open().Write(0x3000, Bytes(bytes).subspan(0x3000, 1));  // no longer different
  EXPECT_EQ(SelectedPlaces(0), (Places{"004000", "002000"}));
  Open().Write(0x4000, Bytes(bytes).subspan(0x4000, 1));
  EXPECT_EQ(SelectedPlaces(0), Places{"002000"});  // and none that was not selected
  Open().Write(0x2000, Bytes(bytes).subspan(0x2000, 1));
  EXPECT_EQ(SelectedPlaces(0), Places{"001000"});  // the nearest one

  Said(Id::Search, "12");
  ASSERT_EQ(List().RowCount(), 3u);
  List().SelectRows({2, 0});
  Open().Undo();
  EXPECT_EQ(SelectedPlaces(1), Places{"004000"});
}

}  // namespace
}  // namespace tarvelo
