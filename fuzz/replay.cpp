// Runs a target on files instead of under a fuzzer: each file named, and all in each folder named.
// Fails where there is none. Arguments with a dash in front are a fuzzer's and say nothing here.
#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <string>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

namespace fs = std::filesystem;

void Collect(const fs::path& path, std::vector<fs::path>& files) {
  if (!fs::is_directory(path)) {
    files.push_back(path);
    return;
  }
  for (const auto& entry : fs::recursive_directory_iterator(path))
    if (entry.is_regular_file()) files.push_back(entry.path());
}

bool Replay(const fs::path& file) {
  std::printf("%s\n", file.filename().string().c_str());
  std::fflush(stdout);  // it is the last line where the target ends the program
  std::ifstream stream(file, std::ios::binary);
  if (!stream) return false;
  const std::vector<char> read{std::istreambuf_iterator<char>(stream), {}};
  const auto data = std::make_unique<std::uint8_t[]>(read.size());  // a sanitizer sees one byte past it
  std::ranges::copy(read, data.get());
  LLVMFuzzerTestOneInput(data.get(), read.size());
  return true;
}

}  // namespace

int main(int argc, char** argv) {
  std::vector<fs::path> files;
  for (int i = 1; i < argc; ++i)
    if (argv[i][0] != '-') Collect(argv[i], files);
  std::ranges::sort(files);
  return !files.empty() && std::ranges::all_of(files, Replay) ? 0 : 1;
}
