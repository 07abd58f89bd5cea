#include "shell/services/save_each.h"

#include "resources/texts.h"
#include "shell/base/strings.h"
#include "shell/services/status_bar.h"
#include "shell/services/workbench.h"

namespace tarvelo {

bool SaveEach(Workbench& bench, std::size_t count, const std::function<void(std::size_t index)>& save) {
  const StatusHint hint(bench.status, Wx(bench.texts.Msg(Text::EscapeStops)));
  ProgressRun run(bench.status, 0, static_cast<std::int64_t>(count));
  for (std::size_t i = 0; i < count; ++i) {
    run.At(static_cast<std::int64_t>(i));
    if (run.StopAsked()) return false;
    save(i);
  }
  return true;
}

}  // namespace tarvelo
