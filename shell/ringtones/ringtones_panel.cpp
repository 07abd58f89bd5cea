#include "shell/ringtones/ringtones_panel.h"

#include <wx/splitter.h>

#include <algorithm>
#include <iterator>
#include <utility>
#include <vector>

#include "core/notation.h"
#include "ringtones/melody.h"
#include "ringtones/ringtone_search.h"
#include "ringtones/ringtone_table.h"
#include "shell/info/info_panel.h"
#include "shell/list/list_view.h"
#include "shell/frame/main.h"
#include "shell/ringtones/piano_roll.h"
#include "shell/platform/accessible_name.h"
#include "shell/base/strings.h"

namespace tarvelo {
namespace {

constexpr int countPanel = 7;      // of the status bar
constexpr Offset entryLength = 8;  // of the ringtone index table

}  // namespace

RingtonesPanel::RingtonesPanel(Main& main)
    : Panel({.menuEntry = tarvelo::Ringtones, .name = Text::Ringtones}),
      main_(main),
      player_(main),
      transfer_(
          main, list_, [this] { return Chosen(); }, [this] { return !player_.IsPlaying(); }),
      commands_(MakeCommands()),
      window_(new wxSplitterWindow(&main, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxSP_LIVE_UPDATE)),
      ListR_(new ListView(window_)),
      roll_(new PianoRoll(window_)) {
  Layout();
  Bind();
}

void RingtonesPanel::Layout() {
  window_->SetMinimumPaneSize(window_->FromDIP(70));
  window_->SetSashGravity(0.5);
  window_->SplitHorizontally(ListR_, roll_);
}

void RingtonesPanel::Bind() {
  // Played when the control has done with the click or key, which it would wait for otherwise.
  const auto play = [this] { window_->CallAfter([this] { main_.Run(Play); }); };
  ListR_->onSelect = [this, play](std::size_t row) {
    ShowRingtone(row);
    if (autoplay_ && !selects_) play();
  };
  ListR_->onActivate = [play](std::size_t) { play(); };
  ListR_->onContextMenu = [this] { main_.PopUpCommands(); };
  roll_->onActivate = play;
  roll_->onContextMenu = [this] { main_.PopUpCommands(); };
  // GTK's lists know Ctrl+P as "one up" and would keep it.
  window_->Bind(wxEVT_CHAR_HOOK, [this, play](wxKeyEvent& event) {
    if (event.GetModifiers() == wxMOD_CONTROL && event.GetKeyCode() == 'P')
      play();
    else
      event.Skip();
  });
  player_.onTime = [this](std::optional<std::int64_t> time) { ShowTime(time); };
  main_.AcceptDrops(ListR_->Control());
  main_.AcceptDrops(*roll_);
}

wxWindow& RingtonesPanel::Window() { return *window_; }

wxWindow& RingtonesPanel::FirstFocus() { return ListR_->Control(); }

void RingtonesPanel::Build() {
  if (list_.ringtones.empty())
    Find();
  else if (stale_)
    FindAgain();
  // The windows have their sizes only once they are shown.
  window_->CallAfter([this] {
    if (!std::exchange(placed_, true)) window_->SetSashPosition(window_->GetSize().y * 11 / 20);
    wxDataViewCtrl& control = ListR_->Control();
    if (const wxDataViewItem current = control.GetCurrentItem(); current.IsOk())
      control.EnsureVisible(current);
  });
}

void RingtonesPanel::Find() {
  GetRingtones();
  transfer_.KeepPlaces();
  main_.InfoText().AppendText(Wx(RingtoneInformation(list_, main_.Texts())));
  SelectQuietly(0);
}

// The current row stays the current one.
void RingtonesPanel::FindAgain() {
  const std::size_t row = ListR_->Selected().value_or(0);
  GetRingtones();
  SelectQuietly(row);
}

void RingtonesPanel::GetRingtones() {
  list_ = tarvelo::GetRingtones(main_.Open().image, main_.Status());
  stale_ = false;
  ListR_->SetTable(RingtoneTable(list_, main_.Open().image, main_.Texts()));
  const std::size_t count = list_.ringtones.size();
  main_.Status().SetPanel(countPanel, count > 0 ? wxString::Format("%zu", count) : wxString());
}

void RingtonesPanel::SelectQuietly(std::size_t row) {
  if (list_.ringtones.empty()) return roll_->Clear();
  selects_ = true;
  ListR_->Select(std::min(row, list_.ringtones.size() - 1));
  selects_ = false;
}

// Lengths, texts and the table itself may be others now.
void RingtonesPanel::ImageChanged() {
  stale_ = true;
  if (main_.Visible() == this && !player_.IsPlaying()) FindAgain();
}

void RingtonesPanel::Clear() {
  player_.Stop();
  list_ = RingtoneList();
  stale_ = false;
  ListR_->SetTable(RingtoneTable(list_, main_.Open().image, main_.Texts()));
  roll_->Clear();
}

void RingtonesPanel::Save() { main_.SaveList(ListR_->GetTable(), 'R'); }

void RingtonesPanel::Recaption(const Messages& messages) {
  ListR_->Recaption(messages, Traits().name);
  ListR_->SetCaptions(RingtoneCaptions(messages));
  platform::SetAccessibleName(*roll_, Wx(messages.Msg(Traits().name)));
  if (const Ringtone* ringtone = Chosen(); ringtone && ringtone->IsFile()) ShowFile(*ringtone);
}

const Ringtone* RingtonesPanel::Chosen() const {
  const auto row = ListR_->Selected();
  return row ? &list_.ringtones[*row] : nullptr;
}

// The whole text, which the list may have cut.
std::string RingtonesPanel::TextOf(const Ringtone& ringtone) const {
  if (ringtone.IsFile()) return {};
  return MelodyText(DecodeMelody(main_.Open().image.ff(), ringtone.data));
}

void RingtonesPanel::ShowRingtone(std::size_t row) {
  const Ringtone& ringtone = list_.ringtones[row];
  if (ringtone.IsFile()) return ShowFile(ringtone);
  roll_->ShowMelody(DecodeMelody(main_.Open().image.ff(), ringtone.data, PianoRoll::mostTones));
}

void RingtonesPanel::ShowFile(const Ringtone& ringtone) {
  wxString text = ringtone.form == RingtoneForm::Midi ? "MIDI" : "WAVE";
  text << "\n" << Wx(main_.Texts().Label(Text::ColumnSize)) << " " << ringtone.size;
  if (ringtone.time > 0) text << wxString::Format("\n%.1f s", static_cast<double>(ringtone.time) / 1000);
  roll_->ShowText(text);
}

void RingtonesPanel::ShowTime(std::optional<std::int64_t> time) {
  roll_->SetTime(time);
  if (!window_->IsShown()) player_.Stop();  // another panel has come, by whatever way
}

void RingtonesPanel::PlayRing(const std::string& text) {
  ListR_->Refresh();
  player_.PlayRing(text);
}

// --- commands ---

PanelCommands RingtonesPanel::MakeCommands() {
  const auto chosen = [this] { return Chosen() && !player_.IsPlaying(); };
  const auto melody = [this] { return Chosen() && !Chosen()->IsFile() && !player_.IsPlaying(); };
  std::vector<PanelCommand> commands = {{.id = Play,
                                         .message = Text::PlayRingtone,
                                         .help = Text::HelpPlayRingtone,
                                         .shortcut = "Ctrl+P",
                                         .run = [this] { Play_Click(); },
                                         .enabled = chosen},
                                        {.id = StopPlaying,
                                         .message = Text::StopPlaying,
                                         .help = Text::HelpStopPlaying,
                                         .run = [this] { player_.Stop(); },
                                         .enabled = [this] { return player_.IsPlaying(); },
                                         .captionEnd = " (Esc)"},
                                        {.id = PlayText,
                                         .message = Text::PlayRingtoneText,
                                         .help = Text::HelpPlayRingtoneText,
                                         .run = [this] { PlayText_Click(); },
                                         .enabled = [this] { return !player_.IsPlaying(); }},
                                        {.id = Autoplay,
                                         .message = Text::Autoplay,
                                         .help = Text::HelpAutoplay,
                                         .run = [this] { Autoplay_Click(); },
                                         .checked = [this] { return autoplay_; }},
                                        {}};
  std::ranges::move(transfer_.Commands(), std::back_inserter(commands));
  commands.insert(
      commands.end(),
      {{},
       {.id = CopyR, .message = Text::CopyRingtone, .help = Text::HelpCopyRingtone, .run = [this] { CopyR_Click(); }, .enabled = melody},
       {.id = OffsetR, .message = Text::CopyOffset, .help = Text::HelpCopyNumber, .run = [this] { OffsetR_Click(); }, .enabled = chosen},
       {.id = OpenR, .message = Text::OpenWith, .help = Text::HelpOpenWith, .run = [this] { OpenR_Click(); }, .enabled = chosen},
       {.id = OpenDescR,
        .message = Text::OpenDescriptionWith,
        .help = Text::HelpOpenDescriptionWith,
        .run = [this] { OpenDescR_Click(); },
        .enabled = chosen}});
  return PanelCommands(std::move(commands), Play);
}

void RingtonesPanel::Play_Click() {
  const Ringtone* ringtone = Chosen();
  if (!ringtone) return;
  if (!ringtone->IsFile()) return PlayRing(TextOf(*ringtone));
  if (const auto file = transfer_.SaveOne(*ringtone, RingtoneFormat::Raw))
    main_.Programs().OpenWithSystem(*file);
}

// The picture is that of the typed melody while it plays.
void RingtonesPanel::PlayText_Click() {
  const auto text = main_.Ask(Text::AskRingtoneText, typed_);
  if (!text) return;
  typed_ = *text;
  roll_->ShowMelody(ParseMelody(typed_));
  PlayRing(*text);
  if (const auto row = ListR_->Selected())
    ShowRingtone(*row);
  else
    roll_->Clear();
}

void RingtonesPanel::Autoplay_Click() { autoplay_ = !autoplay_; }

void RingtonesPanel::CopyR_Click() {
  if (const Ringtone* ringtone = Chosen()) main_.Copy(TextOf(*ringtone));
}

void RingtonesPanel::OffsetR_Click() {
  const Ringtone* ringtone = Chosen();
  if (!ringtone) return;
  main_.Copy(HexColumn(ringtone->data, 6));
}

void RingtonesPanel::OpenR_Click() {
  if (const Ringtone* ringtone = Chosen()) main_.ShowBl(ringtone->data, ringtone->size);
}

void RingtonesPanel::OpenDescR_Click() {
  if (const Ringtone* ringtone = Chosen()) main_.ShowBl(ringtone->entry, entryLength);
}

}  // namespace tarvelo
