#include "document/place_history.h"

#include <gtest/gtest.h>

namespace tarvelo {
namespace {

constexpr int hexPanel = 1;
constexpr int codePanel = 2;
constexpr int listPanel = 3;

TEST(PlaceHistory, GoesBackAndForth) {
  PlaceHistory history;
  EXPECT_FALSE(history.Back({codePanel, 0}));
  history.Jump({codePanel, 10}, {codePanel, 20});
  history.Jump({codePanel, 24}, {hexPanel, 24});  // moved on by hand before the second jump
  EXPECT_EQ(history.Back({hexPanel, 30}), (VisitedPlace{codePanel, 24}));
  EXPECT_EQ(history.Back({codePanel, 24}), (VisitedPlace{codePanel, 10}));
  EXPECT_FALSE(history.Back({codePanel, 10}));
  EXPECT_EQ(history.Forward({codePanel, 12}), (VisitedPlace{codePanel, 24}));
  EXPECT_EQ(history.Forward({codePanel, 24}), (VisitedPlace{hexPanel, 30}));
  EXPECT_FALSE(history.Forward({hexPanel, 30}));
  EXPECT_EQ(history.Back({hexPanel, 30}), (VisitedPlace{codePanel, 24}));
  history.Jump({codePanel, 24}, {codePanel, 99});  // forgets the hex view
  EXPECT_FALSE(history.CanGoForward());
  EXPECT_EQ(history.Back({codePanel, 99}), (VisitedPlace{codePanel, 24}));
}

// The user may show another panel by the menu, which is no jump.
TEST(PlaceHistory, RemembersWhereAPanelWasShownByHand) {
  PlaceHistory history;
  history.Jump({listPanel, 3}, {codePanel, 20});
  EXPECT_EQ(history.Back({hexPanel, 5}), (VisitedPlace{codePanel, 20}));
  EXPECT_EQ(history.Forward({codePanel, 20}), (VisitedPlace{hexPanel, 5}));
  history.Jump({listPanel, 4}, {codePanel, 30});
  EXPECT_EQ(history.Back({codePanel, 30}), (VisitedPlace{listPanel, 4}));
  EXPECT_EQ(history.Back({listPanel, 4}), (VisitedPlace{hexPanel, 5}));
}

TEST(PlaceHistory, ForgetsTheOldestPlaces) {
  PlaceHistory history;
  for (Offset at = 0; at < 2000; ++at) history.Jump({codePanel, at}, {codePanel, at + 1});
  std::size_t steps = 0;
  VisitedPlace place{codePanel, 2000};
  while (const auto back = history.Back(place)) {
    place = *back;
    ++steps;
  }
  EXPECT_EQ(steps, PlaceHistory::longest - 1);
  history.Clear();
  EXPECT_FALSE(history.CanGoBack({hexPanel, 0}));
}

}  // namespace
}  // namespace tarvelo
