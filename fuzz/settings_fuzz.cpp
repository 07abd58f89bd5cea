// Arbitrary bytes as a settings file: reads it, then writes one key, which must leave all other lines
// unchanged.
#include "fuzz/target.h"
#include "shell/platform/ini.h"
#include "tests/temporary_folder.h"
#include "text/unicode.h"

namespace tarvelo::fuzz {
namespace {

struct Setting {
  const char* section;
  const char* key;
};

constexpr Setting settings[] = {
    {"General", "Language"}, {"History", "File1"}, {"Window", "Left"}, {"A", "k"}};

// Lines with their line breaks; a last line without one gets that of the others.
std::vector<std::string> Lines(std::string text) {
  if (!text.empty() && !text.ends_with('\n')) text += text.find("\r\n") != text.npos ? "\r\n" : "\n";
  std::vector<std::string> lines;
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t end = text.find('\n', at) + 1;
    lines.push_back(text.substr(at, end - at));
    at = end;
  }
  return lines;
}

// At most one line may change and at most two may be new, all in one place.
void CheckOtherLines(const std::vector<std::string>& before, const std::vector<std::string>& after) {
  const auto [b, a] = std::mismatch(before.begin(), before.end(), after.begin(), after.end());
  const auto [bEnd, aEnd] =
      std::mismatch(before.rbegin(), std::reverse_iterator(b), after.rbegin(), std::reverse_iterator(a));
  Check(bEnd.base() - b <= 1 && aEnd.base() - a <= 2, "a write leaves the other lines alone");
}

std::string Trim(const std::string& text) {
  const auto first = text.find_first_not_of(' ');
  if (first == text.npos) return {};
  return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

void CheckWritten(const std::filesystem::path& file, const Setting& setting, const std::string& value) {
  const std::string read = platform::ReadIni(file, setting.section, setting.key);
  Check(read == Trim(value).substr(0, 255), "a key that was written reads back");
  const auto pairs = platform::ReadIniSection(file, setting.section);
  Check(std::ranges::any_of(pairs,
                            [&](const auto& pair) {
                              return ToUpper(pair.first) == ToUpper(setting.key) &&
                                     pair.second == Trim(value);
                            }),
        "a key that was written is in its section");
}

}  // namespace

// Byte 0 chooses the key. Then its value, a zero, and the file.
void Run(Bytes data) {
  static const TemporaryFolder folder;
  Input input(data);
  const Setting& setting = settings[input.Byte() % std::size(settings)];
  std::string value = input.Text();
  std::ranges::replace_if(
      value, [](unsigned char c) { return c < 0x20; }, ' ');  // as the program does
  const std::string before(TextOf(input.Rest()));
  const std::filesystem::path file = folder.Write("settings.ini", before);
  (void)platform::ReadIni(file, setting.section, setting.key);
  (void)platform::ReadIniSection(file, setting.section);

  platform::WriteIni(file, setting.section, setting.key, value);
  const std::string after = ReadAll(file);
  if (before.find('\0') != before.npos) {
    Check(after == before, "what is no text is left alone");
    return;
  }
  CheckOtherLines(Lines(before), Lines(after));
  CheckWritten(file, setting, value);
  platform::WriteIni(file, setting.section, setting.key, value);
  Check(ReadAll(file) == after, "a second write changes nothing");
}

}  // namespace tarvelo::fuzz
