#include "shell/carry/take_names.h"

#include <cstdint>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "core/notation.h"
#include "core/places.h"
#include "patch/name_pattern.h"
#include "port/carried_lines.h"
#include "port/carry_names.h"
#include "shell/base/strings.h"
#include "shell/services/dump_files.h"
#include "shell/services/review.h"
#include "shell/services/search_progress.h"
#include "shell/services/talk.h"
#include "shell/services/workbench.h"
#include "text/unicode.h"

namespace tarvelo {
namespace {

constexpr std::uint64_t patternFileLimit = 16 << 20;  // bytes

struct FoundName {
  std::string name;
  std::string comment;
  std::optional<std::uint32_t> address;  // of the phone; nothing: there is a problem
  std::string problem;
};

// A name with what the place has already.
class Offer {
 public:
  Offer(const FoundName& found, const Names& names) : found_(found) {
    name_ = found.name;
    comment_ = found.comment;
    if (!found.address) return;
    const auto known = names.At(*found.address);
    if (!known) return;
    here_ = known->name;
    isOther_ = Differ(known->name, name_) || Differ(known->comment, comment_);
    if (name_.empty()) name_ = known->name;
    if (comment_.empty()) comment_ = known->comment;
    isHere_ = name_ == known->name && comment_ == known->comment;
  }

  [[nodiscard]] bool CanBeTaken() const { return found_.address && !isHere_; }
  [[nodiscard]] bool IsUsual() const { return CanBeTaken() && !isOther_; }
  [[nodiscard]] Name ToTake() const { return {*found_.address, name_, comment_}; }

  [[nodiscard]] Table::Row Row(const Fullflash& image, const Messages& texts) const {
    const auto offset = found_.address ? OffsetOf(image, *found_.address) : std::nullopt;
    const Text state = isHere_ ? Text::NameHereAlready : isOther_ ? Text::OtherNameHere : Text::StateNew;
    return {{found_.name.empty() ? found_.comment : found_.name,
             found_.address ? WholeHex(*found_.address) : "", offset ? WholeHex(*offset) : "",
             found_.address ? std::string(texts.Msg(state)) : found_.problem, here_},
            !found_.address};
  }

 private:
  static bool Differ(std::string_view one, std::string_view other) {
    return !one.empty() && !other.empty() && one != other;
  }

  const FoundName& found_;
  std::string name_, comment_;  // as they would be
  std::string here_;
  bool isHere_ = false;
  bool isOther_ = false;
};

void Take(Workbench& bench, const std::vector<Name>& names) {
  if (names.empty()) return;
  bench.document.NamePlaces(names);
  bench.talk.Tell(Wx(bench.texts.Msg(Text::NamesTakenLabel)) << names.size(),
                  NamesFile(bench.document.Path()));
}

void OfferNames(Workbench& bench, Text title, const std::vector<FoundName>& found) {
  const Names known = bench.document.PlaceNames();
  std::vector<Offer> offers;
  for (const FoundName& each : found) offers.emplace_back(each, known);
  std::vector<std::size_t> usual, others;
  for (std::size_t i = 0; i < offers.size(); ++i)
    if (offers[i].IsUsual())
      usual.push_back(i);
    else if (offers[i].CanBeTaken())
      others.push_back(i);
  const Messages& texts = bench.texts;
  wxString summary = Wx(texts.Msg(Text::StateNew)) << ": " << usual.size() << " / " << found.size();
  if (!others.empty()) summary << "\n" << Wx(texts.Msg(Text::OtherNamesOnlySelected));
  const auto answer = bench.talk.Show(
      {.title = title,
       .summary = summary,
       .rows = {Captions(texts, {Text::ColumnName, Text::ColumnAddress, Text::ColumnOffset, Text::ColumnState,
                                 Text::ColumnNameHere}),
                offers.size(),
                [&](std::size_t row) { return offers[row].Row(bench.document.Image(), texts); }},
       .accept = Text::TakeAllNames,
       .canAccept = !usual.empty(),
       .acceptSelected = Text::TakeSelectedNames});
  if (!answer) return;
  std::vector<Name> taken;
  std::set<std::uint32_t> places;  // the first name of a place counts
  for (const std::size_t row : answer->selected ? *answer->selected : usual)
    if (offers[row].CanBeTaken() && places.insert(offers[row].ToTake().address).second)
      taken.push_back(offers[row].ToTake());
  Take(bench, taken);
}

FoundName FoundBy(const NamedPattern& named, const Fullflash& image, const Messages& texts) {
  FoundName found{.name = InOneLine(named.name), .problem = InOneLine(named.problem)};
  if (!named.pattern) return found;
  const std::vector<std::uint32_t> places = named.pattern->Find(image, 2);
  if (places.size() == 1) found.address = places[0];
  found.problem = texts.Msg(places.empty() ? Text::PatternNowhere : Text::PatternTwice);
  return found;
}

}  // namespace

void TakeNamesFrom(Workbench& bench) {
  std::filesystem::path path;
  const std::optional<Dump> other = AskForOtherVersion(bench, Text::TakeNamesFrom, path);
  if (!other) return;
  if (other->names.Count() == 0) return bench.talk.Tell(Text::OtherHasNoNames, NamesFile(path));
  std::vector<FoundName> found;
  SearchProgress progress(bench);
  const CodeVersions versions(other->image, bench.document.Image(), progress);
  for (const CarriedName& carried : CarryNames(other->names, versions, progress)) {
    found.push_back({.name = carried.name, .comment = carried.comment});
    if (carried.refusal)
      found.back().problem = RefusalText(*carried.refusal, bench.texts);
    else
      found.back().address = carried.address;
  }
  OfferNames(bench, Text::TakeNamesFrom, found);
}

void FindNames(Workbench& bench) {
  if (!bench.document.Image().PageMode()) return bench.talk.Complain(Text::NoCodeInLargeImage);
  const wxString filter = Wx(bench.texts.Msg(Text::AllFiles)) + "|*.*";
  const auto path = bench.talk.OpenFile(Text::FindNames, filter, bench.document.Beside(".txt"));
  if (!path) return;
  const FileBytes bytes = ReadFile(*path, patternFileLimit, bench.status);
  const std::vector<NamedPattern> patterns =
      ReadNamedPatterns({reinterpret_cast<const char*>(bytes.data.get()), bytes.size});
  if (patterns.empty()) return bench.talk.Tell(Text::NoPatterns, *path);
  std::vector<FoundName> found;
  {
    SearchProgress progress(bench);
    ProgressRun run(progress, 0, std::ssize(patterns));
    for (const NamedPattern& named : patterns) {
      run.At(std::ssize(found));
      found.push_back(FoundBy(named, bench.document.Image(), bench.texts));
    }
  }
  OfferNames(bench, Text::FindNames, found);
}

}  // namespace tarvelo
