#include "patch/patch_apply.h"

#include <algorithm>

#include "core/file.h"
#include "patch/patch_document.h"

namespace tarvelo {
namespace {

constexpr std::size_t longestText = 100;
constexpr std::size_t longestHeader = 50;  // lines
constexpr std::size_t longestHeaderLine = 200;

}  // namespace

ReadPatch ReadPatchText(std::string_view text) {
  ReadPatch patch;
  EachPatchLine(text, [&](std::size_t number, std::string_view line) {
    PatchLine read = ReadPatchLine(line);
    if (read.kind == PatchLine::Kind::Change)
      patch.changes.push_back(
          {number, {Offset{read.address}, std::move(read.oldBytes), std::move(read.newBytes)}});
    else if (read.kind == PatchLine::Kind::Invalid)
      patch.invalid.push_back({number, std::string(line.substr(0, longestText))});
    const bool isHeader = patch.changes.empty() && patch.invalid.empty();
    if (isHeader && read.kind == PatchLine::Kind::Comment && patch.header.size() < longestHeader)
      patch.header.emplace_back(line.substr(0, longestHeaderLine));
  });
  return patch;
}

ReadPatch ReadPatchFile(const std::filesystem::path& file, std::uint64_t limit, Progress& progress) {
  const FileBytes bytes = ReadFile(file, limit, progress);
  return ReadPatchText({reinterpret_cast<const char*>(bytes.data.get()), bytes.size});
}

ReadPatch Reversed(ReadPatch patch) {
  std::ranges::reverse(patch.changes);
  for (PatchChange& each : patch.changes) std::swap(each.change.oldBytes, each.change.newBytes);
  return patch;
}

std::size_t PatchCheck::Count(Fit fit) const {
  return static_cast<std::size_t>(std::ranges::count(changes, fit, &CheckedChange::fit));
}

std::vector<Change> PatchCheck::ToWrite(std::span<const PatchChange> patch) const {
  std::vector<Change> wanted;
  for (std::size_t i = 0; i < std::min(patch.size(), changes.size()); ++i)
    if (changes[i].fit == Fit::Fine) wanted.push_back(patch[i].change);
  return wanted;
}

bool PatchJudge::LiesWithin(const Change& change) const {
  return change.offset <= now_.Size() - change.Size();
}

void PatchJudge::Expect(const Change& change) {
  if (LiesWithin(change)) {
    fitsInOrder_ = fitsInOrder_ && afterAll_.Holds(change.offset, change.oldBytes);
    afterAll_.Write(change.offset, change.newBytes);
  } else {
    fitsInOrder_ = false;
  }
}

CheckedChange PatchJudge::Judge(const Change& change) {
  if (!makesAll_) makesAll_ = fitsInOrder_ && !now_.EqualsLater(afterAll_);
  if (*makesAll_ && change.oldBytes != change.newBytes) return {Fit::Fine, {}};
  if (!LiesWithin(change)) return {Fit::Outside, {}};
  if (now_.Holds(change.offset, change.newBytes) || now_.Equals(afterAll_, change.offset, change.Size()))
    return {Fit::Applied, {}};
  if (!now_.Holds(change.offset, change.oldBytes))
    return {Fit::Mismatch, now_.Copy(change.offset, change.Size())};
  now_.Write(change.offset, change.newBytes);
  return {Fit::Fine, {}};
}

PatchCheck CheckPatch(std::span<const PatchChange> patch, const Fullflash& image) {
  PatchJudge judge{Sheet(image.ff())};
  for (const PatchChange& each : patch) judge.Expect(each.change);
  PatchCheck check;
  check.changes.reserve(patch.size());
  for (const PatchChange& each : patch) check.changes.push_back(judge.Judge(each.change));
  return check;
}

}  // namespace tarvelo
