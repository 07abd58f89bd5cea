#include "patch/patch_lines.h"

#include <algorithm>

#include "core/notation.h"
#include "patch/pattern.h"

namespace tarvelo {

std::string PatchAddress(Offset offset) { return WholeHex(offset); }

void AppendPatchLines(std::string& lines, Offset offset, Bytes oldBytes, Bytes newBytes) {
  const std::size_t size = std::min(oldBytes.size(), newBytes.size());
  for (std::size_t at = 0; at < size;) {
    if (oldBytes[at] == newBytes[at]) {
      ++at;
      continue;
    }
    std::size_t length = std::min<std::size_t>(longestPatchLine, size - at);
    while (oldBytes[at + length - 1] == newBytes[at + length - 1]) --length;
    lines.append(PatchAddress(offset + static_cast<Offset>(at))).append(": ");
    lines.append(HexOfBytes(oldBytes.subspan(at, length))).append(" ");
    lines.append(HexOfBytes(newBytes.subspan(at, length))).append("\n");
    at += length;
  }
}

std::string PatchLines(std::span<const Change> changes) {
  std::string lines;
  Change joined;
  const auto append = [&] { AppendPatchLines(lines, joined.offset, joined.oldBytes, joined.newBytes); };
  for (const Change& change : changes) {
    if (change.offset != joined.offset + joined.Size()) {
      append();
      joined = {change.offset, {}, {}};
    }
    joined.oldBytes.insert(joined.oldBytes.end(), change.oldBytes.begin(), change.oldBytes.end());
    joined.newBytes.insert(joined.newBytes.end(), change.newBytes.begin(), change.newBytes.end());
  }
  append();
  if (!lines.empty()) lines.pop_back();
  return lines;
}

std::string FirstBytes(Bytes bytes, std::size_t most) {
  return HexOfBytes(bytes.first(std::min(most, bytes.size()))) + (bytes.size() > most ? "..." : "");
}

}  // namespace tarvelo
