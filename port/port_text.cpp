#include "port/port_text.h"

#include "patch/patch_document.h"
#include "patch/patch_lines.h"

namespace tarvelo {
namespace {

std::string LineOf(const PortedChange& ported, std::string_view before) {
  const std::string comment = CommentOf(before);
  const auto all = [](const std::vector<std::uint8_t>& bytes) { return FirstBytes(bytes, bytes.size()); };
  return PatchAddress(ported.offset) + ": " + all(ported.oldBytes) + " " + all(ported.newBytes) + comment;
}

std::string Refused(std::string_view reason, std::string_view line) {
  return ";" + std::string(reason) + ": " + std::string(line);
}

}  // namespace

std::string PortedText(std::string_view text, std::span<const PatchChange> changes,
                       std::span<const PortedChange> ported) {
  std::string result;
  std::size_t next = 0;
  EachPatchLine(text, [&](std::size_t number, std::string_view line) {
    if (next < changes.size() && changes[next].line == number) {
      const PortedChange& change = ported[next++];
      result += change.refusal ? Refused(ReasonOf(*change.refusal), line) : LineOf(change, line);
    } else if (ReadPatchLine(line).kind == PatchLine::Kind::Invalid) {
      result += Refused("not a patch line", line);
    } else {
      result += line;
    }
    result += "\r\n";
  });
  return result;
}

}  // namespace tarvelo
