#include "shell/compare/function_comparison.h"

#include <utility>

#include "shell/services/search_progress.h"
#include "shell/services/talk.h"
#include "shell/services/workbench.h"
#include "versions/function_table.h"

namespace tarvelo {

bool FunctionComparison::Compare(const Fullflash& other, const std::filesystem::path& path) {
  Names names;
  if (bench_.talk.fOpenErr([&] { names = ReadNames(path); })) names = Names();
  std::unique_ptr<const CodeVersions> versions;  // meanwhile the list may draw the old ones
  try {
    SearchProgress progress(bench_);
    const auto functions = bench_.document.Functions(progress);
    versions = std::make_unique<CodeVersions>(bench_.document.Image(), other, progress, functions.get());
  } catch (const Stopped&) {
    return false;
  }
  functions_ = CompareFunctions(*versions);
  versions_ = std::move(versions);
  otherNames_ = std::move(names);
  return true;
}

void FunctionComparison::Clear() {
  functions_.clear();
  versions_.reset();
  otherNames_ = Names();
}

TableRows FunctionComparison::Rows() const {
  if (!versions_) return {};
  return FunctionRows(functions_, *versions_, bench_.document.PlaceNames(), otherNames_, bench_.texts);
}

std::string FunctionComparison::Figures() const {
  const auto counts = CountStates(functions_);
  std::string text;
  for (std::size_t i = 0; i < counts.size(); ++i)
    text += (i == 0 ? "" : "    ") + StateText(static_cast<FunctionState>(i), bench_.texts) + ": " +
            std::to_string(counts[i]);
  return text;
}

std::optional<Region> FunctionComparison::RegionOf(std::size_t row) const {
  if (row >= functions_.size() || functions_[row].old.size == 0) return {};
  return functions_[row].old;
}

TableRows FunctionComparison::Sides(std::size_t row) const {
  const ComparedFunction& function = functions_.at(row);
  return SideRows(SidesOf(versions_->Pairing(), function.oldUnit, function.newUnit), *versions_,
                  bench_.texts);
}

}  // namespace tarvelo
