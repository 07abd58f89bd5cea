// Searching in the hex view: goes from hit to hit of what the find bar asks for, and replaces hits.
#pragma once

#include <functional>
#include <string>

#include "resources/texts.h"
#include "text/bytes.h"

namespace tarvelo {

class FindBar;
class HexCanvas;
class Pattern;
struct Workbench;

class HexSearch {
 public:
  // All must outlive the object.
  HexSearch(Workbench& bench, HexCanvas& canvas, FindBar& bar) : bench_(bench), canvas_(canvas), bar_(bar) {}

  // Whether the bar asks for anything.
  [[nodiscard]] bool HasQuery() const;

  // Selects the next hit, or the one before. Both go round at the end of the image and say so.
  void Next();
  void Previous();
  // Lists all hits among the search results.
  void All();
  // Replaces the selected hit and goes to the next one; without a selected hit, only goes to it.
  void Replace();
  // Replaces all hits that do not overlap, as one step.
  void ReplaceAll();

  // Shows a note in the status bar, until Forget is called: when the cursor moves.
  void Say(const std::string& note);
  void Forget();

 private:
  using Command = std::function<void(const std::string& pattern)>;
  // Runs a command with the pattern that the bar asks for; if that is none, tells the user why.
  void With(const Command& command);
  void WithReplacement(const std::string& pattern, const Command& command);
  [[nodiscard]] std::string Read(const std::string& text) const;
  void Guarded(const std::string& text, const std::function<void()>& run);
  void Show(const std::string& pattern, Offset hit);

  Workbench& bench_;
  HexCanvas& canvas_;
  FindBar& bar_;
  bool isNoteShown_ = false;
};

}  // namespace tarvelo
