// Searches arbitrary bytes for arbitrary text as a byte pattern, and compares with the plain search that
// defines the result. Then takes the text for the pattern of a name.
#include "core/scan/vector_scan.h"
#include "fuzz/target.h"
#include "patch/hit_search.h"
#include "patch/name_pattern.h"
#include "patch/pattern_walk.h"
#include "tests/patch/plain_search.h"

namespace tarvelo::fuzz {
namespace {

// Repeats the bytes, because the search handles many at a time.
std::vector<std::uint8_t> Repeated(Bytes bytes, int times) {
  std::vector<std::uint8_t> repeated;
  for (; times > 0; --times) repeated.insert(repeated.end(), bytes.begin(), bytes.end());
  return repeated;
}

void FindName(const std::string& text, const Fullflash& image) try {
  Check(NamePattern(text).Find(image, 2).size() <= 2, "no more is found than asked for");
} catch (const std::invalid_argument&) {
  // the text is no such pattern
}

}  // namespace

// Byte 0: how often to repeat the bytes, and which vectors to use. Word at 1: where the search starts. Then
// the pattern's text, a zero, and the bytes.
void Run(Bytes data) {
  Input input(data);
  const int choice = input.Byte();
  const Offset start = input.Word();
  const std::string text = input.Text();
  const std::vector<std::uint8_t> bytes = Repeated(input.Rest(), 1 + choice % 16);
  LimitVectorUnit(static_cast<VectorUnit>(2 - choice / 16 % 3));

  const Fullflash image{Bytes(bytes)};
  const Pattern pattern(text);
  const auto plain = PlainPattern(text);
  if (plain) Check(pattern.PatCount() == static_cast<int>(plain->size()), "a pair is a byte");
  if (!image.IsOpen()) return;
  Check(pattern.FindPat(image, start) == PlainFindPat(bytes, plain, start), "a search finds the first hit");

  const std::vector<Offset> hits = FindAll(image, pattern, noProgress);
  Check(hits == PlainFindAll(bytes, plain), "all hits are found");
  for (std::size_t i = 0; i < std::min<std::size_t>(hits.size(), 8); ++i) {
    const std::string line = LineOfHit(image, pattern, i + 1, hits[i]);
    Check(line.ends_with(": " + BytesOfHit(image, pattern, hits[i])), "a line shows the bytes of its hit");
    Check(FirstFrom(image, pattern, hits[i]) == hits[i], "a walk forwards finds a hit");
    Check(LastBefore(image, pattern, hits[i] + 1) == hits[i], "a walk backwards finds a hit");
  }
  (void)NotFound(text, Messages());
  FindName(text, image);
}

}  // namespace tarvelo::fuzz
