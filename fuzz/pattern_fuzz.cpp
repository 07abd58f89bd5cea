// Searches arbitrary bytes for arbitrary text as a byte pattern, and compares with the plain search that
// defines the result.
#include "core/scan/vector_scan.h"
#include "fuzz/target.h"
#include "patch/hit_search.h"
#include "patch/pattern_walk.h"
#include "tests/patch/plain_search.h"

namespace {

using namespace tarvelo;
using namespace tarvelo::fuzz;

// Repeats the bytes, because the search handles many at a time.
std::vector<std::uint8_t> Repeated(Bytes bytes, int times) {
  std::vector<std::uint8_t> repeated;
  for (; times > 0; --times) repeated.insert(repeated.end(), bytes.begin(), bytes.end());
  return repeated;
}

void CheckLines(const Fullflash& image, const Pattern& pattern, const std::vector<Offset>& hits) {
  for (std::size_t i = 0; i < std::min<std::size_t>(hits.size(), 8); ++i) {
    const std::string bytes = BytesOfHit(image, pattern, hits[i]);
    Check(bytes.size() == 2 * static_cast<std::size_t>(pattern.PatCount()), "a hit has the pattern's bytes");
    Check(LineOfHit(image, pattern, i + 1, hits[i]).ends_with(": " + bytes), "a line shows its bytes");
  }
}

// The hits in an image that is searched in pieces.
std::vector<Offset> FindInPieces(Bytes image, const Pattern& pattern, std::size_t length) {
  HitSearch search(pattern, static_cast<Offset>(image.size()));
  std::vector<Offset> hits;
  for (std::size_t end = 0; !search.IsOver();) {
    const auto at = static_cast<std::size_t>(search.Next());
    Check(at <= image.size(), "a search goes on within the image");
    end = std::min(image.size(), std::max(end, at) + length);
    search.Take(image.subspan(at, end - at), search.Next(), hits);
  }
  return hits;
}

// Goes from anywhere to the next occurrence and back.
void Walk(Bytes image, const Fullflash& fullflash, const Pattern& pattern, const PlainBytes& plain,
          Offset start) {
  const Offset next = FirstFrom(fullflash, pattern, start);
  const Offset last = LastBefore(fullflash, pattern, start);
  Check(next < 0 || next >= start, "the next occurrence is not in front");
  Check(last < start, "the last occurrence is in front");
  for (const Offset at : {next, last}) {
    if (at < 0) continue;
    for (std::size_t k = 0; k < plain.size(); ++k)
      Check(plain[k] < 0 || plain[k] == ByteAt(image, at + static_cast<Offset>(k)), "an occurrence matches");
  }
  if (next >= 0) Check(LastBefore(fullflash, pattern, next + 1) == next, "it is found on the way back");
}

}  // namespace

// Byte 0: how often to repeat the bytes, and which vectors to use. Word at 1: where the search starts. Then
// the pattern's text, a zero, and the bytes.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  Input input({data, size});
  const int choice = input.Byte();
  const Offset start = input.Word();
  const std::string text = input.Text();
  const std::vector<std::uint8_t> bytes = Repeated(input.Rest(), 1 + choice % 16);
  LimitVectorUnit(static_cast<VectorUnit>(2 - choice / 16 % 3));

  const Fullflash image{Bytes(bytes)};
  const Pattern pattern(text);
  const auto plain = PlainPattern(text);
  if (plain) Check(pattern.PatCount() == static_cast<int>(plain->size()), "a pair is a byte");
  if (!image.IsOpen()) return 0;
  Check(pattern.FindPat(image, start) == PlainFindPat(bytes, plain, start), "a search finds the first hit");

  const std::vector<Offset> expected = PlainFindAll(bytes, plain);
  NoProgress progress;
  const std::vector<Offset> hits = FindAll(image, pattern, progress);
  Check(hits == expected, "all hits are found");
  Check(FindInPieces(bytes, pattern, 1 + static_cast<std::size_t>(start) % 300) == expected,
        "all hits are found in pieces");
  if (plain) Walk(bytes, image, pattern, *plain, start);
  CheckLines(image, pattern, hits);
  (void)NotFound(text, Messages());
  return 0;
}
