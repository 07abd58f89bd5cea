#include <algorithm>

#include "demo/demo_image.h"
#include "media/ringtone_table.h"
#include "shell/desk.h"
#include "shell/list_view.h"
#include "shell/piano_roll.h"
#include "shell/ringtones_panel.h"

namespace tarvelo {
namespace {

constexpr std::size_t midiRow = 5;
constexpr std::size_t waveRow = 6;

// The demonstration fullflash with its Ringtones panel open.
class RingtonesDesk : public Desk {
 protected:
  RingtonesDesk() {
    main->OpenF(folder.Write("demo.bin", DemoImage()));
    Choose(Ringtones);
    panel = dynamic_cast<RingtonesPanel*>(main->Visible());
  }

  [[nodiscard]] ListView& List() { return panel->ListR(); }
  [[nodiscard]] PianoRoll& Roll() { return panel->Roll(); }
  [[nodiscard]] std::string Cell(std::size_t row, std::size_t column) {
    return List().GetTable().rows[row].cells[column];
  }
  [[nodiscard]] std::filesystem::path Saved(const std::string& name) const { return folder / "MIDI" / name; }

  // Selects a row as a click does.
  void Click(std::size_t row) {
    wxDataViewCtrl& control = List().Control();
    auto& model = dynamic_cast<wxDataViewVirtualListModel&>(*control.GetModel());
    const wxDataViewItem item = model.GetItem(static_cast<unsigned>(row));
    control.UnselectAll();
    control.SetCurrentItem(item);
    control.Select(item);
    wxDataViewEvent event(wxEVT_DATAVIEW_SELECTION_CHANGED, &control, item);
    control.ProcessWindowEvent(event);
    Settle();
  }

  bool Press(int key) {
    wxKeyEvent event(wxEVT_CHAR_HOOK);
    event.m_keyCode = key;
    event.SetEventObject(&List().Control());
    return List().Control().ProcessWindowEvent(event);
  }

  // Plays a text; `during` is called while its second tone sounds.
  void PlayWith(const std::string& text, const std::function<void()>& during) {
    script.answer = text;
    script.beeps.clear();
    script.duringBeep = [this, during] {
      if (script.beeps.size() == 2) during();
    };
    panel->PlayText_Click();
    script.duringBeep = {};
  }

  RingtonesPanel* panel = nullptr;
};

using Beeps = std::deque<std::string>;

TEST_F(RingtonesDesk, AreListedAndTheFirstIsShown) {
  EXPECT_EQ(Title(), "Tarvelo - Ringtones");
  const std::size_t count = List().GetTable().rows.size();
  EXPECT_GT(count, 10u);
  EXPECT_EQ(Status(7), std::to_string(count));
  EXPECT_NE(InfoText().find("Address of RIT-table: 330000\nNumber of ringtones: " + Status(7) + "\n"),
            std::string::npos);
  EXPECT_EQ(List().Selected(), 0u);
  EXPECT_EQ(Roll().Length(), 32000);
  EXPECT_EQ(Roll().Notes().front().frequency, 659);
  EXPECT_TRUE(script.beeps.empty());
  List().Select(4);
  Choose(Info);
  Choose(Ringtones);  // not searched again
  EXPECT_EQ(List().Selected(), 4u);
  EXPECT_EQ(InfoText().find("RIT-table"), InfoText().rfind("RIT-table"));
  main->Run(SaveText);
  EXPECT_EQ(script.TakeSaid(), "iList was saved in file\n\n" + PathText(folder / "demo_R.txt"));
}

TEST_F(RingtonesDesk, TextIsPlayedToneByTone) {
  struct Case {
    const char* text;
    Beeps beeps;
  };
  const Case cases[] = {
      {"440:500 880:250", {"440 Hz 500 ms", "880 Hz 250 ms"}},  // the last pair ends with the text
      {"65530:500 65500:1 ", {"0 Hz 500 ms", "65500 Hz 1 ms"}},
      {"1000:20000 1000:10000", {"1000 Hz 0 ms", "1000 Hz 10000 ms"}},
      {"  a:b -5:7x 99999999999:5", {"0 Hz 0 ms", "0 Hz 7 ms", "0 Hz 5 ms"}},
  };
  std::string offered;
  for (const Case& c : cases) {
    script.answer = c.text;
    script.beeps.clear();
    main->Run(PlayText);
    EXPECT_EQ(script.TakeSaid(), "ask Enter the ringtone in text-format: " + offered);
    EXPECT_EQ(script.beeps, c.beeps) << c.text;
    offered = c.text;
  }
  EXPECT_EQ(Roll().Length(), 32000);  // of the selected one again
  script.answer.clear();
  script.beeps.clear();
  main->Run(PlayText);
  EXPECT_TRUE(script.beeps.empty());
}

TEST_F(RingtonesDesk, SelectedOneIsPlayedWhole) {
  main->Run(Play);
  EXPECT_EQ(script.beeps.size(), 76u);
  EXPECT_EQ(script.beeps.front(), "659 Hz 475 ms");
  EXPECT_EQ(script.beeps[1], "0 Hz 25 ms");
  EXPECT_FALSE(panel->Player().IsPlaying());
  EXPECT_EQ(Status(2), "C55 v24 Tarvelo demo T9lg4");
}

TEST_F(RingtonesDesk, FilesAreSavedAndOpened) {
  for (const auto& [row, name, magic] :
       {std::tuple(midiRow, "demo_0006.mid", "MThd"), std::tuple(waveRow, "demo_0007.wav", "RIFF")}) {
    List().Select(row);
    main->Run(Play);
    EXPECT_EQ(script.started.back(), "open " + PathText(Saved(name)));
    EXPECT_EQ(ReadAll(Saved(name)).substr(0, 4), magic);
    EXPECT_EQ(std::to_string(std::filesystem::file_size(Saved(name))),
              Cell(row, 5).substr(Cell(row, 5).find_first_not_of(' ')));
    EXPECT_TRUE(Roll().Notes().empty());
    EXPECT_FALSE(panel->Commands()->CanRun(CopyR));
  }
  EXPECT_EQ(Utf8(Roll().Text()), "WAVE\nSize: 12044\n1.5 s");
  EXPECT_TRUE(script.beeps.empty());
}

TEST_F(RingtonesDesk, AreSavedInTheirFormats) {
  List().Select(1);
  main->Run(SaveRing);
  EXPECT_EQ(script.TakeSaid(), "iRingtone \"1\" was saved in file\n\n" + PathText(Saved("demo_0001.bin")));
  EXPECT_EQ(std::filesystem::file_size(Saved("demo_0001.bin")), 160u);
  EXPECT_FALSE(FileExist(Saved("demo_0001.mid")));

  main->Run(SaveMidi);
  main->Run(SaveAllRing);
  EXPECT_EQ(script.TakeSaid(), "iRingtones were saved to\n\n" + PathText(Saved("NNNN.xxx")));
  const std::filesystem::directory_iterator files(folder / "MIDI");
  const auto rows = static_cast<long>(List().GetTable().rows.size());
  EXPECT_EQ(std::distance(begin(files), end(files)), 3 * (rows - 2) + 2);
  EXPECT_TRUE(FileExist(Saved("demo_000F.wav")));

  std::filesystem::remove_all(folder / "MIDI");
  folder.Write("MIDI", std::string());  // no folder can be made
  for (const int id : {SaveRing, SaveAllRing}) main->Run(id);
  EXPECT_EQ(script.TakeSaid(), "");
}

TEST_F(RingtonesDesk, NothingElseRunsWhileOnePlays) {
  const std::string text = "440:1 441:1 442:1 443:1";
  const Beeps all{"440 Hz 1 ms", "441 Hz 1 ms", "442 Hz 1 ms", "443 Hz 1 ms"};
  const Beeps two(all.begin(), all.begin() + 2);

  PlayWith(text, [&] {
    EXPECT_TRUE(Press('A'));  // kept from the list
    EXPECT_EQ(Status(2), "Escape stops");
    EXPECT_TRUE(panel->Commands()->CanRun(StopPlaying));
    EXPECT_FALSE(panel->Commands()->CanRun(Play));
    main->Run(Play);
    EXPECT_EQ(Roll().Length(), 4);
  });
  EXPECT_EQ(script.beeps, all);

  PlayWith(text, [&] { EXPECT_TRUE(Press(WXK_ESCAPE)); });
  EXPECT_EQ(script.beeps, two);
  PlayWith(text, [&] { main->ProcessCommand(StopPlaying); });
  EXPECT_EQ(script.beeps, two);

  // These stop it and are done after it.
  PlayWith(text, [&] {
    Click(3);
    EXPECT_EQ(Roll().Length(), 4);
  });
  EXPECT_EQ(script.beeps, two);
  Settle();
  EXPECT_EQ(Roll().Length(), 13851);
  PlayWith(text, [&] {
    main->ProcessCommand(Info);
    EXPECT_EQ(Title(), "Tarvelo - Ringtones");
  });
  EXPECT_EQ(script.beeps, two);
  Settle();
  EXPECT_EQ(Title(), "Tarvelo - Info");
}

TEST_F(RingtonesDesk, PlayingEndsBeforeTheDocumentGoes) {
  const std::filesystem::path other = WriteDump("other.bin");
  PlayWith("440:1 441:1 442:1", [&] {
    wxArrayString files;
    files.Add(WxPath(other));
    dynamic_cast<wxFileDropTarget*>(List().Control().GetDropTarget())->OnDropFiles(0, 0, files);
    Settle();
    EXPECT_EQ(main->Open().path.filename(), "demo.bin");
  });
  EXPECT_EQ(script.beeps.size(), 2u);
  Settle();
  EXPECT_EQ(main->Open().path, other);

  Choose(Ringtones);
  PlayWith("440:1 441:1 442:1", [&] { EXPECT_FALSE(main->Close()); });
  EXPECT_EQ(script.beeps.size(), 2u);
  main = nullptr;  // closes now
  Settle();
  EXPECT_TRUE(wxTopLevelWindows.empty());
}

TEST_F(RingtonesDesk, AutoplayFollowsTheUserAlone) {
  Click(1);
  EXPECT_TRUE(script.beeps.empty());
  main->Run(Autoplay);
  Click(2);
  EXPECT_EQ(script.beeps.size(), 36u);
  script.beeps.clear();
  Choose(Info);
  main->OpenF(main->Open().path);
  Choose(Ringtones);  // selects the first
  EXPECT_EQ(List().Selected(), 0u);
  EXPECT_TRUE(script.beeps.empty());
}

TEST_F(RingtonesDesk, GoToTheClipboardAndToTheHexEditor) {
  List().Select(0);
  main->Run(CopyR);
  EXPECT_EQ(ClipboardText(), Cell(0, 7));
  main->Run(OffsetR);
  EXPECT_EQ(ClipboardText(), "330400");
  main->Run(OpenDescR);  // there is no hex editor: the hex view comes
  EXPECT_EQ(Title(), "Tarvelo - Hex view");
}

TEST_F(RingtonesDesk, GoWithTheDocument) {
  main->OpenF(WriteDump("other.bin"));
  for (int i = 0; i < 2; ++i) {
    Choose(Ringtones);
    EXPECT_EQ(List().GetTable().rows.size(), 0u);
    EXPECT_EQ(Status(7), "");
    EXPECT_EQ(InfoText().find("RIT"), std::string::npos);
    EXPECT_TRUE(Roll().Notes().empty());
    for (const int id : {Play, SaveRing, SaveAllRing, CopyR, OffsetR, OpenR, OpenDescR}) main->Run(id);
    EXPECT_TRUE(script.said.empty());
    Choose(Info);
  }
}

// --- the picture of a melody ---

TEST_F(RingtonesDesk, RollHasABarForEachNote) {
  Roll().ShowMelody(std::vector<Tone>{{440, 500}, {0xFFFB, 250}, {523, 20000}, {30000, 250}, {5, 100}});
  ASSERT_EQ(Roll().Notes().size(), 3u);  // a rest, and what is too long to be heard, are none
  EXPECT_EQ(Roll().Length(), 1100);
  EXPECT_EQ(Roll().Notes()[1].begin, 750);
  EXPECT_EQ(Utf8(Roll().Headline()), "0:01.100");
  Roll().Choose(0);
  EXPECT_EQ(Utf8(Roll().Headline()), "A4   440 Hz   500 ms   0:00.000");
  Roll().SetTime(760);
  EXPECT_EQ(Utf8(Roll().Headline()), "-   30000 Hz   250 ms   0:00.750");  // no key is as high
  Roll().SetTime(600);
  EXPECT_EQ(Utf8(Roll().Headline()), "A4   440 Hz   500 ms   0:00.000");
  Roll().SetTime({});
  Roll().Choose(99);
  EXPECT_EQ(Roll().Chosen(), 0u);

  const wxSize size = Roll().GetClientSize();
  EXPECT_EQ(Roll().NoteAt({2, size.y / 2}), std::nullopt);  // the keys
  std::vector<std::size_t> met;
  for (int x = 0; x < size.x; ++x)
    if (const auto note = Roll().NoteAt({x, size.y / 2}); note && (met.empty() || met.back() != *note))
      met.push_back(*note);
  EXPECT_EQ(met, (std::vector<std::size_t>{0, 1, 2}));
}

TEST_F(RingtonesDesk, RollFollowsALongMelody) {
  std::vector<Tone> melody(PianoRoll::mostTones + 5, Tone{440, 10000});
  Roll().ShowMelody(melody);
  EXPECT_EQ(Roll().Notes().size(), PianoRoll::mostTones);
  const std::int64_t middle = Roll().Length() / 2 + 5000;
  Roll().SetTime(middle);
  Roll().Update();
  const int x = Roll().GetClientSize().x / 6;
  const auto seen = Roll().NoteAt({x, Roll().GetClientSize().y / 2});
  ASSERT_TRUE(seen);
  EXPECT_NEAR(static_cast<double>(*seen), static_cast<double>(PianoRoll::mostTones) / 2, 1000);
}

TEST(KeyName, CountsOctavesFromC) {
  for (const auto& [key, name] : {std::pair(69, "A4"), {60, "C4"}, {61, "C#4"}, {0, "C-1"}, {127, "G9"}})
    EXPECT_EQ(Utf8(KeyName(key)), name);
}

// --- the beeper ---

class SilentBeeper final : public Beeper {
 public:
  bool BeepOn(int, int milliseconds, const GoOn& goOn) override { return Wait(milliseconds, goOn); }
};

TEST(Beeper, WaitsForItsTonesTogether) {
  using Clock = std::chrono::steady_clock;
  SilentBeeper beeper;
  const auto begin = Clock::now();
  for (int i = 0; i < 20; ++i)
    beeper.BeepOn(440, 10, [] {
      wxMilliSleep(3);  // is no part of the length
      return true;
    });
  const auto took = Clock::now() - begin;
  EXPECT_GE(took, std::chrono::milliseconds(200));
  EXPECT_LT(took, std::chrono::milliseconds(260));
  EXPECT_FALSE(beeper.BeepOn(440, 10000, [] { return false; }));
  EXPECT_TRUE(beeper.BeepOn(440, 0, [] { return false; }));  // is over at once
  EXPECT_LT(Clock::now() - begin, std::chrono::seconds(5));
}

}  // namespace
}  // namespace tarvelo
