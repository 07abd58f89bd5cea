// Arbitrary command-line arguments, separated by zeros. The target runs in a folder of its own with a few
// small files; no argument can name a place outside it.
#include <sstream>

#include "cli/commands.h"
#include "fuzz/target.h"
#include "tests/images.h"
#include "tests/temporary_folder.h"

namespace tarvelo::fuzz {
namespace {

// 2 KiB with an EEPROM block, two pictures and the fewest ringtones that make a table.
std::vector<std::uint8_t> Dump() {
  ImageBuilder image(0x800);
  PutBlock(image, 0, 0xFC, 67, 0x10, 4);
  PutPicture(image, PutPicture(image, 0x100, 4, 4, 1, 0x200), 8, 8, 1, 0x210);
  image.Fill(0x200, 0x20, 0x5A);
  for (std::uint8_t number = 0; number < 6; ++number)
    PutRingtone(image, 0x300 + 8u * number, number, 2, 0x400);
  image.DWord(image.DWord(0x400, 0x006401B8), 0x00640000 | 0xFFFC);
  return std::move(image).Take();
}

// The working folder of the command line, made anew for each call: it lies inside the process's own folder,
// so that ".." leads nowhere else.
class Desk {
 public:
  int Run(const std::vector<std::string>& arguments, std::ostream& out, std::ostream& err) const {
    static const std::vector<std::uint8_t> dump = Dump();
    std::filesystem::create_directories(folder_);
    scratch_.Write("desk/dump", dump);
    scratch_.Write("desk/book", std::string("\x34\x12\101BC\0DE", 8));
    scratch_.Write("desk/empty", std::string());
    scratch_.Write("desk/patch", std::string("0: FC01 0203\n800: 00 01\n10: 01 02\nrubbish\n"));
    std::filesystem::current_path(folder_);
    const int status = cli::Run(arguments, out, err);
    std::filesystem::current_path(home_);
    for (const auto& entry : std::filesystem::directory_iterator(scratch_.Path()))
      std::filesystem::remove_all(entry.path());
    return status;
  }

 private:
  TemporaryFolder scratch_;
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

void Run(Bytes data) {
  static const Desk desk;
  const std::vector<std::string> arguments = Split(data);
  if (MakesDemonstration(arguments)) return;
  std::ostringstream out, err;
  const int status = desk.Run(arguments, out, err);
  Check(status >= cli::done && status <= cli::scanFault, "the exit status is one of five");
  const std::string printed = out.str();
  Check(IsUtf8(printed), "what is printed is UTF-8");
  const std::string said = err.str();
  if (status >= cli::wrongArguments) Check(said.ends_with('\n'), "a failure says what is wrong");
}

}  // namespace tarvelo::fuzz
