// Formats and reads places in an image: offsets, phone addresses, and the values there.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "core/dump.h"
#include "core/region.h"

namespace tarvelo {

// How many digits an image's offsets have.
[[nodiscard]] int OffsetWidth(const Fullflash& image);

// OffsetText gives an offset with leading zeros. AddressText gives its phone address as page and offset in
// the page ("284:2345"), or as one number ("A001A2B4") for large images.
[[nodiscard]] std::string OffsetText(const Fullflash& image, Offset offset);
[[nodiscard]] std::string AddressText(const Fullflash& image, Offset offset);

// The byte, the word and the double word at an offset, as far as the image has them, and the target of a
// pointer there if it is in the image: "34 / 1234 / 02841234  -> 011234". Erased and zero double words are
// not pointers.
[[nodiscard]] std::string Reading(const Fullflash& image, Offset offset);

// What a plain number means.
enum class PlaceKind { AsOffset, AsAddress };

// Reads a place and returns its offset. A place is a hexadecimal number, with or without "0x", or
// page:offset. A number that cannot be an offset of this image is taken as a phone address. Returns nothing
// if the place is outside the image. Throws std::invalid_argument if the text is not a number, and
// std::overflow_error if it has more than 32 bits.
[[nodiscard]] std::optional<Offset> ReadPlace(std::string_view text, PlaceKind kind, const Fullflash& image);

// What the number in front of a colon is.
enum class ColonForm { Page, Segment };

// Reads a place as ReadPlace does, or the name of one (Dump::names), which goes first. Two numbers with a
// colon are `form` and offset, or the other form if that is outside the image. "+10" and "-20" count from
// `from`; an "h" may end the text.
[[nodiscard]] std::optional<Offset> FindPlace(std::string_view text, PlaceKind kind, ColonForm form,
                                              const Dump& dump, Offset from = 0);

// All forms of a place: "01A2B4 = 284:2345 = A1:2345".
[[nodiscard]] std::string PlaceText(const Fullflash& image, Offset offset);

// Reads the region "from-to", with the last byte included, or "from+size"; each place is one of FindPlace,
// the size hexadecimal. Returns nothing unless all of it is in the image and it has a byte. Throws as
// ReadPlace does.
[[nodiscard]] std::optional<Region> ReadRegion(std::string_view text, const Dump& dump);
// Such a text for a region: "000010-00001F".
[[nodiscard]] std::string RegionText(const Fullflash& image, const Region& region);

// The phone address of an offset as segment and offset in the segment: "A0:1234".
[[nodiscard]] std::string SegmentText(const Fullflash& image, Offset offset);

// The offset of a phone address, if it is in the image.
[[nodiscard]] std::optional<Offset> OffsetOf(const Fullflash& image, std::uint32_t address);

}  // namespace tarvelo
