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

std::string_view Trim(std::string_view text) {
  constexpr char blanks[] = " \t";
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

struct Line {
  std::size_t begin, next;  // where it stands, and the one behind it
  std::string_view text;    // without its end
};

// Calls `see` with each line; ends where it returns false. A lone carriage return ends one too.
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

// The keys of a section, in their order. Comments have no key.
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

// The key of a name among others: of several the first counts, for reading and for writing.
std::optional<Entry> FindKey(const std::vector<Entry>& entries, std::string_view key) {
  const auto found =
      std::ranges::find_if(entries, [&](const Entry& entry) { return SameName(entry.name, key); });
  return found == entries.end() ? std::nullopt : std::optional(*found);
}

// Sets one key in the text of a settings file; every other byte stays as it is.
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
  const std::filesystem::path& real = error ? file : target;  // what a link leads to
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
