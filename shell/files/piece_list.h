// The pieces of a file, in order.
#pragma once

#include <wx/dataview.h>

#include <functional>
#include <string>
#include <vector>

#include "core/region.h"

namespace tarvelo {

class Messages;

class PieceList final : public wxDataViewCtrl {
 public:
  explicit PieceList(wxWindow* parent);

  // Shows pieces and chooses the first; `place` gives an offset as the user reads it.
  void SetPieces(std::vector<Region> pieces, std::function<std::string(Offset)> place);
  [[nodiscard]] const std::vector<Region>& Pieces() const { return pieces_; }
  // The index of the chosen piece; 0 without one.
  [[nodiscard]] std::size_t Chosen() const;
  void Choose(std::size_t piece);
  void Recaption(const Messages& messages);

 private:
  class Model;

  std::vector<Region> pieces_;
  std::function<std::string(Offset)> place_;
  wxObjectDataPtr<Model> model_;
};

}  // namespace tarvelo
