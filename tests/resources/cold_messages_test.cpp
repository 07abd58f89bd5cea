// The first use of the messages in a process, by many threads at once. Nothing else may use them here: these
// tests have a program of their own.
#include <gtest/gtest.h>

#include <array>
#include <latch>
#include <thread>
#include <vector>

#include "resources/messages.h"
#include "resources/texts.h"

namespace tarvelo {
namespace {

TEST(ColdMessages, AreReadByManyThreadsAtOnce) {
  constexpr std::size_t count = 16;
  std::array<std::vector<std::string>, count> read;
  {
    std::latch start(count);
    std::vector<std::jthread> threads;
    for (std::vector<std::string>& texts : read)
      threads.emplace_back([&start, &texts] {
        start.arrive_and_wait();
        for (const Language& language : Languages())
          for (const Text text : {Text::LanguageName, Text::CopyOffset, Text::MapUnknown})
            texts.emplace_back(Messages(language).Msg(text));
      });
  }
  for (const std::vector<std::string>& texts : read) EXPECT_EQ(texts, read[0]);
  EXPECT_EQ(read[0][0], "Русский");
  EXPECT_EQ(read[0][5], "unknown");
}

}  // namespace
}  // namespace tarvelo
