#include "core/image_edits.h"

#include <gtest/gtest.h>

#include "images.h"

namespace tarvelo {
namespace {

class Edits : public testing::Test {
 protected:
  Edits() : image(Bytes(Data(0x3000, 0x11))) {}

  void Write(Offset offset, const Data& bytes) { edits.Write(image, offset, bytes); }
  [[nodiscard]] Data At(Offset offset, Offset size) const {
    const Bytes region = image.Region(offset, size);
    return {region.begin(), region.end()};
  }

  Fullflash image;
  ImageEdits edits;
};

TEST_F(Edits, AreTakenBackAndDoneAgain) {
  Write(0xFFF, {1, 2});  // across a page boundary
  Write(0xFFE, {3, 4, 0x11});
  EXPECT_EQ(At(0xFFD, 5), (Data{0x11, 3, 4, 0x11, 0x11}));
  const auto undone = edits.Undo(image);
  EXPECT_EQ(undone->offset, 0xFFE);
  EXPECT_EQ(undone->size, 3);
  EXPECT_EQ(At(0xFFD, 5), (Data{0x11, 0x11, 1, 2, 0x11}));
  edits.Undo(image);
  EXPECT_EQ(At(0xFFD, 5), Data(5, 0x11));
  EXPECT_FALSE(edits.Undo(image));
  edits.Redo(image);
  edits.Redo(image);
  EXPECT_EQ(At(0xFFD, 5), (Data{0x11, 3, 4, 0x11, 0x11}));
  edits.Undo(image);
  Write(0, {9});  // a new change discards the undone ones
  EXPECT_FALSE(edits.CanRedo());
  Write(0, {9});  // already there
  edits.Undo(image);
  EXPECT_EQ(At(0, 1), Data{0x11});
}

TEST_F(Edits, OverlappingOnesInOneStepAreTakenBack) {
  edits.Write(image, std::vector<Change>{{5, {}, {1, 2, 3}}, {6, {}, {0x11}}, {0x2FFF, {}, {8}}});
  EXPECT_EQ(At(5, 3), (Data{1, 0x11, 3}));
  EXPECT_EQ(edits.Undo(image), (Region{5, 0x2FFB}));
  EXPECT_EQ(At(5, 3), Data(3, 0x11));
  EXPECT_EQ(At(0x2FFF, 1), Data{0x11});
}

TEST_F(Edits, ChangesAreThoseSinceOpening) {
  Write(0x10, {1, 2, 0x11, 0x11, 5});
  Write(0x1000, {6});
  Write(0x1000, {0x11});  // restores the original byte
  EXPECT_TRUE(edits.IsChanged(image, 0x11));
  EXPECT_FALSE(edits.IsChanged(image, 0x12));
  EXPECT_FALSE(edits.IsChanged(image, 0x1000));
  EXPECT_FALSE(edits.IsChanged(image, 0x2000));
  EXPECT_EQ(edits.Changes(image), (std::vector<Change>{{0x10, {0x11, 0x11}, {1, 2}}, {0x14, {0x11}, {5}}}));
  EXPECT_EQ(edits.Changes(image, 2), (std::vector<Change>{{0x10, Data(5, 0x11), {1, 2, 0x11, 0x11, 5}}}));
  EXPECT_EQ(edits.Changes(image, 0x11, 1), (std::vector<Change>{{0x11, {0x11}, {2}}}));
}

TEST_F(Edits, OutsideTheImageNothingIsWritten) {
  EXPECT_THROW(Write(0x2FFF, {1, 2}), std::out_of_range);
  EXPECT_THROW(Write(-1, {1}), std::out_of_range);
  EXPECT_THROW(edits.Write(image, std::vector<Change>{{0, {}, {1}}, {0x3000, {}, {1}}}), std::out_of_range);
  EXPECT_FALSE(edits.CanUndo());
  EXPECT_EQ(At(0, 1), Data{0x11});
}

}  // namespace
}  // namespace tarvelo
