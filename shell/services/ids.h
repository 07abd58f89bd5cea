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
  OpenPatch,
  ApplyPatch,
  TakeNamesFrom,
  FindNames,
  FirstLanguage,  // twelve, in the order of Languages()
  LastLanguage = FirstLanguage + 11,
  Help,
  About,
  Demonstration,
  SecondDemonstration,
  GoBack,
  GoForward,

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
  ShowInPatch,
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

  OpenFile,
  SaveFiles,
  SaveFolder,
  SaveAllFiles,
  ReplaceFile,

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
  SavePatchAs,
  ClosePatch,
  FirstRecentPatch,
  LastRecentPatch = FirstRecentPatch + 4,
  ApplyThisPatch,
  TakeOutPatch,
  ReversePatch,
  AddPatchFile,
  SplitPatch,
  NextProblem,
  PreviousProblem,
  DifferencesToPatch,
  CarryPatch,

  FollowTarget,
  CopyWithBytes,
  CopyPagePointer,
  CopySegmentPointer,
  CopyAsPattern,
  FindAlike,
  StateDpps,
  ShowFunctions,
  FunctionsBeside,
  ChangeAsCode,

  // --- of the hex view ---
  ShowValues,
  EditValue,
  SelectRegion,
  CopyCArray,
  CopyPatchLines,
  WriteFileHere,
  FirstColumns,  // 8, 16, 32 bytes in a row, as many as fit
  LastColumns = FirstColumns + 3,
  FirstEncoding,  // in the order of TextEncoding
  LastEncoding = FirstEncoding + 3,
  UsualSize,
  MapColours,
  NextChange,
  PreviousChange,
  NextName,
  PreviousName,
  ShowOther,
};

}  // namespace tarvelo::Id
