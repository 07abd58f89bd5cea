#include "patch/port.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "code/firmware_versions.h"
#include "patch/port_text.h"

namespace tarvelo {
namespace {

// A version of a made-up firmware and its code. Its functions are known, so that nothing here depends on how
// they are found.
struct Version {
  explicit Version(const MadeFirmware& firmware)
      : linked(firmware.Link()),
        image(Bytes(linked.image)),
        units(GetCodeUnits(image, Functions(firmware))) {}

  [[nodiscard]] FunctionList Functions(const MadeFirmware& firmware) const {
    std::vector<Function> functions;
    for (const MadeFunction& made : firmware.Functions()) {
      Offset size = 0;
      for (const MadeInstruction& instruction : made.body) size += instruction.size;
      functions.push_back({{linked.functions.at(made.id), size}, 1});
    }
    std::ranges::sort(functions, {}, [](const Function& function) { return function.code.offset; });
    return {std::move(functions), {}};
  }
  [[nodiscard]] std::uint32_t Base() const { return image.PhoneAddress(0); }

  Linked linked;
  Fullflash image;
  CodeUnits units;
};

struct Versions {
  Versions(unsigned seed, int functions, double amount)
      : before(seed, functions),
        after(before.Later(seed + 1, amount)),
        old(before),
        now(after),
        pairing(old.units, old.Base(), now.units, now.Base(), progress) {}

  // A change of the bytes of an instruction.
  [[nodiscard]] PatchChange ChangeOf(int id, std::vector<std::uint8_t> newBytes) const {
    const Offset at = old.linked.places.at(id);
    const Bytes bytes = old.image.Region(at, std::ssize(newBytes));
    return {1, {at, {bytes.begin(), bytes.end()}, std::move(newBytes)}};
  }
  [[nodiscard]] std::vector<PortedChange> Ported(const std::vector<PatchChange>& changes) const {
    return PortChanges(changes, old.image, now.image, pairing);
  }

  NoProgress progress;
  MadeFirmware before, after;
  Version old, now;
  CodePairing pairing;
};

std::vector<int> IdsOf(const MadeFunction& function) {
  std::vector<int> ids;
  for (const MadeInstruction& made : function.body) ids.push_back(made.id);
  return ids;
}

// Changes of every tenth instruction, and which of them are in functions that nobody edited.
struct Sample {
  explicit Sample(const Versions& versions) {
    std::map<int, std::vector<int>> bodies;
    for (const MadeFunction& function : versions.after.Functions()) bodies[function.id] = IdsOf(function);
    unsigned count = 0;
    for (const MadeFunction& function : versions.before.Functions())
      for (const MadeInstruction& made : function.body) {
        if (++count % 10 != 0) continue;
        ids.push_back(made.id);
        isUnchanged.push_back(bodies[function.id] == IdsOf(function));
        changes.push_back(versions.ChangeOf(made.id, made.size == 4
                                                         ? std::vector<std::uint8_t>{0xCC, 0, 0xCC, 0}
                                                         : std::vector<std::uint8_t>{0xCC, 0}));
      }
  }

  std::vector<int> ids;
  std::vector<bool> isUnchanged;
  std::vector<PatchChange> changes;
};

TEST(Port, NeverFindsAWrongPlaceAndFewAreRefused) {
  for (const auto& [seed, amount] : {std::pair(101U, 0.02), {102U, 0.05}, {103U, 0.1}}) {
    const Versions versions(seed, 700, amount);
    const Sample sample(versions);
    const std::vector<PortedChange> ported = versions.Ported(sample.changes);
    int wrong = 0;
    int unchanged = 0;
    int carried = 0;
    for (std::size_t i = 0; i < ported.size(); ++i) {
      unchanged += sample.isUnchanged[i];
      if (ported[i].refusal) continue;
      carried += sample.isUnchanged[i];
      const auto place = versions.now.linked.places.find(sample.ids[i]);
      wrong += place == versions.now.linked.places.end() || place->second != ported[i].offset;
    }
    // An edit may put another instruction of the same form in the place of one.
    EXPECT_LE(wrong, 1) << seed;
    EXPECT_GE(carried, unchanged * 0.93) << seed << ": " << carried << " of " << unchanged;
  }
}

}  // namespace
}  // namespace tarvelo
