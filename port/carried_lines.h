// The lines of a patch that was carried to another firmware version, as a list for the user: what became of
// each, and what one has to trust.
#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string>

#include "core/table.h"
#include "port/port.h"
#include "resources/messages.h"
#include "versions/code_versions.h"

namespace tarvelo {

// What surrounds a line, in both versions.
struct CodeAround {
  TableRows rows;
  std::optional<std::size_t> middle;  // the row of the line
};

class CarriedLines {
 public:
  static constexpr std::size_t largePatch = 20;  // lines

  // `ported` are the results for the changes of the patch. All but the messages must outlive the object.
  CarriedLines(const ReadPatch& patch, std::span<const PortedChange> ported, const CodeVersions& versions,
               const Messages& messages);

  // Lines of the patch with changes, malformed ones included, and those of them that were carried over.
  [[nodiscard]] std::size_t Count() const { return patch_.changes.size() + patch_.invalid.size(); }
  [[nodiscard]] std::size_t Carried() const { return carried_; }
  // Whether less than half of a large patch was carried over: the versions are far apart.
  [[nodiscard]] bool IsFarApart() const { return Count() >= largePatch && carried_ * 2 < Count(); }
  [[nodiscard]] std::string Summary() const;

  // One row per line, malformed ones last, in the columns Line, State, Offset, New offset, Agreeing, Old, New
  // and Reason. Refused lines are marked. The object must outlive the rows.
  [[nodiscard]] TableRows Rows() const;

  // What surrounds a row's line in both versions: instructions, or bytes of data.
  [[nodiscard]] CodeAround Around(std::size_t row) const;
  // How many places of each version look like the line's, in words; empty for data.
  [[nodiscard]] std::string Similar(std::size_t row) const;

 private:
  [[nodiscard]] CodeAround InCode(const Change& change, const PortedChange& ported, int unit) const;
  [[nodiscard]] CodeAround InData(const Change& change, const PortedChange& ported) const;
  [[nodiscard]] std::string Msg(Text text) const { return std::string(messages_.Msg(text)); }

  const ReadPatch& patch_;
  std::span<const PortedChange> ported_;
  const CodeVersions& versions_;
  Messages messages_;
  std::size_t carried_;
};

// Why a line or name was refused, in the messages' language.
[[nodiscard]] std::string RefusalText(PortRefusal refusal, const Messages& messages);

}  // namespace tarvelo
