// The ids of commands, used by menu entries, buttons and shortcuts.
#pragma once

#include <wx/defs.h>

namespace tarvelo::Id {

enum : int {
  None = 0,
  OpenFF = wxID_HIGHEST + 1,
  Save,
  SaveAs,
  SaveText,
  View,
  File1,
  File5 = File1 + 4,
  ExitM,
  Search,
  StFun,
  StPat,
  Calc166_Menu,
  Calculator,
  Quillo,
  CompareWith,
  ApplyPatch,
  FirstLanguage,  // twelve, in the order of Languages()
  LastLanguage = FirstLanguage + 11,
  Help,
  About,
  Demonstration,
  GoBack,
  GoForward,
  PanelBar,
  OpenInNewWindow,
  Continue,
  CompareRecent,  // a submenu of these
  CompareRecent1,
  CompareRecent5 = CompareRecent1 + 4,

  // --- panels ---
  Info,
  Menu,
  Langpack,
  Dump,
  AddrBook,
  HexView,
  ComparePanel,
  CodeView,
  References,
  Hits,
  PatchMenu,
  FirstExplorer,  // in the order of Explorers()
  LastExplorer = FirstExplorer + 31,

  // --- of every list (shell/list) ---
  OpenData,   // of the chosen row, in the user's hex editor
  OpenEntry,  // the header or table entry that describes it
  OpenHex,    // the data in the hex view
  OpenCode,   // as code
  WhoRefers,
  NamePlace,
  CommentPlace,
  WhatLiesHere,
  CopyOffset,
  CopyAddress,
  CopyRows,
  Find,
  FindMore,
  Next,
  Previous,
  ShowDel,

  // --- of single panels ---
  ShowPic,
  SavePic,
  SaveAllPic,
  SavePng,
  CopyPic,
  ZoomIn,
  ZoomOut,
  ZoomFit,

  InfoE,
  ShowBlock,
  SaveBlock,
  SaveAllBlock,
  DeletedBlocks,
  LoadBlock,
  LoadAllBlock,
  eeBackup,
  FirstViewer,  // of KnownBlocks, in the order of ViewerEntry
  LastViewer = FirstViewer + 18,

  Play,
  StopPlaying,
  PlayText,
  Autoplay,
  SaveRing,
  SaveAllRing,
  SaveMidi,
  LoadRing,
  LoadAllRing,
  CopyR,

  GoTo,
  CopyHex,
  CopyText,
  SelectAll,
  Undo,
  Redo,
  Cut,
  Copy,
  Paste,
  FillBytes,
  SwitchSide,
  ChangesToPatch,
  SelectedToPatch,
  SavePatch,
  DifferencesToPatch,

  FollowTarget,
  CopyWithBytes,
  CopyPagePointer,
  CopySegmentPointer,
  CopyAsPattern,
  FindAlike,
  StateDpps,
  ShowFunctions,
  ChangeAsCode,
};

}  // namespace tarvelo::Id
