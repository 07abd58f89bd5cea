#include "files/file_text.h"

#include <algorithm>
#include <limits>

#include "core/notation.h"
#include "files/volume_records.h"
#include "text/unicode.h"

namespace tarvelo {
namespace {

constexpr std::uint8_t utf8Mark = 0x1F;

FileHeader HeaderOf(const Fullflash& image, const FileList& list, const FileEntry& entry) {
  return ReadHeader(image.ff(), list.records[entry.header]).value_or(FileHeader{});
}

std::string Decoded(Bytes name) {
  std::u16string text;
  if (name.size() >= 2 && name[0] == utf8Mark)
    text = ToUtf16({reinterpret_cast<const char*>(name.data()) + 1, name.size() - 1});
  else
    for (const std::uint8_t byte : name) text += FromWindows1251(byte);
  return ToUtf8(text);
}

int DaysOf(int year, int month) {
  constexpr int days[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  const bool isLeap = year % 4 == 0 && (year % 100 != 0 || year % 400 == 0);
  return month == 2 && isLeap ? 29 : days[month - 1];
}

std::string TwoDigits(std::uint32_t value) { return PadZero(std::to_string(value), 2); }

}  // namespace

std::string NameOf(const Fullflash& image, const FileList& list, const FileEntry& entry) {
  if (entry.isRoot) return list.volumes[entry.volume].name;
  const Region name = HeaderOf(image, list, entry).name;
  if (name.size == 0) return "#" + std::to_string(entry.number);
  return Decoded(image.Region(name.offset, name.size));
}

std::string PathOf(const Fullflash& image, const FileList& list, const FileEntry& entry) {
  std::vector<const FileEntry*> way{&entry};
  while (way.back()->parent != noIndex) way.push_back(&list.entries[way.back()->parent]);
  std::string path;
  if (!way.back()->isRoot) path = list.volumes[entry.volume].name + "/";
  for (auto step = way.rbegin(); step != way.rend(); ++step) {
    path += NameOf(image, list, **step);
    if (step + 1 != way.rend() || (*step)->isFolder) path += '/';
  }
  return path;
}

std::vector<std::uint32_t> PathLengths(const Fullflash& image, const FileList& list) {
  constexpr Offset longestNumber = 6;     // "#65535"
  constexpr Offset bytesOfCharacter = 3;  // of a name's byte, in UTF-8
  constexpr Offset most = std::numeric_limits<std::int32_t>::max();
  std::vector<std::uint32_t> lengths;
  lengths.reserve(list.entries.size());
  for (const FileEntry& entry : list.entries) {
    const Offset name = HeaderOf(image, list, entry).name.size;
    Offset length = std::max(bytesOfCharacter * name, longestNumber) + 1;
    // Folders come before what they hold.
    length += entry.parent != noIndex ? Offset{lengths[entry.parent]}
                                      : std::ssize(list.volumes[entry.volume].name) + 1;
    lengths.push_back(static_cast<std::uint32_t>(std::min(length, most)));
  }
  return lengths;
}

std::string DateText(std::uint32_t time) {
  const std::uint32_t year = 1980 + (time >> 25), month = time >> 21 & 0xF, day = time >> 16 & 0x1F;
  const std::uint32_t hour = time >> 11 & 0x1F, minute = time >> 5 & 0x3F, second = (time & 0x1F) * 2;
  if (month < 1 || month > 12 || day < 1 || hour > 23 || minute > 59 || second > 59) return {};
  if (static_cast<int>(day) > DaysOf(static_cast<int>(year), static_cast<int>(month))) return {};
  return std::to_string(year) + "-" + TwoDigits(month) + "-" + TwoDigits(day) + " " + TwoDigits(hour) + ":" +
         TwoDigits(minute) + ":" + TwoDigits(second);
}

std::string DateOf(const Fullflash& image, const FileList& list, const FileEntry& entry) {
  return DateText(HeaderOf(image, list, entry).time);
}

std::string AttributesOf(const Fullflash& image, const FileList& list, const FileEntry& entry) {
  constexpr std::pair<unsigned, char> letters[] = {{0x01, 'R'}, {0x02, 'H'}, {0x04, 'S'}, {0x10, 'D'}};
  const unsigned attributes = HeaderOf(image, list, entry).attributes;
  std::string text;
  for (const auto& [bit, letter] : letters)
    if ((attributes & bit) != 0) text += letter;
  return text;
}

FolderContents::FolderContents(const FileList& list) : starts_(list.entries.size() + 2) {
  const auto slot = [&](const FileEntry& entry) {
    return std::min<std::size_t>(entry.parent, list.entries.size());
  };
  for (const FileEntry& entry : list.entries) ++starts_[slot(entry) + 1];
  for (std::size_t i = 1; i < starts_.size(); ++i) starts_[i] += starts_[i - 1];
  members_.resize(list.entries.size());
  std::vector<std::uint32_t> next = starts_;
  for (std::uint32_t i = 0; i < list.entries.size(); ++i) members_[next[slot(list.entries[i])]++] = i;
}

std::span<const std::uint32_t> FolderContents::In(std::uint32_t folder) const {
  const std::size_t slot = std::min<std::size_t>(folder, starts_.size() - 2);
  return std::span(members_).subspan(starts_[slot], starts_[slot + 1] - starts_[slot]);
}

}  // namespace tarvelo
