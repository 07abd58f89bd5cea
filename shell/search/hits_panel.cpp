#include "shell/search/hits_panel.h"

#include <algorithm>
#include <utility>

#include "shell/hex/hex_rows.h"
#include "shell/info/info_panel.h"
#include "shell/list/list_view.h"
#include "shell/frame/main.h"
#include "shell/base/strings.h"
#include "text/unicode.h"

namespace tarvelo {
namespace {

constexpr std::size_t mostHits = 1000000;       // that are kept
constexpr std::size_t mostUnasked = 2000;       // that are added to the information text without a question
constexpr std::size_t longestText = 100000000;  // bytes that the information text can take
constexpr int bytesShown = 256;                 // of a hit, in the list

std::vector<std::string> HitCaptions(const Messages& messages) {
  return Captions(messages, {"N", Text::ColumnOffset, Text::ColumnAddress, Text::ColumnBytes});
}

}  // namespace

HitsPanel::HitsPanel(Main& main)
    : Panel({.menuEntry = Hits, .name = Text::SearchResults}),
      main_(main),
      ListS_(new ListView(&main)),
      commands_(MakeCommands()) {
  ListS_->onActivate = [this](std::size_t) { main_.Run(OpenHit); };
  ListS_->onContextMenu = [this] { main_.PopUpCommands(); };
  main_.AcceptDrops(ListS_->Control());
}

wxWindow& HitsPanel::Window() { return *ListS_; }

wxWindow& HitsPanel::FirstFocus() { return ListS_->Control(); }

void HitsPanel::Clear() { ShowHits({}); }

void HitsPanel::Recaption(const Messages& messages) {
  ListS_->Recaption(messages, Traits().name);
  ListS_->SetCaptions(HitCaptions(messages));
}

void HitsPanel::Save() { main_.SaveList(Rows(), 'S'); }

void HitsPanel::Search_Click() {
  const auto answer = main_.AskPattern();
  if (!answer) return;
  const std::string pattern = ToUpper(*answer);
  ShowHits(FindHits(pattern));
  if (found_.hits.empty()) return main_.Complain(Wx(NotFound(pattern, main_.Texts())));
  if (TextIsWanted()) {
    const std::string name = std::string(main_.Texts().Msg(Text::Search)) + " \"" + pattern + "\" :";
    if (const auto text = HitsAsText())
      main_.InfoText().AddText(name, *text);
    else
      main_.Complain(Wx(main_.Texts().Msg(Text::NotEnoughMemory)));
  }
  main_.ShowPanel(*this);
  ListS_->Select(0);
}

HitsPanel::Found HitsPanel::FindHits(const std::string& pattern) {
  const Fullflash& image = main_.Open().image;
  Found found{Pattern(pattern), {}, false};
  const StatusHint hint(main_.Status(), Wx(main_.Texts().Msg(Text::EscapeStops)));
  found.hits = FindAll(image, found.pattern, main_.Status(), mostHits + 1);
  found.cutOff = found.hits.size() > mostHits;
  if (found.cutOff) found.hits.pop_back();
  return found;
}

void HitsPanel::ShowHits(Found found) {
  found_ = std::move(found);
  ListS_->SetRows(Rows());
}

// Whether the hits shall go into the information text. The user is asked when they would flood it.
bool HitsPanel::TextIsWanted() const {
  if (found_.hits.size() <= mostUnasked) return true;
  const auto message = [this](int n) { return Wx(main_.Texts().Msg(n)); };
  wxString question = message(Text::HitCountLabel) + std::to_string(found_.hits.size()) + "\n";
  if (found_.cutOff) question += message(Text::HitsCutOff) + "\n";
  return main_.Confirm(question + message(Text::AskAddToInformation));
}

// A line a hit. Nothing where the text would be too long.
std::optional<std::string> HitsPanel::HitsAsText() {
  const Fullflash& image = main_.Open().image;
  const std::size_t count = found_.hits.size();
  const std::size_t line = LineOfHit(image, found_.pattern, 1, found_.hits.front()).size() + 1;
  if (count * line > longestText) return {};
  std::string text;
  text.reserve(count * line);
  ProgressRun run(main_.Status(), 0, static_cast<std::int64_t>(count));
  for (std::size_t i = 0; i < count; ++i) {
    run.At(static_cast<std::int64_t>(i));
    if (i > 0) text += '\n';
    text += LineOfHit(image, found_.pattern, i + 1, found_.hits[i]);
  }
  return text;
}

TableRows HitsPanel::Rows() const {
  return {HitCaptions(main_.Texts()), found_.hits.size(), [this](std::size_t i) { return RowOf(i); }};
}

Table::Row HitsPanel::RowOf(std::size_t number) const {
  const Fullflash& image = main_.Open().image;
  const Offset hit = found_.hits[number];
  std::string place = std::to_string(number + 1);
  place.insert(0, std::to_string(found_.hits.size()).size() - place.size(), ' ');
  std::string bytes;
  const int shown = std::min(found_.pattern.PatCount(), bytesShown);
  for (int k = 0; k < shown; ++k) bytes += image.ByteHex(hit + k);
  if (shown < found_.pattern.PatCount()) bytes += "...";
  return {{place, OffsetText(image, hit), AddressText(image, hit), bytes}};
}

std::optional<Offset> HitsPanel::Chosen() const {
  const auto row = ListS_->Selected();
  if (!row) return {};
  return found_.hits[*row];
}

// --- commands ---

PanelCommands HitsPanel::MakeCommands() {
  const auto chosen = [this] { return Chosen().has_value(); };
  const auto any = [this] { return !found_.hits.empty(); };
  return PanelCommands(
      {{.id = OpenHit, .message = Text::OpenInHexView, .help = Text::HelpHexView, .run = [this] { OpenHit_Click(); }, .enabled = chosen},
       {.id = OffsetHit,
        .message = Text::CopyOffset,
        .help = Text::HelpCopyNumber,
        .run = [this] { OffsetHit_Click(); },
        .enabled = chosen},
       {},
       {.id = NextHit,
        .message = Text::NextHit,
        .help = Text::HelpNext,
        .shortcut = "F3",
        .run = [this] { ListS_->Step(1); },
        .enabled = any},
       {.id = PreviousHit,
        .message = Text::PreviousHit,
        .help = Text::HelpPrevious,
        .shortcut = "Shift+F3",
        .run = [this] { ListS_->Step(-1); },
        .enabled = any}},
      OpenHit);
}

void HitsPanel::OpenHit_Click() {
  if (const auto hit = Chosen()) main_.ShowHex(*hit, found_.pattern.PatCount());
}

void HitsPanel::OffsetHit_Click() {
  if (const auto hit = Chosen()) main_.Copy(OffsetText(main_.Open().image, *hit));
}

}  // namespace tarvelo
