#include "shell/menu_help.h"

#include <algorithm>
#include <array>

#include "shell/menu_table.h"

namespace tarvelo {
namespace {

struct HelpText {
  int message;
  std::array<int, 7> ids;  // of all that do the same; unused ones are MenuNone
};

constexpr HelpText helpTexts[] = {
    {330, {OpenFF}},
    {331, {Save}},
    {332, {SaveAs}},
    {333, {SaveText}},
    {334, {View}},
    {336, {ExitM}},
    {337, {Info}},
    {338, {Menu, Langpack, Files, AddrBook, StFun, StPat}},
    {339, {EEPROM}},
    {340, {Pictures}},
    {341, {Ringtones}},
    {342, {Dump}},
    {343, {HexView, OpenHit, OpenD, OpenDifference}},
    {344, {Hits}},
    {345, {ComparePanelMenu}},
    {346, {PatchMenu}},
    {347, {Search}},
    {348, {CompareWith}},
    {349, {ApplyPatch}},
    {350, {Calc166_Menu}},
    {351, {Calculator}},
    {352, {Quillo}},
    {354, {Help}},
    {355, {About}},
    {356, {ShowPic, ZoomFit}},
    {357, {ZoomIn, ZoomOut}},
    {359, {SavePic}},
    {360, {SaveAllPic}},
    {361, {SavePng, SaveMidi}},
    {362, {CopyPic}},
    {363, {OffsetP, OffsetE, OffsetR, OffsetHit, OffsetD, OffsetDifference, CopyOffset}},
    {363, {AddressD, AddressDifference}},
    {364, {OpenP, OpenE, OpenR}},
    {365, {OpenDescP, OpenDescE, OpenDescR}},
    {366, {FindP, FindE, FindPatch}},
    {367, {FindMoreP, FindMoreE, FindMorePatch}},
    {368, {ShowDel, DeletedBlocksE}},
    {369, {InfoE}},
    {371, {Play}},
    {372, {StopPlaying}},
    {373, {PlayText}},
    {374, {Autoplay}},
    {375, {SaveRing}},
    {376, {SaveAllRing}},
    {377, {CopyR}},
    {378, {GoTo}},
    {379, {CopyHex}},
    {380, {CopyText}},
    {381, {FindBytes}},
    {382, {FindNext, NextHit, NextD, NextDifference}},
    {383, {FindPrevious, PreviousHit, PreviousD, PreviousDifference}},
    {384, {SelectBytes, SelectPatch}},
    {385, {UndoBytes, UndoPatch}},
    {386, {RedoBytes, RedoPatch}},
    {387, {PasteHex}},
    {388, {FillBytes}},
    {389, {SwitchSide}},
    {390, {ChangesToPatch, DifferencesToPatch}},
    {391, {CutPatch}},
    {392, {CopyPatch}},
    {393, {PastePatch}},
    {394, {SavePatchFile}},
    {395, {SaveBlockE}},
    {396, {SaveAllBlockE}},
    {397, {LoadBlockE, LoadRing}},
    {398, {LoadAllBlockE, LoadAllRing}},
    {399, {BackupE}},
};

constexpr int recentFile = 335;
constexpr int language = 353;
constexpr int viewer = 370;

}  // namespace

int HelpOf(int id) {
  if (id == MenuNone) return 0;
  if (id >= File1 && id <= File5) return recentFile;
  if (id >= FirstLanguage && id <= LastLanguage) return language;
  if (id >= FirstViewer && id <= LastViewer) return viewer;
  const auto holds = [id](const HelpText& text) { return std::ranges::find(text.ids, id) != text.ids.end(); };
  const auto* const found = std::ranges::find_if(helpTexts, holds);
  return found == std::end(helpTexts) ? 0 : found->message;
}

}  // namespace tarvelo
