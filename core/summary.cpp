#include "core/summary.h"

#include <array>
#include <charconv>

#include "core/notation.h"

namespace tarvelo {
namespace {

// A number of MiB with as many digits as tell it exactly ("8", "1.5"), whatever the locale.
std::string Mebibytes(std::size_t size) {
  std::array<char, 32> buffer;
  const auto [end, error] =
      std::to_chars(buffer.data(), buffer.data() + buffer.size(), static_cast<double>(size) / 1024 / 1024,
                    std::chars_format::general, 15);
  return {buffer.data(), end};
}

std::string HexAndDecimal(std::int64_t value) {
  return Hex(static_cast<std::uint32_t>(value)) + " = " + std::to_string(value);
}

}  // namespace

std::string Summary(std::string_view path, const Fullflash& image, const Identification& info,
                    const Messages& messages) {
  std::string text;
  const auto line = [&](int label, std::string_view value) {
    text.append(messages.Msg(label)).append(value).append("\n");
  };
  const std::size_t size = image.ff().size();
  line(6, path);
  line(7, Hex(static_cast<std::uint32_t>(size)) + " = " + Mebibytes(size) + "M = " + std::to_string(size));
  line(8, Hex(static_cast<std::uint32_t>(image.LoadBase())));
  if (image.CorrBase() != image.LoadBase()) line(9, Hex(static_cast<std::uint32_t>(image.CorrBase())));
  line(10, info.Model);
  line(11, info.version + " " + info.headerText);
  if (!info.buildDate.empty()) line(12, info.buildDate);
  line(14, info.EmptyBlocks);
  if (info.t9) {
    line(13, HexAndDecimal(info.t9->T9Base));
    line(175, HexAndDecimal(info.t9->T9Size));
    line(176, HexAndDecimal(info.t9->T9Full));
    line(177, HexAndDecimal(info.t9->Empty()));
  }
  return text;
}

}  // namespace tarvelo
