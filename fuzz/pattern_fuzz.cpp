// Any text as a byte pattern, sought in any bytes, beside the search as it is defined.
#include "fuzz/target.h"
#include "patch/pattern.h"
#include "tests/patch/plain_search.h"

namespace {

using namespace tarvelo;
using namespace tarvelo::fuzz;

// The bytes several times over: the search takes many at a time.
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

}  // namespace

// Byte 0 says how often the bytes are repeated, the word behind it where the search starts; then come
// the pattern's text, a zero, and the bytes.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  Input input({data, size});
  const int times = 1 + input.Byte() % 16;
  const Offset start = input.Word();
  const std::string text = input.Text();
  const std::vector<std::uint8_t> bytes = Repeated(input.Rest(), times);

  const Fullflash image{Bytes(bytes)};
  const Pattern pattern(text);
  const auto plain = PlainPattern(text);
  if (plain) Check(pattern.PatCount() == static_cast<int>(plain->size()), "a pair is a byte");
  if (!image.IsOpen()) return 0;
  Check(pattern.FindPat(image, start) == PlainFindPat(bytes, plain, start), "a search finds the first hit");

  std::vector<Offset> expected;
  for (Offset hit = PlainFindPat(bytes, plain, 0); hit > 0; hit = PlainFindPat(bytes, plain, hit + 1))
    expected.push_back(hit);
  NoProgress progress;
  const std::vector<Offset> hits = FindAll(image, pattern, progress);
  Check(hits == expected, "all hits are found");
  CheckLines(image, pattern, hits);
  (void)NotFound(text, Messages());
  return 0;
}
