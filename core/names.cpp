#include "core/names.h"

#include <algorithm>
#include <charconv>
#include <utility>

#include "core/file.h"
#include "core/notation.h"
#include "core/trimmed.h"
#include "text/unicode.h"

namespace tarvelo {
namespace {

constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";

std::optional<std::uint32_t> ReadAddress(std::string_view text) {
  text = Trimmed(text);
  if (text.starts_with("0x") || text.starts_with("0X")) text.remove_prefix(2);
  std::uint32_t address = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), address, 16);
  if (error != std::errc() || end != text.data() + text.size()) return {};
  return address;
}

// A line without its end; empty if both texts are.
std::string LineOf(const Name& name) {
  const std::string text(Trimmed(InOneLine(name.name)));
  const std::string comment(Trimmed(InOneLine(name.comment)));
  if (text.empty() && comment.empty()) return {};
  const std::string line = WholeHex(name.address) + '\t' + text;
  return comment.empty() ? line : line + '\t' + comment;
}

bool IsForReader(std::string_view line) { return Trimmed(line).empty() || line.starts_with('#'); }

std::string RemarkStart(std::string_view key) { return "# " + std::string(key) + ": "; }

}  // namespace

Names::Names(std::string text) : text_(std::move(text)) { Read(); }

std::size_t Names::Start() const { return text_.starts_with(byteOrderMark) ? byteOrderMark.size() : 0; }

std::string_view Names::LineEnd() const {
  return text_.empty() || text_.find("\r\n") != text_.npos ? "\r\n" : "\n";
}

void Names::Read() {
  entries_.clear();
  badLines_.clear();
  std::vector<std::pair<Entry, std::size_t>> found;  // with the numbers of their lines
  std::vector<std::size_t> bad;
  std::size_t number = 0;
  std::size_t start = Start();
  while (start < text_.size()) {
    ++number;
    const std::size_t feed = std::min(text_.find('\n', start), text_.size());
    const std::size_t end = feed > start && text_[feed - 1] == '\r' ? feed - 1 : feed;
    if (const auto entry = ReadLine(start, end))
      found.emplace_back(*entry, number);
    else if (!IsForReader(std::string_view(text_).substr(start, end - start)))
      bad.push_back(number);
    start = feed + 1;
  }
  std::ranges::stable_sort(found, {}, [](const auto& line) { return line.first.address; });
  for (const auto& [entry, line] : found) {
    if (!entries_.empty() && entries_.back().address == entry.address)
      bad.push_back(line);
    else
      entries_.push_back(entry);
  }
  std::ranges::sort(bad);
  badCount_ = bad.size();
  bad.resize(std::min(bad.size(), badLinesKept));
  badLines_ = std::move(bad);
}

std::optional<Names::Entry> Names::ReadLine(std::size_t start, std::size_t end) const {
  const std::string_view line = std::string_view(text_).substr(start, end - start);
  const std::size_t tab = line.find('\t');
  if (tab == line.npos || line.starts_with('#')) return {};
  const auto address = ReadAddress(line.substr(0, tab));
  const std::size_t second = std::min(line.find('\t', tab + 1), line.size());
  const std::size_t comment = std::min(second + 1, line.size());
  const bool isEmpty = second == tab + 1 && comment == line.size();
  if (!address || isEmpty) return {};
  const auto at = [start](std::size_t position) { return static_cast<std::uint32_t>(start + position); };
  return Entry{*address,    at(0),          at(tab + 1), static_cast<std::uint32_t>(second - tab - 1),
               at(comment), at(line.size())};
}

Name Names::operator[](std::size_t i) const {
  const Entry& entry = entries_[i];
  const std::string_view text = text_;
  return {entry.address, text.substr(entry.name, entry.nameSize),
          text.substr(entry.comment, entry.end - entry.comment)};
}

std::size_t Names::From(std::uint32_t address) const {
  return static_cast<std::size_t>(std::ranges::lower_bound(entries_, address, {}, &Entry::address) -
                                  entries_.begin());
}

std::optional<Name> Names::At(std::uint32_t address) const {
  const std::size_t i = From(address);
  if (i == Count() || entries_[i].address != address) return {};
  return (*this)[i];
}

std::string_view Names::NameAt(std::uint32_t address) const {
  const auto found = At(address);
  return found ? found->name : std::string_view();
}

std::optional<std::uint32_t> Names::Find(std::string_view name) const {
  if (name.empty()) return {};
  const std::string upper = ToUpper(name);
  for (std::size_t i = 0; i < Count(); ++i) {
    const Name known = (*this)[i];
    if (known.name.size() == upper.size() && ToUpper(known.name) == upper) return known.address;
  }
  return {};
}

void Names::Set(std::uint32_t address, std::string_view name, std::string_view comment) {
  const Name one{address, name, comment};
  Set({&one, 1});
}

void Names::Set(std::span<const Name> names) {
  const std::string_view lineEnd = LineEnd();
  std::vector<std::pair<const Entry*, std::string>> replaced;
  std::string added;
  for (const Name& name : names) {
    std::string line = LineOf(name);
    const std::size_t i = From(name.address);
    if (i < Count() && entries_[i].address == name.address)
      replaced.emplace_back(&entries_[i], std::move(line));
    else if (!line.empty())
      added.append(line).append(lineEnd);
  }
  std::ranges::sort(replaced, {}, [](const auto& each) { return each.first->line; });
  std::string text;
  std::size_t done = 0;
  for (const auto& [old, line] : replaced) {
    text.append(text_, done, old->line - done) += line;
    done = old->end;
    if (line.empty()) done = std::min(text_.find('\n', done), text_.size() - 1) + 1;
  }
  text.append(text_, done);
  if (!added.empty() && text.ends_with('\r'))
    text += '\n';  // half of a line end
  else if (!added.empty() && !text.empty() && !text.ends_with('\n'))
    text += lineEnd;
  text_ = text + added;
  Read();
}

std::size_t Names::FindRemark(std::string_view key) const {
  const std::string start = RemarkStart(key);
  std::size_t at = text_.find(start, Start());
  while (at != text_.npos && at != Start() && text_[at - 1] != '\n') at = text_.find(start, at + 1);
  return at;
}

std::string_view Names::Remark(std::string_view key) const {
  const std::size_t at = FindRemark(key);
  if (at == text_.npos) return {};
  const std::string_view line = std::string_view(text_).substr(at, text_.find('\n', at) - at);
  return Trimmed(line.substr(RemarkStart(key).size()));
}

void Names::SetRemark(std::string_view key, std::string_view value) {
  std::string line;
  if (!value.empty()) line.append(RemarkStart(key)).append(value).append(LineEnd());
  const std::size_t at = FindRemark(key);
  if (at == text_.npos)
    text_.insert(Start(), line);
  else
    text_.replace(at, std::min(text_.find('\n', at), text_.size() - 1) + 1 - at, line);
  Read();
}

std::filesystem::path NamesFile(const std::filesystem::path& dump) {
  std::filesystem::path file = dump;
  return file.replace_extension() += Names::fileEnding;
}

Names ReadNames(const std::filesystem::path& dump) {
  const std::filesystem::path file = NamesFile(dump);
  if (!FileExist(file)) return {};
  NoProgress progress;
  const FileBytes bytes = ReadFile(file, Names::fileLimit, progress);
  return Names(std::string(reinterpret_cast<const char*>(bytes.data.get()), bytes.size));
}

}  // namespace tarvelo
