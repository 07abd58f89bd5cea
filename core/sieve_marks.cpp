#include "core/sieve_marks.h"

#include <algorithm>

namespace tarvelo {
namespace {

constexpr std::size_t chunkSize = std::size_t{64} * SieveBits::positions;
constexpr std::size_t progressStep = 32 * chunkSize;

struct Marked {
  Sieve sieve;
  bool matchesErased;
  std::vector<std::uint64_t>& marks;
};

// The bytes behind a position that a sieve reads.
std::size_t Reach(const SieveForm& form) {
  return static_cast<std::size_t>(std::ranges::max(form.probes, {}, &Probe::offset).offset + form.step);
}

bool MatchesErased(const SieveForm& form) {
  return std::ranges::all_of(form.probes, [&](const Probe& probe) {
    return probe.value == (probe.mask & 0xFFFFFFFF >> (32 - 8 * form.step));
  });
}

}  // namespace

SieveMarks::SieveMarks(Bytes image, std::span<const SieveForm* const> forms, Progress& progress) {
  std::vector<Marked> sieves;
  std::size_t reach = 0;
  for (const SieveForm* form : forms) {
    sieves.push_back({Sieve(*form), MatchesErased(*form), marks_[form]});
    reach = std::max(reach, Reach(*form));
  }
  const std::size_t count = image.size() < reach ? 0 : (image.size() - reach) / chunkSize;
  for (const Marked& each : sieves) each.marks.resize(count);
  ProgressRun run(progress, 0, std::ssize(image));
  for (std::size_t i = 0; i < count; ++i) {
    const Bytes chunk = image.subspan(i * chunkSize, chunkSize + reach);
    if (i * chunkSize % progressStep == 0) run.At(static_cast<Offset>(i * chunkSize));
    const bool isErased = IsErased(chunk);
    for (const Marked& each : sieves)
      if (!isErased || each.matchesErased) each.marks[i] = each.sieve.Mark(chunk.data());
  }
}

std::span<const std::uint64_t> SieveMarks::Of(const SieveForm& form) const {
  const auto found = marks_.find(&form);
  if (found == marks_.end()) return {};
  return found->second;
}

}  // namespace tarvelo
