#include "shell/files/files_panel.h"

#include <wx/dnd.h>

#include <algorithm>
#include <utility>

#include "core/places.h"
#include "files/file_content.h"
#include "files/files_explorer.h"
#include "resources/texts.h"
#include "shell/base/splitter.h"
#include "shell/base/strings.h"
#include "shell/files/file_preview.h"
#include "shell/files/folder_tree.h"
#include "shell/files/piece_list.h"
#include "shell/list/list_view.h"
#include "shell/pictures/picture_view.h"
#include "shell/platform/accessible_name.h"
#include "shell/ringtones/piano_roll.h"
#include "shell/services/ids.h"
#include "shell/services/talk.h"
#include "shell/services/workbench.h"

namespace tarvelo {
namespace {

constexpr std::pair<FileDamage, Text> damages[] = {
    {DamageSecond, Text::FileHasSecond},      {DamageCutOff, Text::FileIsCutOff},
    {DamageUnreadable, Text::FileUnreadable}, {DamageRing, Text::FileInRing},
    {DamageMissing, Text::FolderMisses},      {DamageOrphan, Text::FileIsOrphan},
};

}  // namespace

FilesPanel::FilesPanel(Workbench& bench) : FilesPanel(bench, NewSplitter(bench.frame.Parent())) {}

// The list's parent is the right half, which is the first child of the window.
FilesPanel::FilesPanel(Workbench& bench, wxSplitterWindow* window)
    : ExplorerPanel(bench, filesExplorer, window, NewSplitter(*window)),
      player_(bench),
      transfer_(bench, Choice()),
      window_(window),
      right_(static_cast<wxSplitterWindow*>(List().GetParent())),
      folders_(new FolderTree(window)),
      preview_(new FilePreview(right_)) {
  Layout();
  Bind();
  BindPreview();
}

void FilesPanel::Layout() {
  window_->SetMinimumPaneSize(window_->FromDIP(70));
  right_->SetMinimumPaneSize(window_->FromDIP(70));
  right_->SetSashGravity(0.5);
  right_->SplitHorizontally(&List(), preview_);
  window_->SplitVertically(folders_, right_);
}

void FilesPanel::Bind() {
  folders_->onChoose = [this] {
    ListAgain();
    if (!ChosenRecord()) SelectRecord(0, true);
    if (previewed_ != ChosenRecord()) ShowChosen();
  };
  const auto menu = [this] { bench_.frame.PopUpCommands(wxDefaultPosition); };
  folders_->Bind(wxEVT_DATAVIEW_ITEM_CONTEXT_MENU,
                 [this, menu](wxDataViewEvent&) { window_->CallAfter(menu); });
  folders_->Bind(wxEVT_DATAVIEW_ITEM_ACTIVATED, [this](wxDataViewEvent& event) {
    const wxDataViewItem item = event.GetItem();
    folders_->IsExpanded(item) ? folders_->Collapse(item) : folders_->Expand(item);
  });
  List().Control().EnableDragSource(wxDF_FILENAME);
  List().Control().Bind(wxEVT_DATAVIEW_ITEM_BEGIN_DRAG, &FilesPanel::Drag, this);
  // GTK's lists use Ctrl+P for "one up" and would keep it.
  window_->Bind(wxEVT_CHAR_HOOK, [this](wxKeyEvent& event) {
    if (event.GetModifiers() == wxMOD_CONTROL && event.GetKeyCode() == 'P')
      window_->CallAfter([this] { bench_.frame.Run(Id::Play); });
    else
      event.Skip();
  });
  bench_.frame.AcceptDrops(*folders_);
}

void FilesPanel::BindPreview() {
  PieceList& pieces = preview_->Pieces();
  pieces.Bind(wxEVT_DATAVIEW_ITEM_ACTIVATED,
              [this](wxDataViewEvent&) { window_->CallAfter([this] { bench_.frame.Run(Id::OpenHex); }); });
  pieces.Bind(wxEVT_DATAVIEW_ITEM_CONTEXT_MENU, [this, &pieces](wxDataViewEvent& event) {
    if (event.GetItem().IsOk()) pieces.Select(event.GetItem());
    window_->CallAfter([this] { bench_.frame.PopUpCommands(wxDefaultPosition); });
  });
  PianoRoll& roll = preview_->Roll();
  // Plays after the control has finished handling the click or key; otherwise it would wait for the melody.
  roll.onActivate = [this] { window_->CallAfter([this] { bench_.frame.Run(Id::Play); }); };
  roll.onContextMenu = [this](const wxPoint& place) { bench_.frame.PopUpCommands(place); };
  player_.onTime = [this, &roll](std::optional<std::int64_t> time) {
    roll.SetTime(time);
    if (!window_->IsShown()) player_.Stop();  // another panel was shown, however that happened
  };
  PictureView& picture = preview_->Picture();
  picture.Bind(wxEVT_CONTEXT_MENU, [this, &picture](wxContextMenuEvent& event) {
    const wxSize size = picture.GetClientSize();
    bench_.frame.PopUpCommands(MenuPlace(event, picture, {size.x / 2, size.y / 2}));
  });
  bench_.frame.AcceptDrops(roll);
  bench_.frame.AcceptDrops(picture);
}

// The files go to other programs; a drop on this window is ignored (temporary_folder.h).
void FilesPanel::Drag(wxDataViewEvent& event) {
  std::vector<std::size_t> files = ChosenRecords();
  std::erase_if(files, [this](std::size_t entry) { return Files().entries[entry].isFolder; });
  auto* data = new wxFileDataObject;
  bench_.talk.Guard(Wx(bench_.texts.Msg(Text::SaveFiles)), [&] {
    for (const auto& path : transfer_.SaveToOpen(files)) data->AddFile(WxPath(path));
  });
  if (data->GetFilenames().empty()) {
    delete data;
    event.Veto();
    return;
  }
  event.SetDataObject(data);
  event.SetDragFlags(wxDrag_CopyOnly);
}

void FilesPanel::Build() {
  ExplorerPanel::Build();
  // The splitters get their sizes only once they are shown.
  if (std::exchange(placed_, true)) return;
  window_->CallAfter([this] {
    window_->SetSashPosition(std::min(window_->FromDIP(180), window_->GetSize().x / 4));
    right_->SetSashPosition(right_->GetSize().y * 11 / 20);
  });
}

void FilesPanel::Clear() {
  player_.Stop();
  ExplorerPanel::Clear();
}

void FilesPanel::Recaption(const Messages& messages) {
  ExplorerPanel::Recaption(messages);
  const wxString title = Wx(messages.Msg(Traits().name));
  folders_->SetTitle(title);
  platform::SetAccessibleName(*folders_, title);
  preview_->Recaption(messages);
  ShowChosen();
}

const FileList& FilesPanel::Files() const {
  static const FileList none;
  return Found() ? Found()->As<FileList>() : none;
}

std::function<bool(std::size_t record)> FilesPanel::Narrowing() {
  if (!Found()) {
    folders_->Clear();
    return {};
  }
  folders_->ShowFolders(bench_.document.Image(), *Found(), ShowsDeleted());
  if (folders_->Chosen() == FolderPlace{}) return {};
  return [below = EntriesBelow(Files(), folders_->Chosen())](std::size_t entry) { return below[entry]; };
}

void FilesPanel::ListChanged(bool) {
  previewed_.reset();
  ShowChosen();
}

void FilesPanel::RecordChosen(std::size_t) { ShowChosen(); }

// --- preview ---

void FilesPanel::ShowChosen() {
  const auto chosen = ChosenRecord();
  previewed_ = chosen;
  if (!chosen || *chosen >= Files().entries.size()) {
    previewed_.reset();
    preview_->ShowPieces(false);
    return preview_->ShowNotes(wxString());
  }
  const Fullflash& image = bench_.document.Image();
  const FileEntry& entry = Files().entries[*chosen];
  preview_->Pieces().SetPieces(PiecesOf(image, Files(), entry),
                               [&image](Offset offset) { return OffsetText(image, offset); });
  preview_->ShowPieces(entry.pieceCount > 1);
  if (entry.isFolder) return preview_->ShowNotes(DamageText(entry));
  const Offset size = SizeOf(image, Files(), entry);
  std::vector<std::uint8_t> bytes(static_cast<std::size_t>(std::min(size, FilePreview::mostRead)));
  ContentReader(image.ff(), Files(), entry).Read(bytes);
  preview_->ShowFile(bytes, size, DamageText(entry));
}

wxString FilesPanel::DamageText(const FileEntry& entry) const {
  wxString text;
  for (const auto& [damage, words] : damages)
    if ((entry.damage & damage) != 0) text << (text.empty() ? "" : " ") << Wx(bench_.texts.Msg(words));
  return text;
}

std::optional<Region> FilesPanel::ChosenRegion() const {
  const PieceList& pieces = preview_->Pieces();
  const bool isPreviewed = previewed_ && previewed_ == ChosenRecord();
  if (isPreviewed && pieces.Chosen() > 0) return pieces.Pieces()[pieces.Chosen()];
  return ExplorerPanel::ChosenRegion();
}

// --- commands ---

FileChoice FilesPanel::Choice() {
  return {.list = [this]() -> const FileList& { return Files(); },
          .current = [this] { return ChosenRecord(); },
          .selected = [this] { return ChosenRecords(); },
          .folder = [this] { return EntriesOf(false); },
          .all = [this] { return EntriesOf(true); }};
}

// The listed files of the chosen folder, or of all; the filter does not matter.
std::vector<std::size_t> FilesPanel::EntriesOf(bool all) const {
  const std::vector<bool> below = EntriesBelow(Files(), all ? FolderPlace{} : folders_->Chosen());
  std::vector<std::size_t> entries;
  for (std::size_t i = 0; i < below.size(); ++i)
    if (const FileEntry& entry = Files().entries[i];
        below[i] && !entry.isFolder && (ShowsDeleted() || !entry.isDeleted))
      entries.push_back(i);
  return entries;
}

bool FilesPanel::CanPlay() const { return !preview_->Melody().empty() || preview_->IsSound(); }

ExplorerPanel::OwnCommands FilesPanel::Own() {
  const auto chosen = Chosen();
  return {.first = {{Id::OpenFile, Text::OpenChosenFile, Text::HelpOpenFile, "", [this] { OpenFile_Click(); },
                     chosen},
                    {Id::Play, Text::PlayRingtone, Text::HelpPlayRingtone, "Ctrl+P", [this] { Play_Click(); },
                     [this] { return CanPlay(); }},
                    {.id = Id::StopPlaying,
                     .caption = Text::StopPlaying,
                     .help = Text::HelpStopPlaying,
                     .run = [this] { player_.Stop(); },
                     .enabled = [this] { return player_.IsPlaying(); },
                     .captionEnd = " (Esc)"}},
          .files = transfer_.Commands(),
          .defaultId = Id::OpenFile,
          .search = Text::SearchFile};
}

void FilesPanel::OpenFile_Click() {
  const auto record = ChosenRecord();
  if (!record) return;
  const FileEntry& entry = Files().entries[*record];
  if (!entry.isFolder) return transfer_.OpenFile_Click();
  if (entry.isRoot)
    folders_->Choose({.volume = entry.volume});
  else
    folders_->Choose({.folder = static_cast<std::uint32_t>(*record)});
}

void FilesPanel::Play_Click() {
  if (!CanPlay()) return;
  if (player_.IsPlaying()) return player_.Stop();
  if (preview_->IsSound()) return transfer_.OpenFile_Click();
  List().Refresh();
  player_.PlayRing(MelodyText(preview_->Melody()));
}

}  // namespace tarvelo
