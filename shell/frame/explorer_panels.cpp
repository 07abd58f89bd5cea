#include "shell/frame/explorer_panels.h"

#include "shell/eeprom/eeprom_panel.h"
#include "shell/files/files_panel.h"
#include "shell/list/explorer_panel.h"
#include "shell/pictures/pictures_panel.h"
#include "shell/ringtones/ringtones_panel.h"

namespace tarvelo {
namespace {

template <typename P>
std::unique_ptr<Panel> Make(Workbench& bench) {
  return std::make_unique<P>(bench);
}

struct Maker {
  std::string_view key;
  std::unique_ptr<Panel> (*make)(Workbench& bench);
};

// The explorers that have panels of their own.
constexpr Maker makers[] = {
    {"eeprom", Make<EepromPanel>},
    {"files", Make<FilesPanel>},
    {"pictures", Make<PicturesPanel>},
    {"ringtones", Make<RingtonesPanel>},
};

}  // namespace

std::unique_ptr<Panel> MakePanel(const Explorer& explorer, Workbench& bench) {
  for (const auto& [key, make] : makers)
    if (key == explorer.key) return make(bench);
  return std::make_unique<ExplorerPanel>(bench, explorer);
}

}  // namespace tarvelo
