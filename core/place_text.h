// Places of an image as lists and fields show them: aligned, with all their digits.
#pragma once

#include <string>

#include "core/fullflash.h"

namespace tarvelo {

// The hexadecimal digits that the image's offsets take.
[[nodiscard]] int OffsetWidth(const Fullflash& image);

// An offset of the image with leading zeros.
[[nodiscard]] std::string OffsetText(const Fullflash& image, Offset offset);

// Its phone address: page and offset in the page ("284:2345"), in large images one number ("A001A2B4").
[[nodiscard]] std::string AddressText(const Fullflash& image, Offset offset);

}  // namespace tarvelo
