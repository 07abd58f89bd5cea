#include "shell/hex/hex_search.h"

#include <stdexcept>
#include <utility>
#include <vector>

#include "patch/pattern_walk.h"
#include "shell/base/strings.h"
#include "shell/hex/find_bar.h"
#include "shell/hex/hex_canvas.h"
#include "shell/services/status_bar.h"
#include "shell/services/talk.h"
#include "shell/services/workbench.h"

namespace tarvelo {
namespace {

constexpr std::size_t mostReplaced = 1000000;  // hits in one step

}  // namespace

bool HexSearch::HasQuery() const { return !bar_.Wanted().empty(); }

std::string HexSearch::Read(const std::string& text) const {
  return PatternOf(bar_.Kind(), text, bench_.document.Get());
}

void HexSearch::Guarded(const std::string& text, const std::function<void()>& run) {
  try {
    run();
  } catch (const std::invalid_argument&) {
    bench_.talk.Complain(
        Wx(bench_.texts.MsgS(Text::NoSuchValue, text) + "\n\n" + QueryName(bar_.Kind(), bench_.texts)));
  } catch (const std::overflow_error&) {
    bench_.talk.Complain(Wx(bench_.texts.MsgS(Text::NumberTooLarge, text)));
  }
}

void HexSearch::With(const Command& command) {
  Guarded(bar_.Wanted(), [&] { command(Read(bar_.Wanted())); });
}

void HexSearch::WithReplacement(const std::string& pattern, const Command& command) {
  Guarded(bar_.Replacement(), [&] {
    const std::string replacement = Read(bar_.Replacement());
    if (PatternSize(replacement) == PatternSize(pattern)) return command(replacement);
    bench_.talk.Complain(Wx(std::string(bench_.texts.Msg(Text::ReplacementSizeDiffers)) + " " +
                            std::to_string(PatternSize(replacement)) + " / " +
                            std::to_string(PatternSize(pattern))));
  });
}

// Searches from just after the start of the selection, which may be the last hit. A cursor without a
// selection may be on a hit that has not been found yet.
void HexSearch::Next() {
  With([this](const std::string& text) {
    const Fullflash& image = bench_.document.Image();
    const Pattern pattern(text);
    const Region range = canvas_.Selection();
    Offset hit = FirstFrom(image, pattern, range.offset + (range.size > 0 ? 1 : 0));
    const bool goesRound = hit < 0;
    if (goesRound) hit = FirstFrom(image, pattern, 0);
    Show(text, hit);
    if (goesRound && hit >= 0) Say(std::string(bench_.texts.Msg(Text::SearchWrappedToStart)));
  });
}

void HexSearch::Previous() {
  With([this](const std::string& text) {
    const Fullflash& image = bench_.document.Image();
    const Pattern pattern(text);
    Offset hit = LastBefore(image, pattern, canvas_.Selection().offset);
    const bool goesRound = hit < 0;
    if (goesRound) hit = LastBefore(image, pattern, std::ssize(image.ff()));
    Show(text, hit);
    if (goesRound && hit >= 0) Say(std::string(bench_.texts.Msg(Text::SearchWrappedToEnd)));
  });
}

void HexSearch::Show(const std::string& pattern, Offset hit) {
  if (hit >= 0) return canvas_.Go(hit, PatternSize(pattern));
  const bool isPattern = bar_.Kind() == QueryKind::Digits;  // of which case does not matter
  bench_.talk.Complain(Wx(isPattern ? NotFound(bar_.Wanted(), bench_.texts)
                                    : bench_.texts.MsgS(Text::StringNotFound, bar_.Wanted())));
}

void HexSearch::All() {
  With([this](const std::string& pattern) { bench_.frame.ShowHits(pattern); });
}

void HexSearch::Replace() {
  With([this](const std::string& pattern) {
    WithReplacement(pattern, [&](const std::string& replacement) {
      const Region range = canvas_.Selection();
      const Fullflash& image = bench_.document.Image();
      const bool isHit = range.size == PatternSize(pattern) &&
                         FirstFrom(image, Pattern(pattern), range.offset) == range.offset;
      if (isHit) {
        const Bytes old = image.Region(range.offset, range.size);
        bench_.document.Write(range.offset, Filled(replacement, old));
        canvas_.Go(range.End() - 1, 1);  // the next search starts behind it
      }
      Next();
    });
  });
}

void HexSearch::ReplaceAll() {
  With([this](const std::string& pattern) {
    WithReplacement(pattern, [&](const std::string& replacement) {
      const Fullflash& image = bench_.document.Image();
      const StatusHint hint(bench_.status, Wx(bench_.texts.Msg(Text::EscapeStops)));
      const auto hits = SeparateHits(image, Pattern(pattern), bench_.status, mostReplaced);
      if (!hits) return;
      if (hits->empty()) return Show(pattern, -1);
      if (hits->size() > mostReplaced) return bench_.talk.Complain(Text::TooManyHits);
      std::vector<Change> changes;
      for (const Offset hit : *hits)
        changes.push_back({hit, {}, Filled(replacement, image.Region(hit, PatternSize(pattern)))});
      bench_.document.Write(changes);
      canvas_.Go(hits->front(), PatternSize(pattern));
      Say(std::string(bench_.texts.Msg(Text::HitsReplacedLabel)) + std::to_string(hits->size()));
    });
  });
}

// After the menu that this command may come from has closed.
void HexSearch::Say(const std::string& note) {
  canvas_.CallAfter([this, note] {
    isNoteShown_ = true;
    bench_.status.ShowHelp(Wx(note));
  });
}

void HexSearch::Forget() {
  if (std::exchange(isNoteShown_, false)) bench_.status.ShowHelp(wxString());
}

}  // namespace tarvelo
