#include "document/layers.h"

#include <gtest/gtest.h>

#include "document/document.h"
#include "document/explorers.h"
#include "images.h"

namespace tarvelo {
namespace {

constexpr ClaimGroup group{Text::MapPicture, {}, 0};
constexpr ClaimKind table{"table", Text::MapPictureTable, {}, 1, &group};
constexpr ClaimKind thing{"thing", Text::MapPicture, {}, 2, &group};

// A table at 0 .. 99, thing 0 at 10 .. 29 in it with an entry at 4, and thing 9 within thing 5, which
// is no record.
const Explorer explorer{
    .key = "made",
    .count = [](const Findings&) -> std::size_t { return 2; },
    .item = [](const Findings&, std::size_t record) -> Item {
      if (record == 0) return {.number = 0, .data = {10, 20}, .entry = {4, 2}};
      return {.number = 9, .data = {40, 5}, .entry = {40, 5}};
    },
    .claim =
        [](const Dump&, const Findings&, const TakeClaim& take) {
          take({10, 20, &thing, Sureness::Certain, 0});
          take({40, 6, &thing, Sureness::Certain, 5});
          take({0, 100, &table, Sureness::Likely});
        },
};

TEST(Layers, AreAllThatCoversAPlace) {
  const Layers layers(explorer, Dump(), Findings(0));
  const auto at = [&](Offset offset) {
    std::string text;
    for (const auto& [claim, record] : layers.At(offset))
      text += std::string(claim.kind ? claim.kind->key : "record") + " " + std::to_string(claim.offset) +
              (record ? "#" + std::to_string(*record) : "") + "; ";
    return text;
  };
  EXPECT_EQ(at(4), "table 0; record 4#0; ");
  EXPECT_EQ(at(10), "table 0; thing 10#0; ");
  EXPECT_EQ(at(29), "table 0; thing 10#0; ");
  EXPECT_EQ(at(30), "table 0; ");
  EXPECT_EQ(at(44), "table 0; thing 40; record 40#1; ");
  EXPECT_EQ(at(100), "");
}

TEST(Document, KnowsNothingOfAStoppedSearch) {
  const std::vector<std::uint8_t> bytes = ImageBuilder(0x100000).Take();
  Document document;
  document.Open(Fullflash(Bytes(bytes)), "a.bin");
  for (const Explorer* each : Explorers()) {
    Impatient progress(0);
    Interruptible stopping(progress);
    EXPECT_THROW((void)document.Find(*each, stopping), Stopped) << each->key;
    EXPECT_EQ(progress.finished, 1);
    EXPECT_EQ(document.Known(*each), nullptr);
    EXPECT_FALSE(document.KnownCount(*each));
  }
}

}  // namespace
}  // namespace tarvelo
