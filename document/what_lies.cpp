#include "document/what_lies.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "code/instruction_text.h"
#include "code/sweep.h"
#include "document/document.h"
#include "document/explorers.h"
#include "document/map_table.h"

namespace tarvelo {
namespace {

std::string NumberedName(const Explorer& explorer, int number, const Messages& messages) {
  return std::string(messages.Msg(explorer.name)) + " " + std::to_string(number);
}

void AddFindings(const Document& document, Offset offset, const Messages& messages,
                 std::vector<KnownThing>& things) {
  for (const Explorer* explorer : Explorers()) {
    const Layers* layers = document.KnownLayers(*explorer);
    if (!layers) continue;
    for (const auto& [claim, record] : layers->At(offset)) {
      std::string what =
          claim.kind ? WhatOf(claim, messages) : NumberedName(*explorer, claim.number, messages);
      things.push_back({std::move(what), {claim.offset, claim.size}, explorer, record});
    }
  }
}

// What only the map says: erased and empty stretches, guesses.
void AddFromMap(const Document& document, Offset offset, const Messages& messages,
                std::vector<KnownThing>& things) {
  const auto map = document.KnownMap();
  if (!map) return;
  for (const Claim& region : map->Within(offset, 1)) {
    std::string what = WhatOf(region, messages);
    const bool isTold = std::ranges::find(things, what, &KnownThing::what) != things.end();
    if (isTold || region.sure == Sureness::Unknown) continue;
    if (region.sure == Sureness::Guessed)
      what.append(" (").append(messages.Msg(Text::SureGuessed)).append(")");
    things.push_back({std::move(what), {region.offset, region.size}});
  }
}

// The start of the instruction in a function that ends where another one begins; -1: none does.
Offset InstructionBefore(Bytes image, const FunctionList& functions, Offset offset) {
  for (const int size : {2, 4})
    if (offset >= size && functions.IsInstruction(offset - size) &&
        Instruction::Decode(image, offset - size).Size() == size)
      return offset - size;
  return -1;
}

void AddInstruction(const Document& document, Offset offset, std::vector<KnownThing>& things) {
  constexpr int longestRange = 5;  // instructions, with the one that begins it
  const auto functions = document.KnownFunctions();
  const Bytes image = document.Image().ff();
  Offset start = document.Image().WordStart(offset);
  if (!functions->IsInstruction(start)) start -= 2;
  if (start < 0 || !functions->IsInstruction(start)) return;
  Offset from = start;
  for (int i = 0; i < longestRange; ++i)
    if (const Offset before = InstructionBefore(image, *functions, from); before >= 0) from = before;
  Sweep(image, from, start + 1, [&](Offset at, const Instruction& instruction, const ExtRange& range) {
    const Region region{at, instruction.Size()};
    if (at != start || !region.Holds(offset)) return false;
    const CodeText text = TextOf(instruction, document.Image().PhoneAddress(at), range.IsExtended());
    things.push_back({std::string(text.View()), region});
    return true;
  });
}

}  // namespace

std::vector<KnownThing> WhatLiesAt(const Document& document, Offset offset, const Messages& messages) {
  std::vector<KnownThing> things;
  ClaimIdentified(document.Get(), [&](const Claim& claim) {
    const Region region{claim.offset, claim.size};
    if (region.Holds(offset)) things.push_back({WhatOf(claim, messages), region});
  });
  AddFindings(document, offset, messages, things);
  AddFromMap(document, offset, messages, things);
  std::ranges::stable_sort(things, std::greater<>(),
                           [](const KnownThing& thing) { return thing.region.size; });
  AddInstruction(document, offset, things);
  const auto name = document.PlaceNames().NameAt(document.Image().PhoneAddress(offset));
  if (!name.empty()) things.push_back({std::string(name), {offset, 1}, nullptr, {}, true});
  return things;
}

std::string WhatLiesText(const Document& document, Offset offset, const Messages& messages) {
  std::string text;
  for (const KnownThing& thing : WhatLiesAt(document, offset, messages))
    if (!thing.isName) text += (text.empty() ? "" : " > ") + thing.what;
  return text;
}

std::vector<const Explorer*> NotSearchedYet(const Document& document) {
  std::vector<const Explorer*> missing;
  std::ranges::copy_if(Explorers(), std::back_inserter(missing), [&](const Explorer* explorer) {
    return !document.Known(*explorer) && (!explorer->isOfC166 || document.Image().PageMode());
  });
  return missing;
}

}  // namespace tarvelo
