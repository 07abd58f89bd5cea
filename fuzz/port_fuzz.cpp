// Carries an arbitrary patch from arbitrary bytes to what an editor made of them: text, a zero, edits, bytes.
// If there is no text, changes follow the zero.
#include <vector>

#include "fuzz/target.h"
#include "patch/patch_lines.h"
#include "port/port.h"
#include "port/port_text.h"
#include "versions/code_pairing.h"

namespace tarvelo::fuzz {
namespace {

// Up to seven pieces are put in, taken out or changed. Each has a place, a length and a byte.
std::vector<std::uint8_t> Edited(Bytes bytes, Input& input) {
  std::vector<std::uint8_t> edited(bytes.begin(), bytes.end());
  for (int count = input.Byte() & 7; count > 0; --count) {
    const int manner = input.Byte();
    const auto at = edited.begin() + static_cast<Offset>(input.Word() % (edited.size() + 1));
    const Offset size = std::min<Offset>(input.Byte(), edited.end() - at);
    if (manner % 3 == 0)
      edited.insert(at, static_cast<std::size_t>(size), input.Byte());
    else if (manner % 3 == 1)
      edited.erase(at, at + size);
    else
      std::fill_n(at, size, input.Byte());
  }
  return edited;
}

struct NewBytes {
  Offset offset = 0;
  Bytes bytes;
};

// Up to seven changes: a word, which is half the place, a length and the new bytes.
std::vector<NewBytes> TakeNewBytes(Input& input) {
  std::vector<NewBytes> all;
  for (int count = input.Byte() & 7; count > 0; --count) {
    const Offset offset = Offset{input.Word()} * 2;
    const std::size_t size = input.Byte();
    all.push_back({offset, input.Take(size)});
  }
  return all;
}

// Their patch for a dump; those that reach behind its end are left out.
std::string TextFor(const Fullflash& old, const std::vector<NewBytes>& all) {
  std::string text;
  for (const NewBytes& each : all)
    if (const Offset size = std::ssize(each.bytes); each.offset + size <= std::ssize(old.ff()))
      AppendPatchLines(text, each.offset, old.Region(each.offset, size), each.bytes);
  return text;
}

void CheckPorted(const PatchChange& change, const PortedChange& ported, const Fullflash& old,
                 const Fullflash& now) {
  if (ported.refusal) return Check(!ReasonOf(*ported.refusal).empty(), "a refusal has a reason");
  const Offset size = std::ssize(change.change.newBytes);
  Check(ported.offset >= 0 && ported.offset + size <= std::ssize(now.ff()), "a place is in the new dump");
  Check(std::ranges::equal(ported.oldBytes, now.Region(ported.offset, size)), "its bytes stand there");
  Check(std::ssize(ported.newBytes) == size, "as many bytes are written");
  if (!std::ranges::equal(old.ff(), now.ff())) return;
  Check(ported.offset == change.change.offset, "in the same dump a place stays");
  Check(ported.newBytes == change.change.newBytes, "and so do the bytes");
}

}  // namespace

void Run(Bytes data) {
  Input input(data);
  std::string text = input.Text();
  const std::vector<NewBytes> changes = text.empty() ? TakeNewBytes(input) : std::vector<NewBytes>();
  // The edits are read once the old dump, which is behind them, is known.
  Input edits = input;
  (void)Edited({}, input);
  const Fullflash old = ImageOf(input.Rest());
  if (!old.IsOpen() || old.ff().size() > 0x20000) return;
  const Fullflash now(Bytes(Edited(old.ff(), edits)));
  if (text.empty()) text = TextFor(old, changes);
  const CodeUnits before = GetCodeUnits(old, GetFunctions(old, noProgress));
  const CodeUnits after = GetCodeUnits(now, GetFunctions(now, noProgress));
  const CodePairing pairing(before, old.PhoneAddress(0), after, now.PhoneAddress(0), noProgress);
  const ReadPatch patch = ReadPatchText(text);
  const std::vector<PortedChange> ported = PortChanges(patch.changes, old, now, pairing, noProgress);
  Check(ported.size() == patch.changes.size(), "each change has a result");
  for (std::size_t i = 0; i < ported.size(); ++i) CheckPorted(patch.changes[i], ported[i], old, now);
  const ReadPatch again = ReadPatchText(PortedText(text, patch.changes, ported));
  const auto carried = std::ranges::count_if(ported, [](const PortedChange& p) { return !p.refusal; });
  Check(again.invalid.empty() && std::ssize(again.changes) == carried, "the carried lines are a patch");
}

}  // namespace tarvelo::fuzz
