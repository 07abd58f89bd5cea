#include "shell/ringtones/ringtones_panel.h"

#include <utility>
#include <vector>

#include "resources/texts.h"
#include "ringtones/melody.h"
#include "ringtones/ringtones_explorer.h"
#include "shell/base/splitter.h"
#include "shell/base/strings.h"
#include "shell/list/list_view.h"
#include "shell/platform/accessible_name.h"
#include "shell/platform/launcher.h"
#include "shell/ringtones/piano_roll.h"
#include "shell/services/clipboard.h"
#include "shell/services/ids.h"
#include "shell/services/talk.h"
#include "shell/services/workbench.h"

namespace tarvelo {
RingtonesPanel::RingtonesPanel(Workbench& bench) : RingtonesPanel(bench, NewSplitter(bench.frame.Parent())) {}

RingtonesPanel::RingtonesPanel(Workbench& bench, wxSplitterWindow* window)
    : ExplorerPanel(bench, ringtonesExplorer, window, window),
      player_(bench),
      transfer_(
          bench, [this]() -> const RingtoneList& { return Ringtones(); }, [this] { return ChosenRingtone(); },
          [this] {
            std::vector<const Ringtone*> all;
            for (const std::size_t record : ChosenRecords()) all.push_back(&Ringtones().ringtones[record]);
            return all;
          }),
      window_(window),
      roll_(new PianoRoll(window)) {
  Layout();
  Bind();
}

void RingtonesPanel::Layout() {
  window_->SetMinimumPaneSize(window_->FromDIP(70));
  window_->SetSashGravity(0.5);
  window_->SplitHorizontally(&List(), roll_);
}

void RingtonesPanel::Bind() {
  // Plays after the control has finished handling the click or key; otherwise it would wait for the melody.
  const auto play = [this] { window_->CallAfter([this] { bench_.frame.Run(Id::Play); }); };
  List().onActivate = [play](std::size_t) { play(); };
  roll_->onActivate = play;
  roll_->onContextMenu = [this](const wxPoint& place) { bench_.frame.PopUpCommands(place); };
  // GTK's lists use Ctrl+P for "one up" and would keep it.
  window_->Bind(wxEVT_CHAR_HOOK, [this, play](wxKeyEvent& event) {
    if (event.GetModifiers() == wxMOD_CONTROL && event.GetKeyCode() == 'P')
      play();
    else
      event.Skip();
  });
  player_.onTime = [this](std::optional<std::int64_t> time) { ShowTime(time); };
  bench_.frame.AcceptDrops(*roll_);
}

void RingtonesPanel::Build() {
  ExplorerPanel::Build();
  // The windows get their sizes only once they are shown.
  window_->CallAfter([this] {
    if (!std::exchange(placed_, true)) window_->SetSashPosition(window_->GetSize().y * 11 / 20);
    wxDataViewCtrl& control = List().Control();
    if (const wxDataViewItem current = control.GetCurrentItem(); current.IsOk())
      control.EnsureVisible(current);
  });
}

const RingtoneList& RingtonesPanel::Ringtones() const {
  static const RingtoneList none;
  return Found() ? Found()->As<RingtoneList>() : none;
}

void RingtonesPanel::ListChanged(bool isNew) {
  if (isNew) transfer_.KeepPlaces();
  if (Ringtones().ringtones.empty()) roll_->Clear();
}

void RingtonesPanel::Clear() {
  player_.Stop();
  ExplorerPanel::Clear();
}

void RingtonesPanel::Recaption(const Messages& messages) {
  ExplorerPanel::Recaption(messages);
  platform::SetAccessibleName(*roll_, Wx(messages.Msg(Traits().name)));
  if (const Ringtone* ringtone = ChosenRingtone(); ringtone && ringtone->IsFile()) ShowFile(*ringtone);
}

const Ringtone* RingtonesPanel::ChosenRingtone() const {
  const auto record = ChosenRecord();
  return record ? &Ringtones().ringtones[*record] : nullptr;
}

// The whole text; the list may have shortened it.
std::string RingtonesPanel::TextOf(const Ringtone& ringtone) const {
  if (ringtone.IsFile()) return {};
  return MelodyText(DecodeMelody(bench_.document.Image().ff(), ringtone.data));
}

// Plays after the control has finished handling the click or key; otherwise it would wait for the melody.
void RingtonesPanel::RecordChosen(std::size_t record) {
  ShowRingtone(record);
  if (autoplay_ && !IsSelecting()) window_->CallAfter([this] { bench_.frame.Run(Id::Play); });
}

void RingtonesPanel::ShowRingtone(std::size_t record) {
  const Ringtone& ringtone = Ringtones().ringtones[record];
  if (ringtone.IsFile()) return ShowFile(ringtone);
  roll_->ShowMelody(DecodeMelody(bench_.document.Image().ff(), ringtone.data, PianoRoll::mostTones));
}

void RingtonesPanel::ShowFile(const Ringtone& ringtone) {
  wxString text = ringtone.form == RingtoneForm::Midi ? "MIDI" : "WAVE";
  text << "\n" << Wx(bench_.texts.Label(Text::ColumnSize)) << " " << ringtone.size;
  if (ringtone.time > 0) text << wxString::Format("\n%.1f s", static_cast<double>(ringtone.time) / 1000);
  roll_->ShowText(text);
}

void RingtonesPanel::ShowTime(std::optional<std::int64_t> time) {
  roll_->SetTime(time);
  if (!window_->IsShown()) player_.Stop();  // another panel was shown, however that happened
}

void RingtonesPanel::PlayRing(const std::string& text) {
  List().Refresh();
  player_.PlayRing(text);
}

// --- commands ---

ExplorerPanel::OwnCommands RingtonesPanel::Own() {
  // Any command ends the melody that plays, and is then done.
  const auto chosen = [this] { return ChosenRingtone() != nullptr; };
  const auto melody = [this, chosen] { return chosen() && !ChosenRingtone()->IsFile(); };
  return {.first = {{Id::Play, Text::PlayRingtone, Text::HelpPlayRingtone, "Ctrl+P", [this] { Play_Click(); },
                     chosen},
                    {.id = Id::StopPlaying,
                     .caption = Text::StopPlaying,
                     .help = Text::HelpStopPlaying,
                     .run = [this] { player_.Stop(); },
                     .enabled = [this] { return player_.IsPlaying(); },
                     .captionEnd = " (Esc)"},
                    {Id::PlayText, Text::PlayRingtoneText, Text::HelpPlayRingtoneText, "",
                     [this] { PlayText_Click(); }},
                    {Id::Autoplay,
                     Text::Autoplay,
                     Text::HelpAutoplay,
                     "",
                     [this] { Autoplay_Click(); },
                     {},
                     [this] { return autoplay_; }}},
          .copy = {{Id::CopyR, Text::CopyRingtone, Text::HelpCopyRingtone, "", [this] { CopyR_Click(); },
                    melody}},
          .files = transfer_.Commands(),
          .defaultId = Id::Play};
}

void RingtonesPanel::Play_Click() {
  const Ringtone* ringtone = ChosenRingtone();
  if (!ringtone) return;
  if (player_.IsPlaying()) {
    player_.Stop();
    return window_->CallAfter([this] { bench_.frame.Run(Id::Play); });
  }
  if (!ringtone->IsFile()) return PlayRing(TextOf(*ringtone));
  const std::filesystem::path file = transfer_.SaveToPlay(*ringtone);
  if (!bench_.programs.OpenWithSystem(file))
    bench_.talk.Complain(Wx(bench_.texts.Msg(Text::NoProgramForFile)) + "\n\n" + WxPath(file));
}

// The piano roll shows the typed melody while it plays.
void RingtonesPanel::PlayText_Click() {
  const auto text = bench_.talk.Ask(Text::AskRingtoneText, typed_);
  if (!text) return;
  typed_ = *text;
  roll_->ShowMelody(ParseMelody(typed_));
  PlayRing(*text);
  if (const auto record = ChosenRecord())
    ShowRingtone(*record);
  else
    roll_->Clear();
}

void RingtonesPanel::Autoplay_Click() { autoplay_ = !autoplay_; }

void RingtonesPanel::CopyR_Click() {
  if (const Ringtone* ringtone = ChosenRingtone()) Copy(TextOf(*ringtone));
}

}  // namespace tarvelo
