// Arbitrary command-line arguments, separated by zeros. The target runs in a folder of its own with a few
// small files; no argument can name a place outside it.
#include <sstream>

#include "cli/commands.h"
#include "fuzz/scratch.h"
#include "fuzz/target.h"
#include "tests/image_builder.h"
#include "text/unicode.h"

namespace {

using namespace tarvelo;
using namespace tarvelo::fuzz;

// 2 KiB with an EEPROM block, two pictures and the fewest ringtones that make a table.
std::vector<std::uint8_t> Dump() {
  ImageBuilder image(0x800);
  image.Data(0, std::vector<std::uint8_t>{0xFC, 1, 4, 0, 0x10, 0xF8, 0xFF, 0, 0x43, 0, 0, 0xFC});
  const auto entry = [&](std::size_t at, std::vector<std::uint8_t> head, std::size_t target) {
    return image.Pointer(image.Data(at, head), target);
  };
  entry(entry(0x100, {4, 4, 1, 0}, 0x200), {8, 8, 1, 0}, 0x210);
  image.Fill(0x200, 0x20, 0x5A);
  for (std::uint8_t number = 0; number < 6; ++number) entry(0x300 + 8u * number, {number, 0, 2, 0}, 0x400);
  image.DWord(image.DWord(0x400, 0x006401B8), 0x00640000 | 0xFFFC);
  return std::move(image).Take();
}

// The working folder of the command line: it lies inside the process's own folder, so that ".." leads nowhere
// else.
class Desk {
 public:
  Desk() { Fill(); }

  int Run(const std::vector<std::string>& arguments, std::ostream& out, std::ostream& err) const {
    std::filesystem::current_path(folder_);
    const int status = cli::Run(arguments, out, err);
    std::filesystem::current_path(home_);
    Clear();
    // These commands can overwrite any file here.
    if (Names(arguments, "diff") || Names(arguments, "apply")) Fill();
    return status;
  }

 private:
  void Fill() const {
    std::filesystem::create_directories(folder_);
    static const std::vector<std::uint8_t> dump = Dump();
    WriteAll(folder_ / "dump", TextOf(dump));
    WriteAll(folder_ / "book", {"\x34\x12"
                                "ABC\0DE",
                                8});
    WriteAll(folder_ / "empty", "");
    WriteAll(folder_ / "patch", "0: FC01 0203\n800: 00 01\n10: 01 02\nrubbish\n");
  }

  static bool Names(const std::vector<std::string>& arguments, const char* command) {
    return std::ranges::find(arguments, command) != arguments.end();
  }

  // Removes the files that a command wrote.
  void Clear() const {
    for (const auto& folder : {folder_, scratch_.Path()})
      for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        const std::filesystem::path name = entry.path().filename();
        const bool isOurs =
            name == "dump" || name == "book" || name == "empty" || name == "patch" || name == "desk";
        if (!isOurs) std::filesystem::remove_all(entry.path());
      }
  }

  Scratch scratch_;
  std::filesystem::path folder_ = scratch_.Path() / "desk";
  std::filesystem::path home_ = std::filesystem::current_path();
};

std::vector<std::string> Split(Bytes bytes) {
  std::vector<std::string> arguments;
  for (Input input(bytes); !input.Rest().empty();) {
    arguments.push_back(input.Text());
    std::erase_if(arguments.back(), [](char c) { return c == '/' || c == '\\' || c == ':'; });
  }
  return arguments;
}

// Skipped here: building the demonstration takes a second each time, and it is tested elsewhere.
bool MakesDemonstration(const std::vector<std::string>& arguments) {
  const auto isFile = [](const std::string& argument) { return !argument.starts_with('-'); };
  return std::ranges::find(arguments, "demo") != arguments.end() &&
         std::ranges::count_if(arguments, isFile) > 1;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const Desk desk;
  const std::vector<std::string> arguments = Split({data, size});
  if (MakesDemonstration(arguments)) return 0;
  std::ostringstream out, err;
  const int status = desk.Run(arguments, out, err);
  Check(status >= cli::done && status <= cli::scanFault, "the exit status is one of five");
  const std::string printed = out.str();
  Check(ToUtf8(ToUtf16(printed)) == printed, "what is printed is UTF-8");
  const std::string said = err.str();
  if (status >= cli::wrongArguments) Check(said.ends_with('\n'), "a failure says what is wrong");
  return 0;
}
