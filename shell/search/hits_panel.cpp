#include "shell/search/hits_panel.h"

#include <algorithm>
#include <utility>

#include "core/places.h"
#include "resources/texts.h"
#include "shell/base/strings.h"
#include "shell/list/list_view.h"
#include "shell/services/ids.h"
#include "shell/services/status_bar.h"
#include "shell/services/talk.h"
#include "shell/services/workbench.h"
#include "text/unicode.h"

namespace tarvelo {
namespace {

constexpr std::size_t mostHits = 1000000;       // hits that are kept
constexpr std::size_t mostUnasked = 2000;       // hits that are added to the information text without asking
constexpr std::size_t longestText = 100000000;  // bytes that the information text can hold
constexpr int bytesShown = 256;                 // of each hit, in the list

// The names have a column if there are any.
std::vector<std::string> HitCaptions(const Messages& messages, const Names& names) {
  auto captions = Captions(messages, {"N", Text::ColumnOffset, Text::ColumnAddress, Text::ColumnBytes});
  if (names.Count() > 0) captions.emplace_back(messages.Msg(Text::ColumnName));
  return captions;
}

}  // namespace

HitsPanel::HitsPanel(Workbench& bench)
    : ListPanel(bench, {.menuEntry = Id::Hits, .name = Text::SearchResults}, 'S') {
  watch_ = bench.document.OnChange([this] { ImageChanged(); });
  nameWatch_ = bench.document.OnNames([this] { List().Reword(Rows()); });
}

void HitsPanel::Clear() { ShowHits({}); }

void HitsPanel::ImageChanged() {
  isStale_ = !found_.text.empty();
  if (bench_.frame.IsVisible(*this)) Build();
}

// The selected hits stay selected; if all are gone, the one behind the first of them is selected.
void HitsPanel::Build() {
  if (!isStale_) return;
  std::vector<Offset> chosen;
  for (const std::size_t row : List().Selection()) chosen.push_back(found_.hits[row]);
  found_ = FindHits(found_.text);
  isStale_ = false;
  List().ReplaceRows(Rows());
  if (found_.hits.empty()) return;
  const auto rowOf = [this](Offset hit) {
    const auto next = std::ranges::lower_bound(found_.hits, hit);
    return std::min(static_cast<std::size_t>(next - found_.hits.begin()), found_.hits.size() - 1);
  };
  std::vector<std::size_t> rows;
  for (const Offset hit : chosen)
    if (const std::size_t row = rowOf(hit); found_.hits[row] == hit) rows.push_back(row);
  if (rows.empty()) rows.push_back(chosen.empty() ? 0 : rowOf(chosen.front()));
  List().SelectRows(rows);
}

void HitsPanel::Recaption(const Messages& messages) {
  ListPanel::Recaption(messages);
  List().SetCaptions(HitCaptions(messages, bench_.document.PlaceNames()));
  ShowHint();
}

void HitsPanel::Search_Click() {
  const auto answer = bench_.talk.AskPattern();
  if (!answer) return;
  if (!Find(ToUpper(*answer))) return;
  if (TextIsWanted()) {
    const std::string name = std::string(bench_.texts.Msg(Text::Search)) + " \"" + found_.text + "\" :";
    if (const auto text = HitsAsText())
      bench_.frame.AddInformation(name, *text);
    else
      bench_.talk.Complain(Text::NotEnoughMemory);
  }
  ShowList();
}

void HitsPanel::Search(const std::string& pattern) {
  if (Find(pattern)) ShowList();
}

bool HitsPanel::Find(const std::string& pattern) {
  ShowHits(FindHits(pattern));
  if (found_.hits.empty()) bench_.talk.Complain(Wx(NotFound(pattern, bench_.texts)));
  return !found_.hits.empty();
}

void HitsPanel::ShowList() {
  bench_.frame.ShowPanel(*this);
  List().Select(0);
}

HitsPanel::FoundHits HitsPanel::FindHits(const std::string& pattern) {
  const Fullflash& image = bench_.document.Image();
  FoundHits found{pattern, Pattern(pattern), {}, false};
  const StatusHint hint(bench_.status, Wx(bench_.texts.Msg(Text::EscapeStops)));
  found.hits = FindAll(image, found.pattern, bench_.status, mostHits + 1);
  found.cutOff = found.hits.size() > mostHits;
  if (found.cutOff) found.hits.pop_back();
  return found;
}

void HitsPanel::ShowHits(FoundHits found) {
  found_ = std::move(found);
  isStale_ = false;
  List().SetRows(Rows());
  ShowHint();
}

void HitsPanel::ShowHint() {
  const bool isNew = found_.text.empty();
  List().SetEmptyHint(isNew ? HowToFill(Text::SearchForBytes, "Ctrl+Shift+F", Text::HelpSearchForBytes)
                            : wxString());
}

// Whether to add the hits to the information text. Asks the user if they would flood it.
bool HitsPanel::TextIsWanted() const {
  if (found_.hits.size() <= mostUnasked) return true;
  const auto message = [this](Text text) { return Wx(bench_.texts.Msg(text)); };
  wxString question = message(Text::HitCountLabel) + std::to_string(found_.hits.size()) + "\n";
  if (found_.cutOff) question += message(Text::HitsCutOff) + "\n";
  return bench_.talk.Confirm(question + message(Text::AskAddToInformation));
}

// A line for each hit. Nothing if the text would be too long.
std::optional<std::string> HitsPanel::HitsAsText() {
  const Fullflash& image = bench_.document.Image();
  const std::size_t count = found_.hits.size();
  const std::size_t line = LineOfHit(image, found_.pattern, 1, found_.hits.front()).size() + 1;
  if (count * line > longestText) return {};
  std::string text;
  text.reserve(count * line);
  ProgressRun run(bench_.status, 0, static_cast<std::int64_t>(count));
  for (std::size_t i = 0; i < count; ++i) {
    run.At(static_cast<std::int64_t>(i));
    if (i > 0) text += '\n';
    text += LineOfHit(image, found_.pattern, i + 1, found_.hits[i]);
  }
  return text;
}

TableRows HitsPanel::Rows() const {
  return {HitCaptions(bench_.texts, bench_.document.PlaceNames()), found_.hits.size(),
          [this](std::size_t i) { return RowOf(i); }};
}

Table::Row HitsPanel::RowOf(std::size_t number) const {
  const Fullflash& image = bench_.document.Image();
  const Offset hit = found_.hits[number];
  std::string place = std::to_string(number + 1);
  place.insert(0, std::to_string(found_.hits.size()).size() - place.size(), ' ');
  std::string bytes;
  const int shown = std::min(found_.pattern.PatCount(), bytesShown);
  for (int k = 0; k < shown; ++k) bytes += image.ByteHex(hit + k);
  if (shown < found_.pattern.PatCount()) bytes += "...";
  Table::Row row{{place, OffsetText(image, hit), AddressText(image, hit), bytes}};
  const Names& names = bench_.document.PlaceNames();
  if (names.Count() > 0) row.cells.emplace_back(names.NameAt(image.PhoneAddress(hit)));
  return row;
}

std::optional<Region> HitsPanel::ChosenRegion() const {
  const auto row = List().Selected();
  if (!row || *row >= found_.hits.size()) return {};
  return Region{found_.hits[*row], found_.pattern.PatCount()};
}

PanelCommands HitsPanel::MakeCommands() {
  std::vector<PanelCommand> commands = OpenCommands();
  Append(commands, CopyCommands());
  Append(commands, StepCommands(Text::NextHit, Text::PreviousHit));
  return PanelCommands(std::move(commands), Id::OpenHex);
}

}  // namespace tarvelo
