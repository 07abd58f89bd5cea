#include "code/switch_tables.h"

#include <algorithm>

#include "code/opcodes.h"
#include "core/scan/vector_scan.h"

namespace tarvelo {
namespace {

constexpr Offset pageSize = 0x4000;
constexpr std::uint32_t pages = 0x400;
constexpr int mostCases = 512;
constexpr std::size_t mostPages = 16;         // of one DPP
constexpr std::int64_t mostReads = 0x400000;  // of words of tables, in an image

}  // namespace

struct SwitchTables::Form {
  Offset jump = 0;
  Offset first = 0;
  int count = 0;            // of cases
  std::uint16_t table = 0;  // as in the ADD
  std::uint16_t range = 0;  // the second byte of an EXTP or EXTS; 0: none
  std::uint16_t number = 0;
};

SwitchTables::SwitchTables(const Fullflash& image) : image_(image), reads_(mostReads) {
  for (std::uint16_t dpp = 0; dpp < 4; ++dpp) pages_[dpp].push_back(dpp);
  constexpr Probe load[] = {{.offset = 0, .value = 0x00E6, .mask = 0xFCFF}};  // MOV DPP, #page
  Sieve(2, load).Each(image.ff(), 0, Offset{image.ffEnd()} - 3, [&](Offset p) {
    const std::uint16_t page = image.Word(p + 2);
    auto& known = pages_[image.Byte(p + 1)];
    if (known.size() < mostPages && IsInImage(page) && std::ranges::find(known, page) == known.end())
      known.push_back(page);
    return false;
  });
}

const std::vector<Offset>& SwitchTables::Cases(Offset jump, Offset first) {
  cases_.clear();
  Form form{.jump = jump, .first = first};
  if (!ReadForm(jump, form)) return cases_;
  if (form.range == 0)
    ReadThroughDpp(form);
  else if ((form.range & 0x40) != 0)
    (void)ReadAt(form.number * std::uint32_t{pageSize} + form.table % pageSize, form);
  else
    (void)ReadAt(std::uint32_t{form.number} << 16 | form.table, form);
  return cases_;
}

// Reads the instructions from the last one backwards.
bool SwitchTables::ReadForm(Offset jump, Form& form) const {
  constexpr Offset longest = 20;
  if (jump < longest) return false;
  const auto byte = [&](Offset at) { return int{image_.Byte(at)}; };
  Offset at = jump - 2;
  const int target = byte(jump + 1);
  const int index = byte(at + 1) & 0xF;
  if (target > 0xF || byte(at) != 0xA8 || byte(at + 1) >> 4 != target) return false;
  if (byte(at - 4) == op::extendByNumber && (byte(at - 3) & 0x8F) == 0) {
    form.range = static_cast<std::uint16_t>(image_.Byte(at - 3) | 1);
    form.number = image_.Word(at - 2);
    at -= 4;
  }
  at -= 6;
  if (byte(at) != 0x5C || byte(at + 1) != (0x10 | index)) return false;
  if (byte(at + 2) != 0x06 || byte(at + 3) != (0xF0 | index)) return false;
  form.table = image_.Word(at + 4);
  if (byte(at - 2) == 0xED)
    form.count = ReadCount(at - 2, index);
  else if (byte(at - 4) == op::jumpAbsolute && byte(at - 3) == 0xE0)
    form.count = ReadCount(at - 4, index);
  return form.count > 0;
}

// The number of cases by the CMP that ends at `end`; 0 if there is none.
int SwitchTables::ReadCount(Offset end, int reg) const {
  const int last = image_.Word(end - 2);
  if (image_.Word(end - 4) == (0xF046 | reg << 8) && last < mostCases) return last + 1;
  const bool isShort = (last & 0xFF) == 0x48 && last >> 12 == reg && (last & 0x800) == 0;
  return isShort ? (last >> 8 & 7) + 1 : 0;
}

// Takes the table at a phone address if its words are offsets of cases.
bool SwitchTables::ReadAt(std::uint32_t address, const Form& form) {
  cases_.clear();
  const Offset table = Offset{address} - image_.CorrBase();
  const Offset size = static_cast<Offset>(image_.ff().size());
  if (table < 0 || table % 2 != 0 || table + 2 * form.count > size) return false;
  const Offset segment = form.jump - (image_.PhoneAddress(form.jump) & 0xFFFF);
  const Offset next = form.jump + 2;
  for (int i = 0; i < form.count; ++i) {
    const Offset target = segment + image_.Word(table + 2 * i);
    if (--reads_ < 0 || target % 2 != 0 || target < form.first || target >= size) break;
    cases_.push_back(target);
  }
  const bool isTable = cases_.size() == static_cast<std::size_t>(form.count) &&
                       std::ranges::find(cases_, next) != cases_.end();
  if (!isTable) cases_.clear();
  return isTable;
}

void SwitchTables::ReadThroughDpp(const Form& form) {
  const auto read = [&](std::uint32_t page) {
    return IsInImage(page) && ReadAt(page * std::uint32_t{pageSize} + form.table % pageSize, form);
  };
  auto& known = pages_[static_cast<std::size_t>(form.table / pageSize)];
  if (std::ranges::any_of(known, read)) return;
  if (known.size() >= mostPages) return;
  for (std::uint16_t page = 0; page < pages; ++page)
    if (read(page)) {
      known.push_back(page);
      return;
    }
}

bool SwitchTables::IsInImage(std::uint32_t page) const {
  const Offset offset = Offset{page} * pageSize - image_.CorrBase();
  return page < pages && offset > -pageSize && offset < static_cast<Offset>(image_.ff().size());
}

}  // namespace tarvelo
