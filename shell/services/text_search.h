// Text search in a panel: "Find" asks for a text, "Find more" continues with it.
#pragma once

#include <functional>
#include <string>

namespace tarvelo {

struct Workbench;

class TextSearch {
 public:
  // Selects the first occurrence of a text, or the next one after the current place. False if there is none.
  using Seek = std::function<bool(const std::string& text, bool behindCurrent)>;

  TextSearch(Workbench& bench, Seek seek) : bench_(bench), seek_(std::move(seek)) {}

  // Asks for a text, suggesting the last one, and searches from the top.
  void Find();
  // Searches for the last text after the current place; asks for a text if there is none yet.
  void FindMore();

 private:
  void SeekFrom(bool behindCurrent);

  Workbench& bench_;
  Seek seek_;
  std::string text_;
};

}  // namespace tarvelo
