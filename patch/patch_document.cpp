#include "patch/patch_document.h"

#include <algorithm>
#include <charconv>

#include "text/unicode.h"

namespace tarvelo {
namespace {

constexpr std::string_view lineBreak = "\r\n";
constexpr std::string_view blanks = " \t";
constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
constexpr std::size_t longestAddress = 8;

std::string Separator() { return std::string(80, '*'); }

// If the text begins with `start`, removes it and returns true.
bool Take(std::string_view& text, std::string_view start) {
  if (!text.starts_with(start)) return false;
  text.remove_prefix(start.size());
  return true;
}

void SkipBlanks(std::string_view& text) {
  text.remove_prefix(std::min(text.find_first_not_of(blanks), text.size()));
}

std::string_view TakeDigits(std::string_view& text) {
  const std::size_t count = std::min(text.find_first_not_of("0123456789ABCDEFabcdef"), text.size());
  const std::string_view digits = text.substr(0, count);
  text.remove_prefix(count);
  return digits;
}

std::vector<std::uint8_t> BytesOf(std::string_view digits) {
  std::vector<std::uint8_t> bytes(digits.size() / 2);
  for (std::size_t i = 0; i < bytes.size(); ++i)
    std::from_chars(digits.data() + 2 * i, digits.data() + 2 * i + 2, bytes[i], 16);
  return bytes;
}

bool ReadChange(std::string_view text, PatchLine& change) {
  const std::string_view address = TakeDigits(text);
  SkipBlanks(text);
  if (address.empty() || address.size() > longestAddress || !Take(text, ":")) return false;
  SkipBlanks(text);
  const std::string_view oldBytes = TakeDigits(text);
  SkipBlanks(text);
  const std::string_view newBytes = TakeDigits(text);
  SkipBlanks(text);
  if (oldBytes.empty() || oldBytes.size() % 2 != 0 || oldBytes.size() != newBytes.size()) return false;
  if (!text.empty() && text.front() != ';') return false;
  std::from_chars(address.data(), address.data() + address.size(), change.address, 16);
  change.oldBytes = BytesOf(oldBytes);
  change.newBytes = BytesOf(newBytes);
  return true;
}

// Removes the first line from a text and returns it without its end.
std::string_view TakeLine(std::string_view& text) {
  const std::size_t end = std::min(text.find_first_of("\r\n"), text.size());
  const std::string_view line = text.substr(0, end);
  text.remove_prefix(end);
  text.remove_prefix(text.starts_with("\r\n") ? 2 : std::min<std::size_t>(1, text.size()));
  return line;
}

}  // namespace

std::string WithCrLf(std::string_view text) {
  std::string result;
  result.reserve(text.size() + text.size() / 16);
  while (!text.empty()) {
    const std::size_t end = std::min(text.find_first_of(lineBreak), text.size());
    result += text.substr(0, end);
    text.remove_prefix(end);
    if (Take(text, "\r\n") || Take(text, "\n") || Take(text, "\r")) result += lineBreak;
  }
  return result;
}

std::string PatchBlock(std::string_view name, std::string_view body) {
  std::string block = "\n;";
  block.append(InOneLine(name)).append("\n\n").append(body).append("\n\n;").append(Separator()).append("\n");
  return WithCrLf(block);
}

std::string InformationBlock(std::string_view name, std::string_view body) {
  std::string block = "\n";
  return block.append(name).append("\n\n").append(body).append("\n\n").append(Separator()).append("\n");
}

std::string PatchFile(std::string_view phone, std::string_view document) {
  std::string file = ";";
  file.append(InOneLine(phone)).append(" - Patch made by \"Tarvelo\", explorer of fullflash images\n");
  file.append(";Lines: address in the fullflash, old bytes, new bytes\n\n");
  file.append(";").append(Separator()).append("\n").append(document).append("\n");
  return WithCrLf(file);
}

PatchLine ReadPatchLine(std::string_view line) {
  PatchLine read;
  while (Take(line, byteOrderMark)) {
  }
  SkipBlanks(line);
  if (line.empty()) return read;
  if (line.front() == ';')
    read.kind = PatchLine::Kind::Comment;
  else
    read.kind = ReadChange(line, read) ? PatchLine::Kind::Change : PatchLine::Kind::Invalid;
  return read;
}

std::string CommentOf(std::string_view line) {
  const std::size_t comment = line.find(';');
  return comment == line.npos ? std::string() : " " + std::string(line.substr(comment));
}

PatchLineReader::PatchLineReader(std::string_view text) : rest_(text) {
  constexpr char endOfFile = 0x1A;  // of old editors
  Take(rest_, byteOrderMark);
  while (rest_.ends_with(endOfFile)) rest_.remove_suffix(1);
}

std::optional<std::string_view> PatchLineReader::Next() {
  if (rest_.empty()) return {};
  return TakeLine(rest_);
}

void EachPatchLine(std::string_view text,
                   const std::function<void(std::size_t number, std::string_view line)>& take) {
  PatchLineReader lines(text);
  std::size_t number = 0;
  while (const auto line = lines.Next()) take(++number, *line);
}

}  // namespace tarvelo
