// The user's names and comments for places in a dump, kept in a text file beside it, "STEM.names.tsv":
//
//   phone address, hexadecimal   tab   name   tab   comment
//
// Either text may be missing, not both; a comment may hold further tabs. Empty lines and lines that begin
// with "#" are for the reader; of those, "# KEY: VALUE" are remarks that the program keeps there. UTF-8. A
// line of any other form, or for an address that an earlier line names, is a bad line: it has no effect, but
// stays in the file.
#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tarvelo {

struct Name {
  std::uint32_t address = 0;  // of the phone
  std::string_view name;
  std::string_view comment;
};

class Names {
 public:
  static constexpr std::string_view fileEnding = ".names.tsv";
  static constexpr std::uint64_t fileLimit = 64 << 20;  // bytes
  static constexpr std::size_t badLinesKept = 100;

  Names() = default;
  // Reads the text of a names file. Never fails.
  explicit Names(std::string text);

  // The whole file, bad lines and the reader's lines included.
  [[nodiscard]] const std::string& Text() const { return text_; }

  // The names by address, each address once. The texts are valid until the next Set.
  [[nodiscard]] std::size_t Count() const { return entries_.size(); }
  [[nodiscard]] Name operator[](std::size_t i) const;
  // The index of the first name at this address or behind it; Count() if there is none.
  [[nodiscard]] std::size_t From(std::uint32_t address) const;
  [[nodiscard]] std::optional<Name> At(std::uint32_t address) const;
  // Only the name at an address, without the comment; empty if it has none.
  [[nodiscard]] std::string_view NameAt(std::uint32_t address) const;
  // The lowest address with this name, ignoring case; an empty name is none.
  [[nodiscard]] std::optional<std::uint32_t> Find(std::string_view name) const;

  // How many lines are bad, and the numbers of the first `badLinesKept` of them, from 1.
  [[nodiscard]] std::size_t BadCount() const { return badCount_; }
  [[nodiscard]] const std::vector<std::size_t>& BadLines() const { return badLines_; }

  // Gives an address these texts in place of its old ones; two empty texts remove its line. Control
  // characters become blanks, and blanks around a text are removed.
  void Set(std::uint32_t address, std::string_view name, std::string_view comment);
  // The same for several addresses, each once.
  void Set(std::span<const Name> names);

  // The value of the first remark with this key; empty if there is none.
  [[nodiscard]] std::string_view Remark(std::string_view key) const;
  // Gives the remark another value. A new one becomes the first line; an empty value removes the line.
  void SetRemark(std::string_view key, std::string_view value);

 private:
  // Positions in the text.
  struct Entry {
    std::uint32_t address;
    std::uint32_t line;  // of its first byte
    std::uint32_t name;
    std::uint32_t nameSize;
    std::uint32_t comment;
    std::uint32_t end;  // of the comment, which ends the line
  };

  void Read();
  [[nodiscard]] std::optional<Entry> ReadLine(std::size_t start, std::size_t end) const;
  // Where the lines begin.
  [[nodiscard]] std::size_t Start() const;
  [[nodiscard]] std::string_view LineEnd() const;
  // The position of the remark's line; npos if there is none.
  [[nodiscard]] std::size_t FindRemark(std::string_view key) const;

  std::string text_;
  std::vector<Entry> entries_;
  std::vector<std::size_t> badLines_;
  std::size_t badCount_ = 0;
};

// The names file of a dump.
[[nodiscard]] std::filesystem::path NamesFile(const std::filesystem::path& dump);
// Reads the names of a dump; none if it has no names file. Throws FileError.
[[nodiscard]] Names ReadNames(const std::filesystem::path& dump);

}  // namespace tarvelo
