#include "shell/ringtones/ringtones_panel.h"

#include "shell/desk.h"
#include "shell/ringtones/piano_roll.h"

namespace tarvelo {
namespace {

using Beeps = std::deque<std::string>;

// The demonstration fullflash with its Ringtones panel open.
class RingtonesDesk : public Desk {
 protected:
  RingtonesDesk() {
    OpenDemo(ringtones);
    panel = &Shown<RingtonesPanel>();
  }

  [[nodiscard]] PianoRoll& Roll() { return panel->Roll(); }
  [[nodiscard]] std::string Headline() { return Utf8(Roll().Headline()); }
  bool Press(int key) { return Key(panel->List().Control(), key); }

  // Selects a row as a click does.
  void ClickRow(std::size_t row) {
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

  // Plays a text and returns the beeps; calls `during` while its second tone sounds.
  Beeps Played(const std::string& text, const std::function<void()>& during = {}) {
    script.answer = text;
    script.beeps.clear();
    script.duringBeep = [this, during] {
      if (during && script.beeps.size() == 2) during();
    };
    panel->PlayText_Click();
    script.duringBeep = {};
    return script.beeps;
  }

  RingtonesPanel* panel = nullptr;
};

TEST_F(RingtonesDesk, AreListedAndTheFirstIsShown) {
  EXPECT_EQ(Status(7), std::to_string(List().RowCount()));
  EXPECT_EQ(List().Selected(), 0u);
  EXPECT_EQ(Roll().Length(), 32000);
  EXPECT_EQ(Roll().Notes().front().frequency, 659);
  EXPECT_TRUE(script.beeps.empty());
  EXPECT_EQ(Copied(Id::CopyR), Cell(0, 7));
  List().Select(4);
  Choose(Id::Info);
  Choose(ringtones);
  EXPECT_EQ(List().Selected(), 4u);
  main->Dumps().OpenF(WriteDump("other.bin"));
  Choose(ringtones);
  EXPECT_TRUE(Roll().Notes().empty());
}

TEST_F(RingtonesDesk, TextIsPlayedToneByTone) {
  EXPECT_EQ(Played("440:500 880:250"), (Beeps{"440 Hz 500 ms", "880 Hz 250 ms"}));
  EXPECT_EQ(Roll().Length(), 32000);  // the selected one again
  EXPECT_EQ(Said(Id::PlayText, "1000:20000 1000:10000"),
            "ask Enter the ringtone in text-format: 440:500 880:250");
  EXPECT_EQ(script.beeps.back(), "1000 Hz 10000 ms");
  EXPECT_EQ(Played(""), Beeps());  // cancelled
}

TEST_F(RingtonesDesk, FilesAreSavedAndOpened) {
  std::filesystem::path file;
  for (const auto& [row, name, magic] :
       {std::tuple(5u, "demo_0006.mid", "MThd"), std::tuple(6u, "demo_0007.wav", "RIFF")}) {
    List().Select(row);
    main->Run(Id::Play);
    file = PathOf(script.started.back().substr(5));
    EXPECT_EQ(file.filename(), name);
    EXPECT_EQ(ReadAll(file).substr(0, 4), magic);
    EXPECT_EQ(std::filesystem::file_size(file), std::stoul(Cell(row, 5)));
    EXPECT_FALSE(FileExist(folder / "MIDI" / name));  // an edited one would be lost
    EXPECT_TRUE(Roll().Notes().empty());
    EXPECT_FALSE(panel->Commands()->CanRun(Id::CopyR));
  }
  EXPECT_EQ(Utf8(Roll().Text()), "WAVE\nSize: 12044\n1.5 s");
  EXPECT_TRUE(script.beeps.empty());
  Restart();
  EXPECT_FALSE(FileExist(file));
}

TEST_F(RingtonesDesk, NothingElseRunsWhileOnePlays) {
  const std::string text = "440:1 441:1 442:1 443:1";
  EXPECT_EQ(Played(text,
                   [&] {
                     Press(WXK_SHIFT);
                     EXPECT_EQ(Status(2), "Escape stops");
                     EXPECT_TRUE(panel->Commands()->CanRun(Id::StopPlaying));
                     EXPECT_EQ(Roll().Length(), 4);
                   }),
            (Beeps{"440 Hz 1 ms", "441 Hz 1 ms", "442 Hz 1 ms", "443 Hz 1 ms"}));

  // Each of these stops the melody and takes effect after it.
  const auto stopsBy = [&](const std::function<void()>& act) {
    EXPECT_EQ(Played(text, act), (Beeps{"440 Hz 1 ms", "441 Hz 1 ms"}));
    script.beeps.clear();
    Settle();
  };
  stopsBy([&] { EXPECT_FALSE(Press(WXK_DOWN)); });  // the list gets it
  stopsBy([&] { EXPECT_TRUE(Press(WXK_ESCAPE)); });
  stopsBy([&] { main->ProcessCommand(Id::StopPlaying); });
  EXPECT_TRUE(script.beeps.empty());
  stopsBy([&] { main->ProcessCommand(Id::SaveRing); });
  EXPECT_TRUE(script.said.back().starts_with("iRingtone \"00\" was saved in file")) << script.said.back();
  stopsBy([&] { main->ProcessCommand(Id::Play); });
  EXPECT_GT(script.beeps.size(), 4u);  // the chosen one
  stopsBy([&] {
    ClickRow(3);
    EXPECT_EQ(Roll().Length(), 4);
  });
  EXPECT_EQ(Roll().Length(), 13851);
  stopsBy([&] {
    main->ProcessCommand(Id::Info);
    EXPECT_EQ(Title(), "Tarvelo - Ringtones");
  });
  EXPECT_EQ(Title(), "Tarvelo - Info");
}

TEST_F(RingtonesDesk, PlayingEndsBeforeTheDocumentGoes) {
  const std::filesystem::path other = WriteDump("other.bin");
  const Beeps heard = Played("440:1 441:1 442:1", [&] {
    wxArrayString files;
    files.Add(WxPath(other));
    dynamic_cast<wxFileDropTarget*>(List().Control().GetDropTarget())->OnDropFiles(0, 0, files);
    Settle();
    EXPECT_EQ(Open().Path().filename(), "demo.bin");
  });
  EXPECT_EQ(heard.size(), 2u);
  Settle();
  EXPECT_EQ(Open().Path(), other);

  Choose(ringtones);
  EXPECT_EQ(Played("440:1 441:1 442:1", [&] { EXPECT_FALSE(main->Close()); }).size(), 2u);
  main = nullptr;  // closes now
  Settle();
  EXPECT_TRUE(wxTopLevelWindows.empty());
}

TEST_F(RingtonesDesk, AutoplayFollowsTheUserAlone) {
  ClickRow(1);
  EXPECT_TRUE(script.beeps.empty());
  main->Run(Id::Autoplay);
  ClickRow(2);
  EXPECT_EQ(script.beeps.size(), 36u);
  EXPECT_FALSE(panel->Player().IsPlaying());
  EXPECT_EQ(Status(2), "C55 v24 Tarvelo demo T9lg4");  // the hint is gone
  main->Run(Id::Play);
  EXPECT_EQ(script.beeps.size(), 72u);
  script.beeps.clear();
  Open().NamePlace(0, "Start", "");  // rewords the list
  Settle();
  EXPECT_TRUE(script.beeps.empty());
  main->Dumps().OpenF(Open().Path());
  Choose(ringtones);  // selects the first
  EXPECT_EQ(List().Selected(), 0u);
  EXPECT_TRUE(script.beeps.empty());
}

// --- the piano roll ---

TEST_F(RingtonesDesk, RollHasABarForEachNote) {
  const std::string a4 = "A4   440 Hz   500 ms   0:00.000";
  Roll().ShowMelody(std::vector<Tone>{{440, 500}, {0xFFFB, 250}, {523, 20000}, {30000, 250}, {5, 100}});
  ASSERT_EQ(Roll().Notes().size(), 3u);  // neither a rest nor an inaudibly long tone is a note
  EXPECT_EQ(Roll().Length(), 1100);
  EXPECT_EQ(Roll().Notes()[1].begin, 750);
  EXPECT_EQ(Headline(), "0:01.100");
  Roll().Choose(0);
  EXPECT_EQ(Headline(), a4);
  Roll().SetTime(760);
  EXPECT_EQ(Headline(), "-   30000 Hz   250 ms   0:00.750");  // too high for any key
  Roll().SetTime(600);
  EXPECT_EQ(Headline(), a4);
  Roll().SetTime({});
  Roll().Choose(99);
  EXPECT_EQ(Roll().Chosen(), 0u);

  wxPoint middle(2, Roll().GetClientSize().y / 2);
  EXPECT_EQ(Roll().NoteAt(middle), std::nullopt);  // the keys
  std::vector<std::size_t> met;
  for (; middle.x < Roll().GetClientSize().x; ++middle.x)
    if (const auto note = Roll().NoteAt(middle); note && (met.empty() || met.back() != *note))
      met.push_back(*note);
  EXPECT_EQ(met, (std::vector<std::size_t>{0, 1, 2}));

  Roll().ShowMelody(std::vector<Tone>{{440, 500}, {523, 500}});
  for (middle.x = 0; Roll().NoteAt(middle) != 0u;) ASSERT_LT(++middle.x, Roll().GetClientSize().x);
  Mouse(Roll(), wxEVT_MOTION, middle);
  Mouse(Roll(), wxEVT_LEFT_DOWN, middle);
  EXPECT_EQ(Headline(), a4);
  Key(Roll(), WXK_RIGHT);
  EXPECT_EQ(Headline(), "C5   523 Hz   500 ms   0:00.500");
}

TEST_F(RingtonesDesk, RollFollowsALongMelody) {
  Roll().ShowMelody(std::vector(PianoRoll::mostTones + 5, Tone{440, 10000}));
  EXPECT_EQ(Roll().Notes().size(), PianoRoll::mostTones);
  Roll().SetTime(Roll().Length() / 2 + 5000);
  Roll().Update();
  const wxSize size = Roll().GetClientSize();
  const auto seen = Roll().NoteAt({size.x / 6, size.y / 2});
  ASSERT_TRUE(seen);
  EXPECT_NEAR(static_cast<double>(*seen), static_cast<double>(PianoRoll::mostTones) / 2, 1000);
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
      wxMilliSleep(8);  // does not add to the length
      return true;
    });
  const auto took = Clock::now() - begin;
  EXPECT_GE(took, std::chrono::milliseconds(200));
  EXPECT_LT(took, std::chrono::milliseconds(340));
  EXPECT_FALSE(beeper.BeepOn(440, 10000, [] { return false; }));
  EXPECT_TRUE(beeper.BeepOn(440, 0, [] { return false; }));  // ends at once
  EXPECT_LT(Clock::now() - begin, std::chrono::seconds(5));
}

}  // namespace
}  // namespace tarvelo
