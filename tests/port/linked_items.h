// A small image written by hand: named items of bytes and references, laid out one behind the other.
#pragma once

#include <algorithm>
#include <map>
#include <sstream>
#include <string>
#include <vector>

#include "code/functions.h"

namespace tarvelo {

inline constexpr Offset imageSize = 0x20000;
inline constexpr std::uint32_t base = 0x1000000 - imageSize;

struct LinkedItem {
  std::string name;
  std::string source;  // bytes, or references to names, separated by blanks; see Linked::Bytes
  bool isFunction = true;
};

class Linked {
 public:
  // `values` are what is in no item: variables, bits, outer functions. Bytes in front of the image change no
  // phone address.
  Linked(const std::vector<LinkedItem>& items, std::map<std::string, std::uint32_t> values, Offset front = 0)
      : values_(std::move(values)), front_(front), bytes_(static_cast<std::size_t>(imageSize + front), 0xFF) {
    Offset at = 0x1000;
    for (const LinkedItem& item : items) {
      values_[item.name] = base + static_cast<std::uint32_t>(at);
      const Offset size = std::ssize(Bytes(item.source));
      if (item.isFunction) functions_.push_back({{at + front, size}, 1});
      at += size + (size & 1);
    }
    for (const LinkedItem& item : items)
      std::ranges::copy(Bytes(item.source), bytes_.begin() + At(item.name));
  }

  // Hexadecimal bytes; far:NAME segment and offset as in CALLS; word:FORM:NAME a word of an address, its
  // off, seg, pof or page; word:NAME; set:BIT a BSET; mov:BIT:BIT a BMOV; low:BIT:MASK:DATA a BFLDL.
  [[nodiscard]] std::vector<std::uint8_t> Bytes(const std::string& source) const {
    std::vector<std::uint8_t> bytes;
    std::istringstream words(source);
    for (std::string word; words >> word;) Append(bytes, Split(word));
    return bytes;
  }
  [[nodiscard]] Offset At(const std::string& name) const { return values_.at(name) - base + front_; }
  void Put(const std::string& name, Offset at) { values_[name] = base + static_cast<std::uint32_t>(at); }
  [[nodiscard]] FunctionList Functions() const { return {functions_, {}}; }
  [[nodiscard]] std::vector<std::uint8_t>& Image() { return bytes_; }

 private:
  static std::vector<std::string> Split(const std::string& word) {
    std::vector<std::string> parts;
    std::istringstream stream(word);
    for (std::string part; std::getline(stream, part, ':');) parts.push_back(part);
    return parts;
  }
  [[nodiscard]] std::uint32_t Value(const std::string& name) const {
    const auto found = values_.find(name);
    return found == values_.end() ? 0 : found->second;
  }
  void Append(std::vector<std::uint8_t>& bytes, const std::vector<std::string>& parts) const {
    const auto put = [&](std::uint32_t byte) { bytes.push_back(static_cast<std::uint8_t>(byte)); };
    const auto word = [&](std::uint32_t value) { put(value), put(value >> 8); };
    const auto number = [](const std::string& text) {
      return static_cast<std::uint32_t>(std::stoul(text, nullptr, 16));
    };
    const std::uint32_t value = parts.size() > 1 ? Value(parts.back()) : 0;
    if (parts.size() == 1) {
      put(number(parts[0]));
    } else if (parts[0] == "far") {
      put(value >> 16), word(value);
    } else if (parts[0] == "set") {
      put((value & 0xF) << 4 | 0xF), put(value >> 4);
    } else if (parts[0] == "mov") {
      const std::uint32_t from = Value(parts[1]);
      put(0x4A), put(from >> 4), put(value >> 4), put((from & 0xF) << 4 | (value & 0xF));
    } else if (parts[0] == "low") {
      const std::uint32_t bit = Value(parts[1]);
      put(0x0A), put(bit >> 4), put(number(parts[2]) << (bit & 7)), put(number(parts[3]) << (bit & 7));
    } else {
      const std::string form = parts.size() == 3 ? parts[1] : "";
      word(form == "pof"    ? value & 0x3FFF
           : form == "page" ? value >> 14
           : form == "seg"  ? value >> 16
                            : value);
    }
  }

  std::map<std::string, std::uint32_t> values_;
  Offset front_;
  std::vector<std::uint8_t> bytes_;
  std::vector<Function> functions_;
};

}  // namespace tarvelo
