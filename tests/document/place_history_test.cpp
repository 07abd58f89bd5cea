#include "document/place_history.h"

#include <gtest/gtest.h>

namespace tarvelo {
namespace {

constexpr int hex = 1;
constexpr int code = 2;
constexpr int list = 3;

TEST(PlaceHistory, GoesBackAndForth) {
  PlaceHistory history;
  EXPECT_FALSE(history.Back({code, 0}));
  history.Jump({code, 10}, {code, 20});
  history.Jump({code, 24}, {hex, 24});  // moved on by hand before the second jump
  EXPECT_EQ(history.Back({hex, 30}), (VisitedPlace{code, 24}));
  EXPECT_EQ(history.Back({code, 24}), (VisitedPlace{code, 10}));
  EXPECT_FALSE(history.Back({code, 10}));
  EXPECT_EQ(history.Forward({code, 12}), (VisitedPlace{code, 24}));
  EXPECT_EQ(history.Forward({code, 24}), (VisitedPlace{hex, 30}));
  EXPECT_FALSE(history.Forward({hex, 30}));
  EXPECT_EQ(history.Back({hex, 30}), (VisitedPlace{code, 24}));
  history.Jump({code, 24}, {code, 99});  // forgets the hex view
  EXPECT_FALSE(history.CanGoForward());
  EXPECT_EQ(history.Back({code, 99}), (VisitedPlace{code, 24}));
}

// The user may show another panel by the menu, which is no jump.
TEST(PlaceHistory, RemembersWhereAPanelWasShownByHand) {
  PlaceHistory history;
  history.Jump({list, 3}, {code, 20});
  EXPECT_EQ(history.Back({hex, 5}), (VisitedPlace{code, 20}));
  EXPECT_EQ(history.Forward({code, 20}), (VisitedPlace{hex, 5}));
  history.Jump({list, 4}, {code, 30});
  EXPECT_EQ(history.Back({code, 30}), (VisitedPlace{list, 4}));
  EXPECT_EQ(history.Back({list, 4}), (VisitedPlace{hex, 5}));
}

TEST(PlaceHistory, ForgetsTheOldestPlaces) {
  PlaceHistory history;
  for (Offset at = 0; at < 2000; ++at) history.Jump({code, at}, {code, at + 1});
  std::size_t steps = 0;
  VisitedPlace place{code, 2000};
  while (const auto back = history.Back(place)) {
    place = *back;
    ++steps;
  }
  EXPECT_EQ(steps, PlaceHistory::longest - 1);
  history.Clear();
  EXPECT_FALSE(history.CanGoBack({hex, 0}));
}

}  // namespace
}  // namespace tarvelo
