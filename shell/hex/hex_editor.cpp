#include "shell/hex/hex_editor.h"

#include "patch/patch_lines.h"
#include "shell/hex/hex_canvas.h"
#include "shell/frame/main.h"
#include "shell/patch/patch_panel.h"
#include "shell/base/strings.h"

namespace tarvelo {
namespace {

constexpr Offset patchGap = 8;            // so many bytes that stay may lie within a line of a patch
constexpr std::size_t longestQuote = 60;  // of a text that is refused

}  // namespace

HexEditor::HexEditor(Main& main, HexCanvas& canvas) : main_(main), canvas_(canvas) {
  canvas_.onType = [this](Offset at, std::uint8_t byte, bool again) {
    main_.RunGuarded(Wx(main_.Texts().Msg(Text::HexView)), [&] { Type(at, byte, again); });
  };
}

const Fullflash& HexEditor::Image() const { return main_.Open().image; }

// The second digit takes the step of the first one's place, if that has made one.
void HexEditor::Type(Offset at, std::uint8_t byte, bool again) {
  if (again && typedStep_) main_.UndoImage();
  typedStep_ = Image().Byte(at) != byte;
  main_.WriteImage(at, Bytes(&byte, 1));
}

void HexEditor::Undo() {
  if (const auto region = main_.UndoImage()) canvas_.Go(region->offset, 0);
}

void HexEditor::Redo() {
  if (const auto region = main_.RedoImage()) canvas_.Go(region->offset, 0);
}

bool HexEditor::CanUndo() const { return main_.Open().edits.CanUndo(); }

bool HexEditor::CanRedo() const { return main_.Open().edits.CanRedo(); }

void HexEditor::Paste() {
  const std::string text = main_.CopiedText();
  const auto bytes = ReadHex(text);
  if (!bytes) return RefuseNumber(text);
  const Offset start = canvas_.Selection().start;
  if (start + std::ssize(*bytes) > std::ssize(Image().ff()))
    return main_.Complain(Wx(main_.Texts().Msg(Text::DataOutsideImage)));
  main_.WriteImage(start, *bytes);
  canvas_.Go(start + std::ssize(*bytes), 0);
}

void HexEditor::Fill() {
  const auto answer = main_.Ask(Text::FillWithByte, "FF");
  if (!answer) return;
  const auto byte = ReadHex(answer->size() == 1 ? "0" + *answer : *answer);
  if (!byte || byte->size() != 1) return RefuseNumber(*answer);
  const ByteRange range = canvas_.Selection();
  main_.WriteImage(range.start, std::vector(static_cast<std::size_t>(range.size), byte->front()));
}

void HexEditor::ChangesToPatch() {
  const ByteRange range = canvas_.Selection();
  const ImageEdits& edits = main_.Open().edits;
  const std::vector<Change> changes = range.size > 0
                                          ? edits.Changes(Image(), range.start, range.size, patchGap)
                                          : edits.Changes(Image(), patchGap);
  if (changes.empty()) return main_.Tell(Wx(main_.Texts().Msg(Text::NothingChanged)));
  Offset size = 0;
  for (const Change& change : changes) size += change.Size();
  main_.Patch().AskAndAddPatch(Text::ChangesToPatch, size, [&] { return PatchLines(changes); });
}

void HexEditor::RefuseNumber(const std::string& text) {
  wxString quoted = Wx(text);
  if (quoted.length() > longestQuote) quoted = quoted.Left(longestQuote) + "...";
  main_.Complain(Wx(main_.Texts().MsgS(Text::NotANumber, Utf8(quoted))));
}

}  // namespace tarvelo
