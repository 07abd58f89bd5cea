#include "patch/patch_text.h"

#include <algorithm>
#include <unordered_map>
#include <utility>

#include "patch/patch_apply.h"
#include "patch/patch_document.h"

namespace tarvelo {
namespace {

constexpr std::string_view patchLineBreak = "\r\n";
constexpr std::size_t fewestAsterisks = 20;  // of a separator

std::vector<std::string> LinesOf(std::string_view text) {
  std::vector<std::string> lines;
  EachPatchLine(text, [&](std::size_t, std::string_view line) { lines.emplace_back(line); });
  return lines;
}

std::string Joined(const std::vector<std::string>& lines) {
  std::string text;
  for (const std::string& line : lines) text.append(line).append(patchLineBreak);
  return text;
}

// A line that is a change, with its old and new bytes swapped and everything else in its place.
std::string Swapped(const std::string& line) {
  constexpr std::string_view digits = "0123456789ABCDEFabcdef";
  const std::size_t oldStart = line.find_first_of(digits, line.find(':'));
  const std::size_t oldEnd = line.find_first_not_of(digits, oldStart);
  const std::size_t newStart = line.find_first_of(digits, oldEnd);
  const std::size_t newEnd = std::min(line.find_first_not_of(digits, newStart), line.size());
  return line.substr(0, oldStart) + line.substr(newStart, newEnd - newStart) +
         line.substr(oldEnd, newStart - oldEnd) + line.substr(oldStart, oldEnd - oldStart) +
         line.substr(newEnd);
}

// Calls take(lines) with the line numbers of each group of changes that share bytes, directly or through
// others.
template <typename Take>
void EachGroup(std::vector<PatchChange> changes, Take take) {
  std::ranges::stable_sort(changes, {}, [](const PatchChange& each) { return each.change.offset; });
  std::vector<std::size_t> group;
  Offset end = 0;
  for (const auto& [line, change] : changes) {
    if (!group.empty() && change.offset >= end) {
      take(std::move(group));
      group.clear();
      end = 0;
    }
    group.push_back(line);
    end = std::max(end, change.offset + change.Size());
  }
  if (!group.empty()) take(std::move(group));
}

bool IsSeparator(std::string_view line) {
  const std::size_t first = line.find_first_not_of(" \t");
  if (first == line.npos || line[first] != ';') return false;
  line.remove_prefix(first + 1);
  while (line.ends_with(' ') || line.ends_with('\t')) line.remove_suffix(1);
  return line.size() >= fewestAsterisks && line.find_first_not_of('*') == line.npos;
}

// The text of a comment line without ";" and blanks around it.
std::string CommentText(std::string_view line) {
  line.remove_prefix(line.find(';') + 1);
  const std::size_t first = std::min(line.find_first_not_of(" \t;"), line.size());
  const std::size_t end = line.find_last_not_of(" \t") + 1;
  return first < end ? std::string(line.substr(first, end - first)) : std::string();
}

// What a change does, as a key; comments and notation do not count.
std::string KeyOf(const PatchLine& change) {
  std::string key = std::to_string(change.address) + ":";
  key.append(change.oldBytes.begin(), change.oldBytes.end());
  return key.append(change.newBytes.begin(), change.newBytes.end());
}

}  // namespace

std::string ReversedText(std::string_view text) {
  std::vector<std::string> lines = LinesOf(text);
  std::vector<PatchChange> changes = ReadPatchText(text).changes;
  for (const PatchChange& each : changes) lines[each.line - 1] = Swapped(lines[each.line - 1]);
  EachGroup(std::move(changes), [&](std::vector<std::size_t> group) {
    std::ranges::sort(group);
    for (std::size_t i = 0, j = group.size() - 1; i < j; ++i, --j)
      std::swap(lines[group[i] - 1], lines[group[j] - 1]);
  });
  return Joined(lines);
}

MergedText MergePatchTexts(std::string_view document, std::string_view name, std::string_view other) {
  std::vector<std::string> lines = LinesOf(document);
  std::unordered_map<std::string, std::size_t> known;
  for (std::size_t i = 0; i < lines.size(); ++i) {
    const PatchLine read = ReadPatchLine(lines[i]);
    if (read.kind == PatchLine::Kind::Change) known.emplace(KeyOf(read), i);
  }
  MergedText merged;
  std::string added;
  EachPatchLine(other, [&](std::size_t, std::string_view line) {
    const PatchLine read = ReadPatchLine(line);
    const bool isChange = read.kind == PatchLine::Kind::Change;
    const auto same = isChange ? known.find(KeyOf(read)) : known.end();
    if (same == known.end()) {
      added.append(line).append(patchLineBreak);
      if (isChange || read.kind == PatchLine::Kind::Invalid) ++merged.added;
      return;
    }
    ++merged.same;
    std::string& own = lines[same->second];
    const std::string comment = CommentOf(line);
    if (!comment.empty() && CommentOf(own).find(comment) == std::string::npos) own += comment;
  });
  merged.text = Joined(lines);
  if (merged.added > 0) merged.text += PatchBlock(name, added);
  return merged;
}

std::vector<PatchPart> SplitPatchText(std::string_view text) {
  std::vector<PatchPart> parts;
  PatchPart part;
  std::string before;  // lines without changes that the part begins with, up to its last separator
  bool hasChanges = false;
  const auto finish = [&] {
    before.append(part.text);
    if (hasChanges) parts.push_back({std::move(part.name), std::move(before)});
    if (hasChanges) before.clear();
    part = {};
    hasChanges = false;
  };
  EachPatchLine(text, [&](std::size_t, std::string_view line) {
    if (IsSeparator(line)) return finish();
    const PatchLine::Kind kind = ReadPatchLine(line).kind;
    if (kind == PatchLine::Kind::Comment && part.name.empty()) part.name = CommentText(line);
    hasChanges |= kind == PatchLine::Kind::Change || kind == PatchLine::Kind::Invalid;
    part.text.append(line).append(patchLineBreak);
  });
  finish();
  if (!before.empty() && !parts.empty()) parts.back().text += before;
  return parts;
}

}  // namespace tarvelo
