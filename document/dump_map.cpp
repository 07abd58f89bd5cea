#include "document/dump_map.h"

#include <algorithm>

#include "core/erased_runs.h"
#include "document/explorers.h"
#include "document/guesses.h"
#include "document/map_kinds.h"
#include "document/settle_claims.h"
#include "text/decoders.h"

namespace tarvelo {
namespace {

constexpr Offset blockSize = 0x10000;
constexpr Offset headerSize = 0x100;

void ClaimErased(Bytes image, Claims& claims) {
  for (const Region& run : ErasedRuns(image)) {
    claims.Add({run.offset, run.size, &map::erased, Sureness::Likely});
    const Offset first = (run.offset + blockSize - 1) / blockSize * blockSize;
    const Offset end = run.End() / blockSize * blockSize;
    if (first < end) claims.Add({first, end - first, &map::emptyBlock, Sureness::Certain});
  }
}

}  // namespace

std::span<const Claim> DumpMap::Within(Offset offset, Offset size) const {
  const auto first = std::ranges::upper_bound(regions, offset, {}, &Claim::End);
  const auto end = std::ranges::lower_bound(first, regions.end(), offset + size, {}, &Claim::offset);
  return {first, end};
}

void ClaimIdentified(const Dump& dump, const TakeClaim& take) {
  const Identification& info = dump.info;
  // In images of more than 16 MiB, SigPos may lack the upper bits of the signature's offset.
  if (info.SigPos && GetStr(dump.image.ff(), *info.SigPos + 0x80) == u"SIEMENS")
    take({*info.SigPos, headerSize, &map::firmwareHeader, Sureness::Certain});
  if (!info.t9) return;
  const Offset free = info.t9->T9Free;
  take({info.t9->T9Base, free - info.t9->T9Base, &map::t9, Sureness::Certain});
  take({free, info.t9->Empty(), &map::t9Free, Sureness::Certain});
}

DumpMap MapDump(const Dump& dump, const FindingsOf& findingsOf) {
  Claims claims(std::ssize(dump.image.ff()));
  ClaimIdentified(dump, [&](const Claim& claim) { claims.Add(claim); });
  ClaimErased(dump.image.ff(), claims);
  for (const Explorer* explorer : Explorers())
    if (explorer->claim)
      explorer->claim(dump, findingsOf(*explorer), [&](const Claim& claim) { claims.Add(claim); });
  const std::vector<Claim> regions = std::move(claims).Settle(map::unknown);
  return {Guess(dump.image, regions)};
}

}  // namespace tarvelo
