#include "demo/demo_header.h"

#include <stdexcept>

namespace tarvelo {
namespace {

constexpr std::size_t versionAt = 0x50;
constexpr std::size_t secondAt = 0x60;
constexpr std::size_t modelAt = 0x70;
constexpr std::size_t signatureAt = 0x80;
constexpr std::size_t dateAt = 0x90;
constexpr std::size_t timeAt = 0xA0;
constexpr std::size_t fieldSize = 0x10;

void Field(ImageBuilder& image, std::size_t offset, std::string_view text) {
  if (text.size() >= fieldSize) throw std::length_error("a header text is longer than its field");
  image.Text(offset, text);
}

}  // namespace

void WriteHeader(ImageBuilder& image, Region header, const HeaderTexts& texts) {
  const std::size_t page = header.begin;
  image.Fill(page, header.end - page, 0);
  image.Byte(page + versionAt, texts.version);
  Field(image, page + secondAt, texts.second);
  Field(image, page + modelAt, texts.model);
  Field(image, page + signatureAt, "SIEMENS");
  Field(image, page + dateAt, texts.date);
  Field(image, page + timeAt, texts.time);
}

}  // namespace tarvelo
