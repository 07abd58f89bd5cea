// The summaries of many files, made by several threads.
#include <gtest/gtest.h>

#include "cli/call.h"
#include "core/file.h"
#include "image_builder.h"
#include "temporary_folder.h"

namespace tarvelo::cli {
namespace {

TEST(InfoJobs, KeepTheOrder) {
  const TemporaryFolder folder;
  std::vector<std::string> files{"info"};
  for (std::uint8_t i = 0; i < 40; ++i) {
    const std::size_t size = 0x80000 + 0x1000u * (i * 7 % 40);  // some take longer
    files.push_back(i % 9 == 5 ? PathText(folder / "missing.bin")
                               : PathText(folder.Write(std::to_string(i), ImageBuilder(size).Take())));
  }
  std::string out, err;
  for (std::size_t i = 1; i < files.size(); ++i) {
    const Result one = Call({"info", files[i]});
    out += (out.empty() || one.out.empty() ? "" : "\n") + one.out;
    err += one.err;
  }
  for (const char* jobs : {"1", "3", "100"}) {
    std::vector<std::string> arguments = files;
    arguments.insert(arguments.begin() + 1, {"--jobs", jobs});
    const Result all = Call(arguments);
    EXPECT_EQ(all.out, out) << jobs;
    EXPECT_EQ(all.err, err) << jobs;
    EXPECT_EQ(all.status, fileTrouble) << jobs;
  }
}

}  // namespace
}  // namespace tarvelo::cli
