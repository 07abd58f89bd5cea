#include "shell/services/place_commands.h"

#include <string>
#include <utility>

#include "shell/services/ids.h"
#include "shell/services/talk.h"
#include "shell/services/workbench.h"

namespace tarvelo {
namespace {

bool IsInside(const Workbench& bench, Offset offset) {
  return offset >= 0 && offset <= bench.document.Image().ffEnd();
}

// Asks for the name of a place, or for the comment on it, and keeps the other.
void AskAboutPlace(Workbench& bench, Offset offset, bool isName) {
  if (!IsInside(bench, offset)) return bench.talk.Complain(Text::DataOutsideImage);
  Document& document = bench.document;
  const auto known = document.PlaceNames().At(document.Image().PhoneAddress(offset));
  const std::string name(known ? known->name : std::string_view());
  const std::string comment(known ? known->comment : std::string_view());
  const auto answer =
      bench.talk.AskLine(isName ? Text::NamePlace : Text::CommentPlace, isName ? name : comment);
  if (answer) document.NamePlace(offset, isName ? *answer : name, isName ? comment : *answer);
}

}  // namespace

std::vector<PanelCommand> PlaceCommands(Workbench& bench, std::function<std::optional<Region>()> chosen,
                                        int without) {
  const auto any = [chosen] { return chosen().has_value(); };
  const auto with = [chosen](auto run) {
    return [chosen, run] {
      if (const auto region = chosen()) run(*region);
    };
  };
  const char* const other = "F4";  // the same place in the other view
  std::vector<PanelCommand> commands = {
      {Id::OpenHex, Text::OpenInHexView, Text::HelpHexView, without == Id::OpenCode ? other : "",
       with([&bench](const Region& region) { bench.frame.ShowHex(region.offset, region.size); }), any},
      {Id::OpenCode, Text::OpenInCode, Text::HelpCode, other,
       with([&bench](const Region& region) { bench.frame.ShowCode(region.offset, 0); }), any},
      {Id::WhoRefers, Text::WhoRefers, Text::HelpWhoRefers, "Ctrl+U",
       with([&bench](const Region& region) { bench.frame.ShowReferences(region.offset); }), any},
      {Id::WhatLiesHere, Text::WhatLiesHere, Text::HelpWhatLiesHere, "Ctrl+Shift+L",
       with([&bench](const Region& region) { bench.frame.ShowWhatLies(region.offset); }), any},
      {Id::NamePlace, Text::NamePlace, Text::HelpNamePlace, "Ctrl+N",
       with([&bench](const Region& region) { AskAboutPlace(bench, region.offset, true); }), any},
      {Id::CommentPlace, Text::CommentPlace, Text::HelpCommentPlace, "Ctrl+M",
       with([&bench](const Region& region) { AskAboutPlace(bench, region.offset, false); }), any}};
  commands.push_back({Id::ShowInPatch, Text::ShowInPatch, Text::HelpShowInPatch, "Shift+F4",
                      with([&bench](const Region& region) { bench.frame.ShowInPatch(region.offset); }), any});
  std::erase_if(commands, [without](const PanelCommand& command) { return command.id == without; });
  return commands;
}

}  // namespace tarvelo
