#include "eeprom/greeting.h"

#include <algorithm>

#include "core/byte_text.h"
#include "eeprom/block_report.h"
#include "text/decoders.h"
#include "text/unicode.h"

namespace tarvelo {

std::string GreetingModel(const Fullflash& image, const BlockStore& store) {
  const auto block = LiveBlock(store, greetingBlock);
  if (!block) return {};
  const BlockData data = ReportOf(store, *block, image).data;
  if (!data.whole) return {};
  std::vector<std::uint8_t> greeting(data.bytes.begin(), data.bytes.end());
  greeting.push_back(0);
  std::u16string model = GetStr(greeting, 0);
  model.resize(std::min(model.find(u' '), model.size()));
  const bool isPrintable =
      std::equal(model.begin(), model.end(), greeting.begin(),
                 [](char16_t c, std::uint8_t byte) { return c == ShownCharacter(byte); });
  return isPrintable ? ToUtf8(model) : std::string();
}

}  // namespace tarvelo
