#include "core/header_date.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <charconv>
#include <string_view>
#include <vector>

#include "core/byte_text.h"

namespace tarvelo {
namespace {

constexpr Offset headerPage = 0x100;
// The second header string and the model's name, 16 bytes each: never taken for a date.
constexpr Offset fieldsFirst = 0x60;
constexpr Offset fieldsEnd = 0x80;

using Parts = std::vector<std::string_view>;

// Splits a text at each run of one or more of the separators.
Parts Split(std::string_view text, std::string_view separators) {
  Parts parts;
  while (!text.empty()) {
    const auto end = std::min(text.find_first_of(separators), text.size());
    if (end > 0) parts.push_back(text.substr(0, end));
    text.remove_prefix(std::min(end + 1, text.size()));
  }
  return parts;
}

// A number of one to four digits, or -1.
int Number(std::string_view text) {
  int value = -1;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  return error == std::errc{} && end == text.data() + text.size() && text.size() <= 4 && value >= 0 ? value
                                                                                                    : -1;
}

bool IsDay(std::string_view text) { return text.size() <= 2 && Number(text) >= 1 && Number(text) <= 31; }

bool IsYear(std::string_view text) {
  const int year = Number(text);
  return (text.size() == 2 && year >= 0) || (text.size() == 4 && year >= 1990 && year <= 2099);
}

bool IsMonth(std::string_view text) {
  static constexpr std::array<std::string_view, 12> names{"jan", "feb", "mar", "apr", "may", "jun",
                                                          "jul", "aug", "sep", "oct", "nov", "dec"};
  if (text.size() <= 2 && Number(text) >= 1 && Number(text) <= 12) return true;
  std::string lower(text);
  std::ranges::transform(lower, lower.begin(), [](unsigned char c) { return std::tolower(c); });
  return std::ranges::find(names, lower) != names.end();
}

bool IsDate(std::string_view text) {
  const Parts parts = Split(text, "./- ,");
  if (text.size() < 6 || parts.size() != 3) return false;
  return (IsDay(parts[0]) && IsMonth(parts[1]) && IsYear(parts[2])) ||  // 14.11.2002
         (IsMonth(parts[0]) && IsDay(parts[1]) && IsYear(parts[2])) ||  // Nov 14 2002
         (IsYear(parts[0]) && IsMonth(parts[1]) && IsDay(parts[2]));    // 2002-11-14
}

bool IsTime(std::string_view text) {
  const Parts parts = Split(text, ":");
  if (parts.size() < 2 || parts.size() > 3 || Number(parts[0]) > 23) return false;
  return std::ranges::all_of(parts, [](std::string_view part) {
    return part.size() <= 2 && Number(part) >= 0 && Number(part) <= 59;
  });
}

// The printable strings of the header's page, outside its named fields. A string that crosses the end of the
// page is left out, because a part of it could pass for a date.
std::vector<std::string> PageStrings(Bytes bytes, Offset header) {
  std::vector<std::string> strings(1);
  const Offset end = std::min(header + headerPage, static_cast<Offset>(bytes.size()));
  for (Offset p = header; p < end; ++p) {
    const std::uint8_t b = ByteAt(bytes, p);
    const bool inField = p >= header + fieldsFirst && p < header + fieldsEnd;
    if (IsPrintable(b) && !inField)
      strings.back() += static_cast<char>(b);
    else if (!strings.back().empty())
      strings.emplace_back();
  }
  strings.pop_back();  // unterminated or empty
  return strings;
}

}  // namespace

std::string HeaderDate(Bytes bytes, Offset header) {
  const std::vector<std::string> strings = PageStrings(bytes, header);
  const auto date = std::ranges::find_if(strings, IsDate);
  if (date == strings.end()) return {};
  const auto time = std::ranges::find_if(strings, IsTime);
  return time == strings.end() ? *date : *date + " / " + *time;
}

}  // namespace tarvelo
