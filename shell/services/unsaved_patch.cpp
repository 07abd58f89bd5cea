#include "shell/services/unsaved_patch.h"

#include "shell/base/strings.h"
#include "shell/services/status_bar.h"
#include "shell/services/talk.h"
#include "shell/services/workbench.h"

namespace tarvelo {

bool WasChanged(Workbench& bench) {
  if (bench.status.Panel(StatusBar::patchPanel).empty()) return false;
  const Messages& texts = bench.texts;
  return !bench.talk.Confirm(Wx(texts.Msg(Text::UnsavedPatch)) + "\n" + Wx(texts.Msg(Text::AskContinue)));
}

}  // namespace tarvelo
