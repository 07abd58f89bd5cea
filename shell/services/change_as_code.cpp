#include "shell/services/change_as_code.h"

#include "document/code_change.h"
#include "shell/base/strings.h"
#include "shell/services/search_progress.h"
#include "shell/services/talk.h"
#include "shell/services/workbench.h"

namespace tarvelo {

void ShowChangeAsCode(Workbench& bench, const Change& change) {
  Document& document = bench.document;
  if (!document.Image().PageMode()) return bench.talk.Complain(Text::NoCodeInLargeImage);
  SearchProgress progress(bench);
  const std::string text = InstructionsOf(change, document.Image(), *document.Functions(progress));
  if (text.empty()) return bench.talk.Complain(Text::DataOutsideImage);
  bench.talk.Announce(Wx(bench.texts.Msg(Text::ChangeAsCode)), Wx(text));
}

}  // namespace tarvelo
