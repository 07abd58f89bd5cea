#include "document/dpp_text.h"

#include <algorithm>
#include <stdexcept>

#include "core/calculator.h"
#include "core/notation.h"

namespace tarvelo {
namespace {

constexpr std::uint32_t lastPage = 0x3FF;
constexpr std::string_view remark = "DPP0 to DPP3";

}  // namespace

std::string DppText(const DppPages& pages) {
  std::string text;
  for (const auto& page : pages) text += (text.empty() ? "" : " ") + (page ? Hex(*page) : "-");
  return text;
}

DppPages ReadDpps(std::string_view text) {
  DppPages pages;
  for (auto& page : pages) {
    text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
    const std::string_view word = text.substr(0, text.find(' '));
    text.remove_prefix(word.size());
    if (word.empty() || word == "-") continue;
    const std::uint32_t number = HexVal(word);
    if (number > lastPage) throw std::overflow_error(std::string(word));
    page = static_cast<std::uint16_t>(number);
  }
  return pages;
}

DppPages DppsOf(const Names& names) {
  try {
    return ReadDpps(names.Remark(remark));
  } catch (const std::invalid_argument&) {
  } catch (const std::overflow_error&) {
  }
  return {};
}

void KeepDpps(const DppPages& pages, Names& names) {
  names.SetRemark(remark, pages == DppPages() ? "" : DppText(pages));
}

}  // namespace tarvelo
