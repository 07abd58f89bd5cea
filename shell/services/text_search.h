// The search for a text in what a panel shows: "Find" asks for one, "Find more" goes on with it.
#pragma once

#include <functional>
#include <string>

namespace tarvelo {

struct Workbench;

class TextSearch {
 public:
  // Selects the first place of a text, or the next one behind the current place. False: there is none.
  using Seek = std::function<bool(const std::string& text, bool behindCurrent)>;

  TextSearch(Workbench& bench, Seek seek) : bench_(bench), seek_(std::move(seek)) {}

  // Asks for a text, with the last one offered, and seeks it from the top.
  void Find();
  // Seeks the last text behind the current place; asks for one where there is none yet.
  void FindMore();

 private:
  void SeekFrom(bool behindCurrent);

  Workbench& bench_;
  Seek seek_;
  std::string text_;
};

}  // namespace tarvelo
