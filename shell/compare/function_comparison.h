// The functions of the open dump and of the second one, compared.
#pragma once

#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "core/names.h"
#include "core/region.h"
#include "core/table.h"
#include "versions/code_compare.h"

namespace tarvelo {

struct Workbench;

class FunctionComparison {
 public:
  // The bench must outlive the object.
  explicit FunctionComparison(Workbench& bench) : bench_(bench) {}

  // Compares the open image with another one, which is at `path` with its names and must outlive the
  // comparison. False if the user stopped it; nothing is compared then.
  bool Compare(const Fullflash& other, const std::filesystem::path& path);
  void Clear();

  [[nodiscard]] TableRows Rows() const;
  // How many functions are in each state, in words.
  [[nodiscard]] std::string Figures() const;
  // A function's code in the open image; nothing if it has none.
  [[nodiscard]] std::optional<Region> RegionOf(std::size_t row) const;
  // Both versions of a function side by side.
  [[nodiscard]] TableRows Sides(std::size_t row) const;

 private:
  Workbench& bench_;
  std::unique_ptr<const CodeVersions> versions_;
  std::vector<ComparedFunction> functions_;
  Names otherNames_;
};

}  // namespace tarvelo
