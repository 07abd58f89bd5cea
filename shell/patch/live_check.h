// Checks the patch document against the dump as it was opened, while the user types: a short one before the
// next key, a long one piece by piece once they pause.
#pragma once

#include <wx/timer.h>

#include <functional>
#include <memory>

#include "core/progress.h"
#include "patch/document_check.h"

namespace tarvelo {

class Document;
class PatchEditor;

class LiveCheck {
 public:
  // Calls `done` when a check is complete, and when it is dropped. All must outlive the object.
  LiveCheck(Document& document, PatchEditor& editor, std::function<void()> done);

  // Drops the check, because the text or the image has changed, and checks again when there is time.
  void Restart();
  // The complete check; null while there is none.
  [[nodiscard]] const DocumentCheck* Complete() const;
  // Completes the check at once; null if the user stops it. The document must be open.
  [[nodiscard]] const DocumentCheck* Finish(Progress& progress);

 private:
  void Step(wxIdleEvent& event);
  void Begin();

  Document& document_;
  PatchEditor& editor_;
  std::function<void()> done_;
  std::unique_ptr<DocumentCheck> check_;
  bool isWanted_ = false;
  wxTimer pause_;  // runs while a long document waits for the user to pause
};

}  // namespace tarvelo
