// The first use of the messages in a process, by many threads at once. Nothing may use them earlier, so these
// tests have a program of their own.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <latch>
#include <string_view>
#include <thread>
#include <vector>

#include "resources/messages.h"
#include "resources/texts.h"

namespace tarvelo {
namespace {

TEST(ColdMessages, AreReadByManyThreadsAtOnce) {
  constexpr std::size_t count = 16;
  std::array<std::vector<std::string_view>, count> read;
  {
    std::latch start(count);
    std::vector<std::jthread> threads;
    for (std::vector<std::string_view>& texts : read)
      threads.emplace_back([&start, &texts] {
        start.arrive_and_wait();
        for (const Language& language : Languages())
          for (const Text text : {Text::LanguageName, Text::CopyOffset, Text::MapUnknown})
            texts.push_back(Messages(language).Msg(text));
      });
  }
  // A table that was read twice would have its texts in two places, one of them freed.
  const auto isInOnePlace = [](std::string_view a, std::string_view b) { return a.data() == b.data(); };
  for (const std::vector<std::string_view>& texts : read)
    EXPECT_TRUE(std::ranges::equal(texts, read[0], isInOnePlace));
  EXPECT_EQ(read[0][0], "Русский");
  EXPECT_EQ(read[0][5], "unknown");
}

}  // namespace
}  // namespace tarvelo
