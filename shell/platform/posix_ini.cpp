#include <algorithm>
#include <optional>

#include "core/file.h"
#include "shell/platform/ini.h"
#include "text/unicode.h"

namespace tarvelo::platform {
namespace {

constexpr std::size_t longestValue = 255;
constexpr std::uint64_t longestFile = 1 << 20;  // a larger file is not one of our settings files

// The file's bytes, empty if there is no file. Nothing if the file cannot be read or is not a text of single
// bytes, so that it is never overwritten.
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

std::string_view Trim(std::string_view text) {
  constexpr char blanks[] = " \t";
  const auto first = text.find_first_not_of(blanks);
  if (first == text.npos) return {};
  return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

bool SameName(std::string_view a, std::string_view b) { return ToUpper(Trim(a)) == ToUpper(Trim(b)); }

// The position of a section's lines in the text: from after its title up to the next title, without trailing
// blank lines.
struct Span {
  std::size_t begin, end;
};

struct Line {
  std::size_t begin, next;  // where it starts, and where the next one does
  std::string_view text;    // without its line break
};

// Calls `see` with each line until it returns false. A lone carriage return ends a line too.
template <typename See>
void EachLine(std::string_view text, std::size_t from, See see) {
  while (from < text.size()) {
    const std::size_t end = std::min(text.find_first_of("\r\n", from), text.size());
    const std::size_t length = text.substr(end).starts_with("\r\n") ? 2 : 1;
    const Line line{from, std::min(end + length, text.size()), text.substr(from, end - from)};
    if (!see(line)) return;
    from = line.next;
  }
}

std::optional<Span> FindSection(std::string_view text, std::string_view section) {
  constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
  const std::size_t start = text.starts_with(byteOrderMark) ? byteOrderMark.size() : 0;
  std::optional<Span> found;
  EachLine(text, start, [&](const Line& line) {
    const std::string_view trimmed = Trim(line.text);
    const bool isTitle = trimmed.starts_with('[') && trimmed.find(']') != trimmed.npos;
    if (found && isTitle) return false;
    if (isTitle && SameName(trimmed.substr(1, trimmed.find(']') - 1), section))
      found = Span{line.next, line.next};
    else if (found && !trimmed.empty())
      found->end = line.next;
    return true;
  });
  return found;
}

struct Entry {
  Span line;
  std::string_view name, value;
};

// The keys of a section in order. A comment is not a key.
std::vector<Entry> EntriesOf(std::string_view text, const Span& lines) {
  std::vector<Entry> entries;
  EachLine(text.substr(0, lines.end), lines.begin, [&](const Line& line) {
    const std::size_t equals = std::min(line.text.find('='), line.text.size());
    const std::string_view name = Trim(line.text.substr(0, equals));
    const bool isKey = equals < line.text.size() && !name.starts_with(';') && !name.starts_with('#');
    const Span place{line.begin, line.begin + line.text.size()};
    if (isKey) entries.push_back({place, name, Trim(line.text.substr(equals + 1))});
    return true;
  });
  return entries;
}

// Finds a key by name. If it occurs several times, the first one counts, for reading and for writing.
std::optional<Entry> FindKey(const std::vector<Entry>& entries, std::string_view key) {
  const auto found =
      std::ranges::find_if(entries, [&](const Entry& entry) { return SameName(entry.name, key); });
  return found == entries.end() ? std::nullopt : std::optional(*found);
}

// Sets one key in the text of a settings file; leaves every other byte unchanged.
std::string WithKey(std::string text, std::string_view section, std::string_view key,
                    std::string_view value) {
  const std::string lineEnd = text.find("\r\n") != text.npos ? "\r\n" : "\n";
  const std::string entry = std::string(key).append("=").append(value);
  if (!text.empty() && !text.ends_with('\n')) text += lineEnd;
  const auto lines = FindSection(text, section);
  if (!lines) return text.append("[").append(section).append("]").append(lineEnd + entry + lineEnd);
  if (const auto old = FindKey(EntriesOf(text, *lines), key))
    return text.replace(old->line.begin, old->line.end - old->line.begin, entry);
  return text.insert(lines->end, entry + lineEnd);
}

bool IsWriteProtected(const std::filesystem::path& file) {
  std::error_code error;
  const auto permissions = std::filesystem::status(file, error).permissions();
  return !error && FileExist(file) &&
         (permissions & std::filesystem::perms::owner_write) == std::filesystem::perms::none;
}

}  // namespace

std::string ReadIni(const std::filesystem::path& file, const std::string& section, const std::string& key) {
  const std::string text = Load(file).value_or("");
  const auto lines = FindSection(text, section);
  const auto entry = lines ? FindKey(EntriesOf(text, *lines), key) : std::nullopt;
  return entry ? std::string(entry->value.substr(0, longestValue)) : std::string();
}

void WriteIni(const std::filesystem::path& file, const std::string& section, const std::string& key,
              const std::string& value) {
  std::error_code error;
  const std::filesystem::path target = std::filesystem::weakly_canonical(file, error);
  const std::filesystem::path& real = error ? file : target;  // the target of a link
  const std::optional<std::string> text = Load(real);
  if (!text || IsWriteProtected(real)) return;
  try {
    ReplaceFile(real, WithKey(*text, section, key, value));
  } catch (const FileError&) {
    // The old settings stay.
  }
}

std::vector<std::pair<std::string, std::string>> ReadIniSection(const std::filesystem::path& file,
                                                                const std::string& section) {
  const std::string text = Load(file).value_or("");
  std::vector<std::pair<std::string, std::string>> pairs;
  if (const auto lines = FindSection(text, section))
    for (const Entry& entry : EntriesOf(text, *lines)) pairs.emplace_back(entry.name, entry.value);
  return pairs;
}

}  // namespace tarvelo::platform
