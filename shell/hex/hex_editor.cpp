#include "shell/hex/hex_editor.h"

#include "core/byte_text.h"
#include "core/file.h"
#include "core/text_encoding.h"
#include "resources/texts.h"
#include "shell/base/strings.h"
#include "shell/hex/hex_canvas.h"
#include "shell/services/clipboard.h"
#include "shell/services/status_bar.h"
#include "shell/services/talk.h"
#include "shell/services/workbench.h"
#include "text/unicode.h"

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
  const bool isText = canvas_.CursorInText();
  const auto bytes = isText ? EncodeText(ToUtf16(text), canvas_.Encoding()) : ReadHex(text);
  if (!bytes) return Refuse(isText ? Text::NotPhoneText : Text::NotANumber, text);
  if (const auto end = WriteHere(*bytes)) canvas_.Go(*end, 0);
}

std::optional<Offset> HexEditor::WriteHere(Bytes bytes) {
  const Offset start = canvas_.Selection().offset;
  const Offset end = start + std::ssize(bytes);
  if (end > std::ssize(Image().ff())) {
    bench_.talk.Complain(Text::DataOutsideImage);
    return {};
  }
  bench_.document.Write(start, bytes);
  return end;
}

void HexEditor::Fill() {
  const auto answer = bench_.talk.Ask(Text::FillWithByte, "FF");
  if (!answer) return;
  const auto filling = ReadHex(answer->size() == 1 ? "0" + *answer : *answer);
  if (!filling) return Refuse(Text::NotANumber, *answer);
  const Region range = canvas_.Selection();
  std::vector<std::uint8_t> bytes(static_cast<std::size_t>(range.size));
  for (std::size_t i = 0; i < bytes.size(); ++i) bytes[i] = (*filling)[i % filling->size()];
  bench_.document.Write(range.offset, bytes);
}

void HexEditor::WriteFileHere() {
  const Messages& texts = bench_.texts;
  const auto path = bench_.talk.OpenFile(Text::WriteFileHere, Wx(texts.Msg(Text::AllFiles)) + "|*.*",
                                         bench_.document.Path());
  if (!path) return;
  FileBytes file;
  if (bench_.talk.fOpenErr([&] { file = ReadFile(*path, Fullflash::sizeLimit, bench_.status); })) return;
  if (file.size == 0) return bench_.talk.Complain(Text::FileEmpty);
  const Offset start = canvas_.Selection().offset;
  if (const auto end = WriteHere({file.data.get(), file.size})) canvas_.Go(start, *end - start);
}

void HexEditor::ChangesToPatch() {
  AddToPatch(Text::ChangesToPatch, bench_.document.Edits().Changes(Image(), patchGap));
}

void HexEditor::SelectedToPatch() {
  const Region range = canvas_.Selection();
  AddToPatch(Text::SelectedChangesToPatch,
             bench_.document.Edits().Changes(Image(), range.offset, range.size, patchGap));
}

void HexEditor::AddToPatch(Text command, const std::vector<Change>& changes) {
  const std::size_t all = bench_.document.Edits().Changes(Image(), patchGap).size();
  const Messages& texts = bench_.texts;
  if (all == 0) return bench_.talk.Tell(Wx(texts.Msg(Text::NothingChanged)));
  if (changes.empty())
    return bench_.talk.Tell(
        Wx(std::string(texts.Msg(Text::ChangesTakenLabel)) + "0 / " + std::to_string(all)));
  Offset size = 0;
  for (const Change& change : changes) size += change.Size();
  bench_.frame.AddPatch(command, size, all, [&] { return changes; });
}

void HexEditor::Refuse(Text message, const std::string& text) {
  wxString quoted = Wx(text);
  if (quoted.length() > longestQuote) quoted = quoted.Left(longestQuote) + "...";
  bench_.talk.Complain(Wx(bench_.texts.MsgS(message, Utf8(quoted))));
}

}  // namespace tarvelo
