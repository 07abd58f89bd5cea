#include "patch/name_pattern.h"

#include <algorithm>
#include <stdexcept>

#include "code/ext_range.h"
#include "code/register_pairs.h"
#include "core/byte_text.h"
#include "core/trimmed.h"
#include "patch/patch_document.h"

namespace tarvelo {
namespace {

constexpr int deepest = 16;  // braces within braces
constexpr std::string_view separators = " \t\r";

// The value of the hexadecimal digit with which a text begins, if it does.
std::optional<std::uint8_t> FirstDigit(std::string_view text) {
  return text.empty() ? std::nullopt : DigitOf(static_cast<unsigned char>(text.front()));
}

// Two words as a pointer: offset and page where the offset fits a page and the place is in the image, else
// offset and segment. A page may have an offset beyond it; nothing lies beyond the last page.
std::optional<std::uint32_t> PointerOf(const Fullflash& image, std::uint32_t low, std::uint32_t high) {
  const std::uint32_t paged = high * 0x4000 + low;
  if (high >= 0x400 || paged >= Fullflash::BigLimit) return {};
  const Offset offset = Offset{paged} - image.CorrBase();
  const bool isPage = low < 0x4000 && offset >= 0 && offset <= image.ffEnd();
  return isPage || high > 0xFF ? paged : high << 16 | low;
}

// The address of data that the instruction behind an EXTP or EXTS at `at` names.
std::optional<std::uint32_t> ExtendedAddress(const Fullflash& image, Offset at, const Instruction& extend) {
  ExtRange range;
  range.Pass(extend);
  const Offset next = at + extend.Size();
  if (next > image.ffEnd()) return {};
  const Instruction instruction = Instruction::Decode(image.ff(), next);
  return instruction.IsData() || !instruction.HasMemory() ? std::nullopt : range.Address(instruction.Word());
}

std::optional<std::uint32_t> ReferenceAt(const Fullflash& image, Offset at) {
  if (at < 0 || at + 4 > std::ssize(image.ff())) return {};
  const Instruction instruction = Instruction::Decode(image.ff(), at);
  if (!instruction.IsData()) {
    if (const auto target = instruction.Target(image.PhoneAddress(at))) return target;
    if (instruction.BeginsRange()) return ExtendedAddress(image, at, instruction);
    if (instruction.LoadsConstant()) {
      const auto pair = PairFrom(image.ff(), at);
      return pair ? PointerOf(image, pair->offset, pair->pageOrSegment) : std::nullopt;
    }
  }
  return PointerOf(image, image.Word(at), image.Word(at + 2));
}

}  // namespace

// Reads a pattern from its text.
class NamePatternReader {
 public:
  NamePatternReader(std::string_view text, NamePattern& pattern) : text_(text), pattern_(pattern) {}

  void Read() {
    ReadExpression(0);
    SkipBlanks();
    if (!text_.empty()) Refuse(std::string("\"") + text_.front() + "\" is not expected here");
    if (pattern_.FixedBytes() == 0) Refuse("it names no byte");
  }

 private:
  using Element = NamePattern::Element;

  [[noreturn]] static void Refuse(const std::string& why) { throw std::invalid_argument(why); }

  void ReadExpression(int depth) {
    if (depth > deepest) Refuse("too many brackets");
    SkipBlanks();
    if (Takes('&')) {
      if (!Takes('(')) Refuse("\"(\" is missing behind \"&\"");
      ReadExpression(depth + 1);
      if (!Takes(')')) Refuse("\")\" is missing");
      pattern_.steps_.push_back({true, 0});
    } else {
      pattern_.elements_ = ReadElements(0);
    }
    SkipBlanks();
    if (Takes('+'))
      pattern_.steps_.push_back({false, ReadNumber()});
    else if (Takes('-'))
      pattern_.steps_.push_back({false, -ReadNumber()});
  }

  std::vector<Element> ReadElements(int depth) {
    if (depth > deepest) Refuse("too many braces");
    std::vector<Element> elements;
    for (SkipBlanks(); !text_.empty(); SkipBlanks()) {
      if (Takes('{')) {
        elements.push_back({.isFollowed = true, .there = ReadElements(depth + 1)});
        if (!Takes('}')) Refuse("\"}\" is missing");
        if (elements.back().there.empty()) Refuse("the braces are empty");
      } else if (Takes('[')) {
        elements.push_back(ReadBits());
      } else if (text_.front() == '?' || FirstDigit(text_)) {
        elements.push_back(ReadByte());
      } else {
        break;
      }
    }
    return elements;
  }

  Element ReadByte() {
    Element byte;
    for (int half = 0; half < 2; ++half) {
      const auto digit = FirstDigit(text_);
      if (!digit && !text_.starts_with('?')) Refuse("half a byte is missing");
      byte.value = static_cast<std::uint8_t>(byte.value << 4 | digit.value_or(0));
      byte.mask = static_cast<std::uint8_t>(byte.mask << 4 | (digit ? 0xF : 0));
      text_.remove_prefix(1);
    }
    return byte;
  }

  Element ReadBits() {
    Element byte;
    for (int bit = 0; bit < 8; ++bit) {
      if (text_.empty() || std::string_view("01.?").find(text_.front()) == std::string_view::npos)
        Refuse("a bit is missing between \"[\" and \"]\"");
      byte.value = static_cast<std::uint8_t>(byte.value << 1 | (text_.front() == '1' ? 1 : 0));
      byte.mask = static_cast<std::uint8_t>(byte.mask << 1 | (text_.front() <= '1' && text_.front() >= '0'));
      text_.remove_prefix(1);
    }
    if (!Takes(']')) Refuse("\"]\" is missing");
    return byte;
  }

  Offset ReadNumber() {
    SkipBlanks();
    if (text_.starts_with("0x") || text_.starts_with("0X")) text_.remove_prefix(2);
    if (!FirstDigit(text_)) Refuse("a hexadecimal number is missing");
    Offset value = 0;
    for (; const auto digit = FirstDigit(text_); text_.remove_prefix(1)) {
      value = value * 16 + *digit;
      if (value > 0xFFFFFFFF) Refuse("a number has more than 32 bits");
    }
    return value;
  }

  void SkipBlanks() { text_.remove_prefix(std::min(text_.find_first_not_of(separators), text_.size())); }

  bool Takes(char c) {
    SkipBlanks();
    if (!text_.starts_with(c)) return false;
    text_.remove_prefix(1);
    return true;
  }

  std::string_view text_;
  NamePattern& pattern_;
};

// Compares a pattern with places of an image. Braces can be read in two ways, so several places may have to
// be followed at once, and braces within braces multiply them. A crafted image takes too long: then nothing
// matches any more.
class NamePatternMatcher {
 public:
  using Element = NamePattern::Element;

  explicit NamePatternMatcher(const Fullflash& image)
      : image_(image), left_(0x100000 + 16 * std::ssize(image.ff())) {}

  bool Matches(Offset at, const std::vector<Element>& elements) {
    auto element = elements.begin();
    for (; element != elements.end() && !element->isFollowed; ++element, ++at)
      if (!IsByte(at, *element)) return false;
    std::vector<Offset> places{at};
    for (; element != elements.end() && !places.empty(); ++element) {
      if (element->isFollowed) {
        places = Behind(places, *element);
      } else {
        std::erase_if(places, [&](Offset place) { return !IsByte(place, *element); });
        for (Offset& place : places) ++place;
      }
    }
    return !places.empty();
  }

 private:
  [[nodiscard]] bool IsByte(Offset at, const Element& element) const {
    return at >= 0 && at <= image_.ffEnd() && (image_.Byte(at) & element.mask) == element.value;
  }

  // Where a pattern goes on behind braces: behind the call or jump in whose place they stand, or where they
  // stand if one ends there.
  std::vector<Offset> Behind(const std::vector<Offset>& places, const Element& braces) {
    std::vector<Offset> behind;
    for (const Offset at : places) {
      if (Follows(at, braces)) behind.push_back(at + Instruction::Decode(image_.ff(), at).Size());
      if (Follows(at - 4, braces, 4) || Follows(at - 2, braces, 2)) behind.push_back(at);
    }
    std::ranges::sort(behind);
    behind.erase(std::unique(behind.begin(), behind.end()), behind.end());
    return behind;
  }

  // Whether a call or jump at `at`, of `size` bytes unless 0, leads to what stands in the braces.
  bool Follows(Offset at, const Element& braces, int size = 0) {
    if (at < 0 || at > image_.ffEnd()) return false;
    const Instruction instruction = Instruction::Decode(image_.ff(), at);
    if (instruction.IsData() || (size != 0 && instruction.Size() != size)) return false;
    const auto target = instruction.Target(image_.PhoneAddress(at));
    return target && left_-- > 0 && Matches(Offset{*target} - image_.CorrBase(), braces.there);
  }

  const Fullflash& image_;
  std::int64_t left_;  // calls and jumps to follow
};

NamePattern::NamePattern(std::string_view text) { NamePatternReader(text, *this).Read(); }

// How many bytes of the beginning have a fixed length, up to the first braces.
Offset NamePattern::FixedBytes() const {
  return std::ranges::find_if(elements_, &Element::isFollowed) - elements_.begin();
}

std::vector<std::uint32_t> NamePattern::Find(const Fullflash& image, std::size_t most) const {
  std::vector<std::uint32_t> found;
  NamePatternMatcher matcher(image);
  const auto take = [&](Offset at) {
    if (!matcher.Matches(at, elements_)) return false;
    if (const auto address = ResultAt(image, at)) found.push_back(*address);
    return found.size() >= most;
  };
  const Offset last = std::ssize(image.ff()) - FixedBytes();
  const std::vector<Probe> probes = WholeBytes();
  if (!probes.empty()) {
    Sieve(1, probes).Each(image.ff(), 0, last, take);
  } else {
    for (Offset at = 0; at <= last; ++at)
      if (take(at)) break;
  }
  return found;
}

// Up to four bytes in front of the first braces that have no wildcard.
std::vector<Probe> NamePattern::WholeBytes() const {
  std::vector<Probe> probes;
  for (std::int32_t i = 0; i < FixedBytes() && probes.size() < 4; ++i)
    if (const Element& element = elements_[static_cast<std::size_t>(i)]; element.mask == 0xFF)
      probes.push_back({i, element.value, element.mask});
  return probes;
}

std::optional<std::uint32_t> NamePattern::ResultAt(const Fullflash& image, Offset at) const {
  std::uint32_t address = image.PhoneAddress(at);
  for (const Step& step : steps_) {
    if (!step.isReference) {
      address += static_cast<std::uint32_t>(step.distance);
      continue;
    }
    const auto referred = ReferenceAt(image, Offset{address} - image.CorrBase());
    if (!referred) return {};
    address = *referred;
  }
  return address;
}

std::vector<NamedPattern> ReadNamedPatterns(std::string_view text) {
  std::vector<NamedPattern> patterns;
  EachPatchLine(text, [&](std::size_t number, std::string_view line) {
    line = Trimmed(line.substr(0, line.find(';')));
    if (line.empty()) return;
    NamedPattern read{number, {}, {}, {}};
    const std::size_t equals = line.find('=');
    if (equals == line.npos) {
      read.name = line;
      read.problem = "\"=\" is missing";
    } else {
      read.name = Trimmed(line.substr(0, equals));
      try {
        read.pattern.emplace(line.substr(equals + 1));
      } catch (const std::invalid_argument& fault) {
        read.problem = fault.what();
      }
      if (read.name.empty()) {
        read.problem = "the name is missing";
        read.pattern.reset();
      }
    }
    patterns.push_back(std::move(read));
  });
  return patterns;
}

}  // namespace tarvelo
