#include "versions/code_versions.h"

#include <gtest/gtest.h>

#include "demo_versions.h"
#include "images.h"

namespace tarvelo {
namespace {

TEST(CodeVersions, AreStoppedAtOnce) {
  const Fullflash image{Bytes(PartOfDemo(DemoKind::First))};
  Impatient user(3);
  Interruptible progress(user);
  EXPECT_THROW(CodeVersions(image, image, progress), Stopped);
  EXPECT_EQ(user.positions, 3);
}

// The code of both images is found at the same time.
TEST(CodeVersions, FindBothAtOnce) {
  const Fullflash first{Bytes(PartOfDemo(DemoKind::First))};
  const Fullflash second{Bytes(PartOfDemo(DemoKind::Second))};
  NoProgress progress;
  const CodeVersions versions(first, second, progress);
  EXPECT_GT(versions.Pairing().Old().units.size(), 100u);
  EXPECT_GT(versions.Pairing().New().units.size(), 100u);
}

}  // namespace
}  // namespace tarvelo
