// Text search in a panel: "Find" asks for a text, "Find more" continues with it.
#pragma once

#include <functional>
#include <string>

namespace tarvelo {

struct Workbench;

// Where a search begins: at the top, or at the current place, forwards or backwards.
enum class SearchFrom { Top, Behind, Before };

class TextSearch {
 public:
  // Selects the first occurrence of a text from there on. False if there is none.
  using Seek = std::function<bool(const std::string& text, SearchFrom from)>;

  TextSearch(Workbench& bench, Seek seek) : bench_(bench), seek_(std::move(seek)) {}

  // Asks for a text, suggesting the last one, and searches from the top.
  void Find();
  // Searches for the last text after the current place; asks for a text if there is none yet.
  void FindMore();
  // The same backwards.
  void FindPrevious();

 private:
  void SeekFrom(SearchFrom from);

  Workbench& bench_;
  Seek seek_;
  std::string text_;
};

}  // namespace tarvelo
