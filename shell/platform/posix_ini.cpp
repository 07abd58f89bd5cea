#include <SimpleIni.h>

#include <algorithm>
#include <optional>

#include "core/file.h"
#include "shell/platform/ini.h"
#include "text/unicode.h"

namespace tarvelo::platform {
namespace {

constexpr std::size_t longestValue = 255;
constexpr std::uint64_t longestFile = 1 << 20;  // a larger one is no settings file of ours

// The file's bytes, none where there is no file; nothing where it cannot be read or is no text of one
// byte a character, so that nobody writes over it.
std::optional<std::string> Load(const std::filesystem::path& file) try {
  if (!FileExist(file)) return std::string();
  NoProgress progress;
  const FileBytes bytes = ReadFile(file, longestFile, progress);
  std::string text(reinterpret_cast<const char*>(bytes.data.get()), bytes.size);
  if (text.find('\0') != text.npos) return {};
  return text;
} catch (const FileError&) {
  return {};
}

// Reads nothing out of what cannot be loaded.
void Parse(const std::filesystem::path& file, CSimpleIniA& ini) {
  if (const auto text = Load(file)) ini.LoadData(*text);
}

std::string_view Trim(std::string_view text) {
  constexpr char blanks[] = " \t\r";
  const auto first = text.find_first_not_of(blanks);
  if (first == text.npos) return {};
  return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

bool SameName(std::string_view a, std::string_view b) { return ToUpper(Trim(a)) == ToUpper(Trim(b)); }

// Where a section's lines stand in the text: behind its title up to the next one, without blank lines
// at the end. Nothing where there is no such section.
struct Span {
  std::size_t begin, end;
};

// Calls `see` with the start of each line and the line; ends where it returns false.
template <typename See>
void EachLine(std::string_view text, std::size_t from, See see) {
  while (from < text.size()) {
    const std::size_t end = std::min(text.find('\n', from), text.size());
    if (!see(from, text.substr(from, end - from))) return;
    from = end + 1;
  }
}

std::optional<Span> FindSection(std::string_view text, std::string_view section) {
  std::optional<Span> found;
  EachLine(text, 0, [&](std::size_t at, std::string_view line) {
    const std::string_view trimmed = Trim(line);
    const bool isTitle = trimmed.starts_with('[') && trimmed.find(']') != trimmed.npos;
    if (found && isTitle) return false;
    const std::size_t next = std::min(at + line.size() + 1, text.size());
    if (isTitle && SameName(trimmed.substr(1, trimmed.find(']') - 1), section))
      found = Span{next, next};
    else if (found && !trimmed.empty())
      found->end = next;
    return true;
  });
  return found;
}

// Sets one key in the text of a settings file; every other byte stays as it is.
std::string WithKey(std::string text, std::string_view section, std::string_view key,
                    std::string_view value) {
  const std::string lineEnd = text.find("\r\n") != text.npos ? "\r\n" : "\n";
  const std::string entry = std::string(key).append("=").append(value);
  if (!text.empty() && !text.ends_with('\n')) text += lineEnd;
  const auto lines = FindSection(text, section);
  if (!lines) return text.append("[").append(section).append("]").append(lineEnd + entry + lineEnd);
  std::optional<Span> old;
  EachLine(std::string_view(text).substr(0, lines->end), lines->begin,
           [&](std::size_t at, std::string_view line) {
             const std::size_t equals = line.find('=');
             if (equals != line.npos && SameName(line.substr(0, equals), key))
               old = Span{at, at + line.size() - (line.ends_with('\r') ? 1 : 0)};
             return !old;
           });
  if (old) return text.replace(old->begin, old->end - old->begin, entry);
  return text.insert(lines->end, entry + lineEnd);
}

// Written beside and put in place whole: a full disk leaves the old settings.
void Replace(const std::filesystem::path& file, const std::string& text) {
  std::filesystem::path fresh = file;
  fresh += ".new";
  try {
    WriteFile(fresh, text);
    std::filesystem::rename(fresh, file);
  } catch (const std::exception&) {
    std::error_code ignored;
    std::filesystem::remove(fresh, ignored);
  }
}

bool IsWriteProtected(const std::filesystem::path& file) {
  std::error_code error;
  const auto permissions = std::filesystem::status(file, error).permissions();
  return !error && FileExist(file) &&
         (permissions & std::filesystem::perms::owner_write) == std::filesystem::perms::none;
}

}  // namespace

std::string ReadIni(const std::filesystem::path& file, const std::string& section, const std::string& key) {
  CSimpleIniA ini(true);
  Parse(file, ini);
  return std::string(ini.GetValue(section.c_str(), key.c_str(), "")).substr(0, longestValue);
}

void WriteIni(const std::filesystem::path& file, const std::string& section, const std::string& key,
              const std::string& value) {
  std::error_code error;
  const std::filesystem::path target = std::filesystem::weakly_canonical(file, error);
  const std::filesystem::path& real = error ? file : target;  // what a link leads to
  const std::optional<std::string> text = Load(real);
  if (text && !IsWriteProtected(real)) Replace(real, WithKey(*text, section, key, value));
}

std::vector<std::pair<std::string, std::string>> ReadIniSection(const std::filesystem::path& file,
                                                                const std::string& section) {
  std::vector<std::pair<std::string, std::string>> pairs;
  CSimpleIniA ini(true);
  Parse(file, ini);
  CSimpleIniA::TNamesDepend keys;
  ini.GetAllKeys(section.c_str(), keys);
  keys.sort(CSimpleIniA::Entry::LoadOrder());
  for (const CSimpleIniA::Entry& key : keys)
    pairs.emplace_back(key.pItem, ini.GetValue(section.c_str(), key.pItem, ""));
  return pairs;
}

}  // namespace tarvelo::platform
