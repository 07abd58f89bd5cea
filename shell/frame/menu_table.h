// The menu bar as data: which entries it has, where, with which caption and shortcut.
#pragma once

#include <wx/defs.h>

#include <span>

namespace tarvelo {

// The commands, by their names.
enum MenuId : int {
  MenuNone = 0,  // a separator, in the table
  OpenFF = wxID_HIGHEST + 1,
  Save,
  SaveAs,
  SaveText,
  View,
  File1,
  File5 = File1 + 4,
  ExitM,
  Info,
  Menu,
  EEPROM,
  Langpack,
  Pictures,
  Ringtones,
  Files,
  Dump,
  AddrBook,
  HexView,
  ComparePanelMenu,
  Hits,
  PatchMenu,
  Search,
  StFun,
  StPat,
  Calc166_Menu,
  Calculator,
  Quillo,
  CompareWith,
  ApplyPatch,
  FirstLanguage,  // the twelve, in the order of Languages()
  LastLanguage = FirstLanguage + 11,
  Help,
  About,

  // --- of the panels (panel_commands.h) ---
  ShowPic,
  SavePic,
  SaveAllPic,
  SavePng,
  CopyPic,
  OffsetP,
  OpenP,
  OpenDescP,
  FindP,
  FindMoreP,
  ZoomIn,
  ZoomOut,
  ZoomFit,

  ShowDel,
  OpenE,
  OpenDescE,
  InfoE,
  OffsetE,
  FindE,
  FindMoreE,
  FirstViewer,  // of KnownBlocks, in the order of ViewerEntry
  LastViewer = FirstViewer + 18,

  Play,
  StopPlaying,
  PlayText,
  Autoplay,
  SaveRing,
  SaveAllRing,
  SaveMidi,
  CopyR,
  OffsetR,
  OpenR,
  OpenDescR,

  GoTo,
  CopyHex,
  CopyText,
  CopyOffset,
  FindBytes,
  FindNext,
  FindPrevious,
  SelectBytes,
  UndoBytes,
  RedoBytes,
  PasteHex,
  FillBytes,
  SwitchSide,
  ChangesToPatch,

  OpenHit,
  OffsetHit,
  NextHit,
  PreviousHit,

  UndoPatch,
  RedoPatch,
  CutPatch,
  CopyPatch,
  PastePatch,
  SelectPatch,
  FindPatch,
  FindMorePatch,
  SavePatchFile,

  SaveBlockE,
  SaveAllBlockE,
  DeletedBlocksE,
  LoadBlockE,
  LoadAllBlockE,
  BackupE,

  LoadRing,
  LoadAllRing,

  OpenD,
  OffsetD,
  AddressD,
  NextD,
  PreviousD,

  OpenDifference,
  OffsetDifference,
  AddressDifference,
  NextDifference,
  PreviousDifference,
  DifferencesToPatch,
};

struct MenuEntry {
  int id;                     // MenuNone: a separator
  int message = 0;            // its caption; 0: a separator, or one that Menus captions itself
  int help = 0;               // the message that the status bar shows while it is highlighted
  const char* shortcut = "";  // as wx writes it: "Ctrl+O"
  bool needsDocument = false;
  wxItemKind kind = wxITEM_NORMAL;
};

struct MenuGroup {
  int message;  // its title
  std::span<const MenuEntry> entries;
};

// The whole bar, but for the recent files and the languages, which menus.h puts in their places.
[[nodiscard]] std::span<const MenuGroup> MenuBarTable();

// The entries in it that show panels, of which the visible one has a tick.
[[nodiscard]] std::span<const MenuEntry> PanelEntries();

}  // namespace tarvelo
