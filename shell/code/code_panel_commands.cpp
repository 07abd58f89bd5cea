// What the commands of the code panel do.
#include <stdexcept>
#include <utility>

#include "code/masked_pattern.h"
#include "core/notation.h"
#include "core/places.h"
#include "document/dpp_text.h"
#include "patch/pattern_walk.h"
#include "resources/texts.h"
#include "shell/base/strings.h"
#include "shell/code/code_canvas.h"
#include "shell/code/code_panel.h"
#include "shell/services/clipboard.h"
#include "shell/services/edit_commands.h"
#include "shell/services/ids.h"
#include "shell/services/place_commands.h"
#include "shell/services/status_bar.h"
#include "shell/services/talk.h"

namespace tarvelo {
namespace {

// Bytes.
constexpr Offset copyLimit = 0x80000;
constexpr Offset patternLimit = 0x1000;

}  // namespace

PanelCommands CodePanel::MakeCommands() {
  const auto any = [this] { return view_ != nullptr; };
  const auto chosen = [this]() -> std::optional<Region> {
    if (!view_) return {};
    return canvas_->Chosen();
  };
  std::vector<PanelCommand> commands = {{Id::FollowTarget,
                                         Text::FollowTarget,
                                         Text::HelpFollowTarget,
                                         "",
                                         [this] { Follow_Click(); },
                                         any,
                                         {},
                                         {},
                                         " (Enter)"}};
  Append(commands, PlaceCommands(bench_, chosen, Id::OpenCode));
  Append(commands, {{Id::FunctionsBeside, Text::FunctionsBeside, Text::HelpFunctionsBeside, "Ctrl+B",
                     [this] { ShowSide(!IsSideShown()); }, any, [this] { return IsSideShown(); }},
                    {Id::ShowFunctions, Text::Functions, Text::HelpFunctions, "Ctrl+Shift+D",
                     [this] { bench_.frame.ShowFunctions(canvas_->At()); }, any}});
  Append(commands, CopyCommands());
  Append(commands,
         {{Id::StateDpps, Text::StateDpps, Text::HelpStateDpps, "", [this] { StateDpps_Click(); }, any}});
  Append(commands, EditCommands(bench_));
  return PanelCommands(std::move(commands), Id::FollowTarget);
}

std::vector<PanelCommand> CodePanel::CopyCommands() {
  const auto any = [this] { return view_ != nullptr; };
  return {
      {Id::CopyText,
       Text::CopyInstructions,
       Text::HelpCopyInstructions,
       "",
       [this] { CopyText_Click(false); },
       any,
       {},
       {},
       " (Ctrl+C)"},
      {Id::CopyWithBytes, Text::CopyWithBytes, Text::HelpCopyInstructions, "Ctrl+Shift+C",
       [this] { CopyText_Click(true); }, any},
      {Id::CopyOffset, Text::CopyOffset, Text::HelpCopyNumber, "",
       [this] { Copy(OffsetText(bench_.document.Image(), canvas_->At())); }, any},
      {Id::CopyAddress, Text::CopyAddress, Text::HelpCopyNumber, "",
       [this] { Copy(SegmentText(bench_.document.Image(), canvas_->At())); }, any},
      {Id::CopyPagePointer, Text::CopyPagePointer, Text::HelpCopyPointer, "",
       [this] { CopyPointer_Click(true); }, any},
      {Id::CopySegmentPointer, Text::CopySegmentPointer, Text::HelpCopyPointer, "",
       [this] { CopyPointer_Click(false); }, any},
      {Id::CopyAsPattern, Text::CopyAsPattern, Text::HelpCopyAsPattern, "", [this] { CopyAsPattern_Click(); },
       any},
      {Id::FindAlike, Text::FindAlike, Text::HelpFindAlike, "Ctrl+Shift+N", [this] { FindAlike_Click(); },
       any},
      {Id::SelectAll, Text::SelectAll, Text::HelpSelectAll, "Ctrl+A", [this] { SelectAll_Click(); }, any}};
}

void CodePanel::Follow_Click() {
  const auto target = view_->Reader().Read(canvas_->CursorRow()).target;
  if (target)
    bench_.frame.ShowCode(*target, 0);
  else
    bench_.status.ShowHelp(Wx(bench_.texts.Msg(Text::NoTarget)));
}

void CodePanel::CopyText_Click(bool withBytes) {
  const Offset bytes = canvas_->Chosen().size;
  if (bytes > copyLimit) return bench_.talk.ComplainOfSize(Text::CopyInstructions, bytes, copyLimit);
  Copy(RowsText(canvas_->ChosenRows(), withBytes));
}

void CodePanel::CopyPointer_Click(bool isPage) {
  const std::uint32_t address = bench_.document.Image().PhoneAddress(canvas_->At());
  const auto word = [](std::uint32_t value) { return Word2Str(static_cast<std::int32_t>(value)); };
  Copy(isPage ? Adr2Str(static_cast<std::int32_t>(address)) : word(address & 0xFFFF) + word(address >> 16));
}

void CodePanel::CopyAsPattern_Click() {
  const Region chosen = canvas_->Chosen();
  if (chosen.size > patternLimit)
    return bench_.talk.ComplainOfSize(Text::CopyAsPattern, chosen.size, patternLimit);
  Copy(MaskedPattern(bench_.document.Image().ff(), chosen));
}

// Goes round at the end of the image. Code lies at even phone addresses, as what is chosen does.
void CodePanel::FindAlike_Click() {
  const Fullflash& image = bench_.document.Image();
  const Region chosen = canvas_->Chosen();
  if (chosen.size > patternLimit)
    return bench_.talk.ComplainOfSize(Text::FindAlike, chosen.size, patternLimit);
  const Pattern pattern(MaskedPattern(image.ff(), chosen));
  const auto next = [&](Offset from) {
    Offset hit = FirstFrom(image, pattern, from);
    while (hit >= 0 && (hit - chosen.offset) % 2 != 0) hit = FirstFrom(image, pattern, hit + 1);
    return hit;
  };
  Offset hit = next(chosen.offset + 1);
  if (hit < 0) hit = next(0);
  if (hit < 0 || hit == chosen.offset) return bench_.talk.Tell(Wx(bench_.texts.Msg(Text::NothingAlike)));
  bench_.frame.ShowCode(hit, chosen.size);
}

void CodePanel::StateDpps_Click() {
  Document& document = bench_.document;
  const auto answer = bench_.talk.AskLine(Text::AskDpps, DppText(document.Dpps()));
  if (!answer) return;
  try {
    const DppPages pages = ReadDpps(*answer);
    (void)bench_.talk.fOpenErr([&] { document.StateDpps(pages); });
  } catch (const std::invalid_argument&) {
    bench_.talk.Complain(Wx(bench_.texts.MsgS(Text::NotANumber, *answer)));
  } catch (const std::overflow_error&) {
    bench_.talk.Complain(Wx(bench_.texts.MsgS(Text::NumberTooLarge, *answer)));
  }
}

}  // namespace tarvelo
