// Runs a target on files instead of under a fuzzer: on each named file, and on all files in each named
// folder. Fails if there is none. Ignores arguments that start with a dash, which are meant for a fuzzer.
#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
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
  std::fflush(stdout);  // the last line if the target ends the program
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
