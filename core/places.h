// Places in an image as people write and read them: offsets, phone addresses, and what stands there.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "core/fullflash.h"

namespace tarvelo {

// The digits of an image's offsets.
[[nodiscard]] int OffsetWidth(const Fullflash& image);

// An offset with leading zeros; its phone address, as page and offset in the page ("284:2345"), in
// large images as one number ("A001A2B4").
[[nodiscard]] std::string OffsetText(const Fullflash& image, Offset offset);
[[nodiscard]] std::string AddressText(const Fullflash& image, Offset offset);

// The byte, the word and the double word at an offset of the image, as far as it has them, and where a
// pointer there leads, if it leads into the image: "34 / 1234 / 02841234  -> 011234". Erased and zero
// double words are no pointers.
[[nodiscard]] std::string Reading(const Fullflash& image, Offset offset);

// What a plain number means.
enum class PlaceKind { AsOffset, AsAddress };

// The offset of a place in the image: a hexadecimal number, with "0x" before it or not, or page:offset.
// A number that can be no offset of this image is taken as a phone address. Nothing where the place
// lies outside the image. Throws std::invalid_argument for what is no number, std::overflow_error for
// one of more than 32 bits.
[[nodiscard]] std::optional<Offset> ReadPlace(std::string_view text, PlaceKind kind, const Fullflash& image);

}  // namespace tarvelo
