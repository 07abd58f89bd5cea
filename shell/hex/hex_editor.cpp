#include "shell/hex/hex_editor.h"

#include "core/byte_text.h"
#include "patch/patch_lines.h"
#include "resources/texts.h"
#include "shell/base/strings.h"
#include "shell/hex/hex_canvas.h"
#include "shell/services/clipboard.h"
#include "shell/services/talk.h"
#include "shell/services/workbench.h"

namespace tarvelo {
namespace {

constexpr Offset patchGap = 8;            // a line of a patch may contain up to this many unchanged bytes
constexpr std::size_t longestQuote = 60;  // characters of a rejected text

}  // namespace

HexEditor::HexEditor(Workbench& bench, HexCanvas& canvas) : bench_(bench), canvas_(canvas) {
  canvas_.onType = [this](Offset at, std::uint8_t byte, bool again) {
    bench_.talk.Guard(Wx(bench_.texts.Msg(Text::HexView)), [&] { Type(at, byte, again); });
  };
}

const Fullflash& HexEditor::Image() const { return bench_.document.Image(); }

// The second digit replaces the undo step of the first, if the first one changed the byte.
void HexEditor::Type(Offset at, std::uint8_t byte, bool again) {
  if (again && typedStep_) bench_.document.Undo();
  typedStep_ = Image().Byte(at) != byte;
  bench_.document.Write(at, Bytes(&byte, 1));
}

void HexEditor::Undo() {
  if (const auto region = bench_.document.Undo()) canvas_.Go(region->offset, 0);
}

void HexEditor::Redo() {
  if (const auto region = bench_.document.Redo()) canvas_.Go(region->offset, 0);
}

bool HexEditor::CanUndo() const { return bench_.document.Edits().CanUndo(); }

bool HexEditor::CanRedo() const { return bench_.document.Edits().CanRedo(); }

void HexEditor::Paste() {
  const std::string text = CopiedText();
  const auto bytes = ReadHex(text);
  if (!bytes) return RefuseNumber(text);
  const Offset start = canvas_.Selection().offset;
  if (start + std::ssize(*bytes) > std::ssize(Image().ff()))
    return bench_.talk.Complain(Text::DataOutsideImage);
  bench_.document.Write(start, *bytes);
  canvas_.Go(start + std::ssize(*bytes), 0);
}

void HexEditor::Fill() {
  const auto answer = bench_.talk.Ask(Text::FillWithByte, "FF");
  if (!answer) return;
  const auto byte = ReadHex(answer->size() == 1 ? "0" + *answer : *answer);
  if (!byte || byte->size() != 1) return RefuseNumber(*answer);
  const Region range = canvas_.Selection();
  bench_.document.Write(range.offset, std::vector(static_cast<std::size_t>(range.size), byte->front()));
}

void HexEditor::ChangesToPatch() {
  const Region range = canvas_.Selection();
  const ImageEdits& edits = bench_.document.Edits();
  const std::vector<Change> changes = range.size > 0
                                          ? edits.Changes(Image(), range.offset, range.size, patchGap)
                                          : edits.Changes(Image(), patchGap);
  if (changes.empty()) return bench_.talk.Tell(Wx(bench_.texts.Msg(Text::NothingChanged)));
  Offset size = 0;
  for (const Change& change : changes) size += change.Size();
  bench_.frame.AddPatch(Text::ChangesToPatch, size, [&] { return PatchLines(changes); });
}

void HexEditor::RefuseNumber(const std::string& text) {
  wxString quoted = Wx(text);
  if (quoted.length() > longestQuote) quoted = quoted.Left(longestQuote) + "...";
  bench_.talk.Complain(Wx(bench_.texts.MsgS(Text::NotANumber, Utf8(quoted))));
}

}  // namespace tarvelo
