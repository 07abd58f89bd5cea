#include "port/port.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "port/port_text.h"
#include "versions/firmware_versions.h"

namespace tarvelo {
namespace {

// A version of a made-up firmware and its code. Its functions are known, so that nothing here depends on how
// they are found.
struct Version {
  explicit Version(const FirmwareModel& firmware)
      : linked(firmware.Link()),
        image(Bytes(linked.image)),
        units(GetCodeUnits(image, Functions(firmware))) {}

  [[nodiscard]] FunctionList Functions(const FirmwareModel& firmware) const {
    std::vector<Function> functions;
    for (const ModelFunction& made : firmware.Functions()) {
      Offset size = 0;
      for (const ModelInstruction& instruction : made.body) size += instruction.size;
      functions.push_back({{linked.functions.at(made.id), size}, 1});
    }
    std::ranges::sort(functions, {}, [](const Function& function) { return function.code.offset; });
    return {std::move(functions), {}};
  }
  [[nodiscard]] std::uint32_t Base() const { return image.PhoneAddress(0); }

  LinkedModel linked;
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
    NoProgress none;
    return PortChanges(changes, old.image, now.image, pairing, none);
  }

  NoProgress progress;
  FirmwareModel before, after;
  Version old, now;
  CodePairing pairing;
};

std::vector<std::uint8_t> CallOf(std::uint32_t address) {
  return {0xDA, static_cast<std::uint8_t>(address >> 16), static_cast<std::uint8_t>(address),
          static_cast<std::uint8_t>(address >> 8)};
}

std::vector<int> IdsOf(const ModelFunction& function) {
  std::vector<int> ids;
  for (const ModelInstruction& made : function.body) ids.push_back(made.id);
  return ids;
}

// Changes of every tenth instruction, and which of them are in functions that nobody edited.
struct Sample {
  explicit Sample(const Versions& versions) {
    std::map<int, std::vector<int>> bodies;
    for (const ModelFunction& function : versions.after.Functions()) bodies[function.id] = IdsOf(function);
    unsigned count = 0;
    for (const ModelFunction& function : versions.before.Functions())
      for (const ModelInstruction& made : function.body) {
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

// New bytes that call a function call it in the new version, or are refused if it is gone.
TEST(Port, CarriesTheAddressesInNewBytes) {
  const Versions versions(201, 500, 0.05);
  std::vector<PatchChange> changes;
  std::vector<int> called;
  int next = 0;
  for (const ModelFunction& function : versions.before.Functions())
    for (const ModelInstruction& made : function.body) {
      if (made.size != 4 || ++next % 20 != 0) continue;
      const int target = next / 20 % 500;
      const std::uint32_t address = versions.old.image.PhoneAddress(versions.old.linked.functions.at(target));
      changes.push_back(versions.ChangeOf(made.id, CallOf(address)));
      called.push_back(target);
    }
  const std::vector<PortedChange> ported = versions.Ported(changes);
  int carried = 0;
  for (std::size_t i = 0; i < ported.size(); ++i) {
    if (ported[i].refusal) continue;
    ++carried;
    const auto place = versions.now.linked.functions.find(called[i]);
    ASSERT_NE(place, versions.now.linked.functions.end())
        << "a call of function " << called[i] << ", which is gone";
    EXPECT_EQ(ported[i].newBytes, CallOf(versions.now.image.PhoneAddress(place->second))) << called[i];
  }
  EXPECT_GT(carried, static_cast<int>(ported.size()) * 3 / 4);
}

// What a change leaves of an instruction is what the new version has there: here the registers of
// instructions with addresses change, and the addresses are those that moved.
TEST(Port, KeepsTheOperandsOfTheNewVersion) {
  const Versions versions(202, 400, 0.04);
  std::vector<PatchChange> changes;
  std::vector<int> ids;
  for (const ModelFunction& function : versions.before.Functions())
    for (const ModelInstruction& made : function.body)
      if (made.field == ModelInstruction::Field::Variable && made.bytes[0] == 0xF2) {
        PatchChange change = versions.ChangeOf(made.id, {0, 0, 0, 0});
        change.change.newBytes = change.change.oldBytes;
        change.change.newBytes[1] ^= 1;
        changes.push_back(change);
        ids.push_back(made.id);
      }
  const std::vector<PortedChange> ported = versions.Ported(changes);
  int moved = 0;
  for (std::size_t i = 0; i < ported.size(); ++i) {
    if (ported[i].refusal) continue;
    auto wanted = ported[i].oldBytes;
    wanted[1] ^= 1;
    EXPECT_EQ(ported[i].newBytes, wanted) << ids[i];
    moved += ported[i].oldBytes != changes[i].change.oldBytes;
  }
  EXPECT_GT(moved, static_cast<int>(ported.size()) / 4);
}

TEST(Port, TextKeepsCommentsAndSaysWhatWasRefused) {
  const std::string text = ";Name\r\n100: 1234 5678 ;why\n  200: 11 22\rnonsense\n";
  const ReadPatch patch = ReadPatchText(text);
  std::vector<PortedChange> ported(2);
  ported[0].offset = 0xABC;
  ported[0].oldBytes = {0x12, 0x35};
  ported[0].newBytes = {0x56, 0x79};
  ported[1].refusal = PortRefusal::NoPlace;
  const std::string result = PortedText(text, patch.changes, ported);
  EXPECT_EQ(result,
            ";Name\r\n000ABC: 1235 5679 ;why\r\n;there is no such place in the new dump:   200: 11 22\r\n"
            ";not a patch line: nonsense\r\n");
  EXPECT_EQ(ReadPatchText(result).changes.size(), 1u);
}

}  // namespace
}  // namespace tarvelo
