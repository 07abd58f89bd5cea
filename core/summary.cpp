#include "core/summary.h"

#include <array>
#include <charconv>

#include "core/notation.h"
#include "resources/texts.h"
#include "text/unicode.h"

namespace tarvelo {
namespace {

// A number of MiB with as many digits as it needs ("8", "1.5"), 15 at most, in every locale. Never has an
// exponent.
std::string Mebibytes(std::size_t size) {
  const double mebibytes = static_cast<double>(size) / 1024 / 1024;
  int decimals = 14;
  for (double rest = mebibytes; rest >= 10; rest /= 10) --decimals;
  for (double rest = mebibytes; rest > 0 && rest < 1; rest *= 10) ++decimals;
  std::array<char, 40> buffer;
  const auto [end, error] = std::to_chars(buffer.data(), buffer.data() + buffer.size(), mebibytes,
                                          std::chars_format::fixed, decimals);
  std::string text(buffer.data(), end);
  text.erase(text.find_last_not_of('0') + 1);
  if (text.ends_with('.')) text.pop_back();
  return text;
}

std::string HexAndDecimal(std::int64_t value) { return Hex(value) + " = " + std::to_string(value); }

}  // namespace

std::string Summary(std::string_view path, const Fullflash& image, const Identification& info,
                    const Messages& messages) {
  std::string text;
  const auto line = [&](Text label, std::string_view value) {
    text.append(messages.Msg(label)).append(value).append("\n");
  };
  const std::size_t size = image.ff().size();
  line(Text::FullflashLabel, path);
  line(Text::SizeLabel, Hex(size) + " = " + Mebibytes(size) + "M = " + std::to_string(size));
  line(Text::LoadingBaseLabel, Hex(image.LoadBase()));
  if (image.CorrBase() != image.LoadBase()) line(Text::CorrectedBaseLabel, Hex(image.CorrBase()));
  line(Text::MobileLabel, WithDots(info.Model));
  line(Text::FirmwareLabel, " " + info.version + " " + WithDots(info.headerText));
  if (!info.buildDate.empty()) line(Text::AssemblingDateLabel, info.buildDate);
  line(Text::EmptyBlocksLabel, info.EmptyBlocks);
  if (info.t9) {
    line(Text::T9BaseLabel, HexAndDecimal(info.t9->T9Base));
    line(Text::T9ExactSizeLabel, HexAndDecimal(info.t9->T9Size));
    line(Text::T9FullSizeLabel, HexAndDecimal(info.t9->T9Full));
    line(Text::T9EmptyAreaLabel, HexAndDecimal(info.t9->Empty()));
  }
  return text;
}

}  // namespace tarvelo
