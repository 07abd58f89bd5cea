#include "shell/pictures/pictures_panel.h"

#include <wx/clipbrd.h>
#include <wx/image.h>
#include <wx/sizer.h>
#include <wx/statbox.h>

#include <algorithm>
#include <utility>
#include <vector>

#include "pictures/picture_files.h"
#include "pictures/pictures_explorer.h"
#include "resources/texts.h"
#include "shell/base/splitter.h"
#include "shell/base/strings.h"
#include "shell/list/list_view.h"
#include "shell/pictures/gallery.h"
#include "shell/pictures/picture_view.h"
#include "shell/platform/accessible_name.h"
#include "shell/services/ids.h"
#include "shell/services/save_each.h"
#include "shell/services/talk.h"
#include "shell/services/workbench.h"

namespace tarvelo {
PicturesPanel::PicturesPanel(Workbench& bench) : PicturesPanel(bench, NewSplitter(bench.frame.Parent())) {}

PicturesPanel::PicturesPanel(Workbench& bench, wxSplitterWindow* window)
    : ExplorerPanel(bench, picturesExplorer, window, window), window_(window), right_(NewSplitter(*window)) {
  Layout();
  Bind();
}

void PicturesPanel::Layout() {
  const int gap = window_->FromDIP(6);
  auto* top = new wxPanel(right_);
  box_ = new wxStaticBox(top, wxID_ANY, wxString());
  view_ = new PictureView(box_);
  gallery_ = new Gallery(right_);
  auto* box = new wxStaticBoxSizer(box_, wxVERTICAL);
  box->Add(view_, 1, wxEXPAND | wxALL, gap / 2);
  auto* around = new wxBoxSizer(wxVERTICAL);
  around->Add(box, 1, wxEXPAND | wxALL, gap);
  top->SetSizer(around);
  for (wxSplitterWindow* splitter : {window_, right_}) splitter->SetMinimumPaneSize(window_->FromDIP(120));
  right_->SetSashGravity(0.55);
  window_->SetSashGravity(0.5);
  right_->SplitHorizontally(top, gallery_);
  window_->SplitVertically(&List(), right_);
}

void PicturesPanel::Bind() {
  gallery_->onSelect = [this](std::size_t record) { SelectRecord(record); };
  gallery_->onActivate = [this](std::size_t) { bench_.frame.Run(Id::ShowPic); };
  gallery_->onContextMenu = [this](const wxPoint& place) { bench_.frame.PopUpCommands(place); };
  view_->Bind(wxEVT_CONTEXT_MENU, [this](wxContextMenuEvent& event) {
    const wxSize size = view_->GetClientSize();
    bench_.frame.PopUpCommands(MenuPlace(event, *view_, {size.x / 2, size.y / 2}));
  });
  window_->Bind(wxEVT_CHAR_HOOK, [this](wxKeyEvent& event) {
    const bool copy = event.GetModifiers() == wxMOD_CONTROL && event.GetKeyCode() == 'C';
    if (copy && (gallery_->HasFocus() || view_->HasFocus()))
      bench_.frame.Run(Id::CopyPic);
    else
      event.Skip();
  });
  bench_.frame.AcceptDrops(*gallery_);
  bench_.frame.AcceptDrops(*view_);
}

// Starts with the first picture each time.
void PicturesPanel::Build() {
  ExplorerPanel::Build();
  SelectRecord(0);
  // The splitters get their sizes only once they are shown.
  if (!std::exchange(placed_, true))
    window_->CallAfter([this] {
      window_->SetSashPosition(std::min(List().BestColumnsWidth(), window_->GetSize().x * 7 / 10));
      right_->SetSashPosition(right_->GetSize().y / 2);
    });
}

void PicturesPanel::ListChanged(bool) {
  decoder_.reset();
  const std::size_t count = Pictures().pictures.size();
  if (count > 0) decoder_ = std::make_unique<PictureDecoder>(bench_.document.Image().ff());
  gallery_->SetPictures(count, [this](std::size_t record) { return Draw(Pictures().pictures[record]); });
  if (count > 0) return;
  view_->Show(std::nullopt);
  box_->SetLabel(wxString());
  platform::SetAccessibleName(*view_, Wx(bench_.texts.Msg(Traits().name)));
}

void PicturesPanel::Recaption(const Messages& messages) {
  ExplorerPanel::Recaption(messages);
  const wxString name = Wx(messages.Msg(Traits().name));
  platform::SetAccessibleName(*gallery_, name);
  if (!ChosenPicture()) platform::SetAccessibleName(*view_, name);
}

const PictureList& PicturesPanel::Pictures() const {
  static const PictureList none;
  return Found() ? Found()->As<PictureList>() : none;
}

Bitmap PicturesPanel::Draw(const Picture& picture) { return decoder_->ShowP(picture, Pictures().colourSeen); }

const Picture* PicturesPanel::ChosenPicture() const {
  const auto record = ChosenRecord();
  return record ? &Pictures().pictures[*record] : nullptr;
}

void PicturesPanel::RecordChosen(std::size_t record) {
  const Picture& picture = Pictures().pictures[record];
  box_->SetLabel(Wx(picture.Caption()));
  platform::SetAccessibleName(*view_, Wx(picture.Caption()));
  view_->Show(Draw(picture));
  gallery_->Select(record);
}

// --- commands ---

ExplorerPanel::OwnCommands PicturesPanel::Own() {
  const auto chosen = Chosen();
  const auto any = Any();
  return {
      .first = {{Id::ShowPic, Text::ShowPicture, Text::HelpShowPicture, "", [this] { ShowPic_Click(); },
                 chosen}},
      .copy = {{Id::CopyPic, Text::CopyPicture, Text::HelpCopyPicture, "", [this] { CopyPic_Click(); },
                chosen}},
      .files = {{Id::SavePic, Text::SavePicture, Text::HelpSavePicture, "", [this] { SavePic_Click(); },
                 chosen},
                {Id::SaveAllPic, Text::SaveAllPictures, Text::HelpSaveAllPictures, "",
                 [this] { SaveAllPic_Click(); }, any},
                {Id::SavePng,
                 Text::SavePngToo,
                 Text::HelpSaveTheseToo,
                 "",
                 [this] { savePng_ = !savePng_; },
                 {},
                 [this] { return savePng_; }}},
      .last = {{Id::ZoomIn, Text::ZoomIn, Text::HelpZoom, "Ctrl++", [this] { view_->ZoomBy(1); }},
               {Id::ZoomOut, Text::ZoomOut, Text::HelpZoom, "Ctrl+-", [this] { view_->ZoomBy(-1); }},
               {Id::ZoomFit, Text::FitToWindow, Text::HelpShowPicture, "", [this] { view_->FitWindow(); }}},
      .defaultId = Id::ShowPic,
      .search = Text::SearchPicture};
}

std::filesystem::path PicturesPanel::Folder() const { return bench_.document.FileDir() / "BMP"; }

// Writes a picture as a bitmap, and as PNG beside it if the user wants that too. Returns the path of the
// bitmap.
std::filesystem::path PicturesPanel::SaveCurPic(const Picture& picture) {
  const std::string stem = PathText(bench_.document.FileStem().filename());
  if (savePng_) SavePicture(*decoder_, picture, Pictures().colourSeen, Folder(), stem, PictureFormat::Png);
  return *SavePicture(*decoder_, picture, Pictures().colourSeen, Folder(), stem, PictureFormat::Bmp);
}

void PicturesPanel::SavePic_Click() {
  const std::vector<std::size_t> records = ChosenRecords();
  if (records.size() > 1) return SaveSelected(records);
  const Picture* picture = ChosenPicture();
  if (!picture) return;
  const std::filesystem::path file = SaveCurPic(*picture);
  bench_.talk.Tell(Wx(bench_.texts.MsgS(Text::PictureSaved, std::to_string(picture->number))), file);
}

void PicturesPanel::SaveSelected(const std::vector<std::size_t>& records) {
  const auto save = [&](std::size_t i) { SaveCurPic(Pictures().pictures[records[i]]); };
  if (!SaveEach(bench_, records.size(), save)) return;
  bench_.talk.Tell(Wx(bench_.texts.Msg(Text::PicturesSavedLabel)) << records.size(), Folder());
}

void PicturesPanel::SaveAllPic_Click() {
  const auto save = [this](std::size_t i) { SaveCurPic(Pictures().pictures[i]); };
  if (SaveEach(bench_, Pictures().pictures.size(), save))
    bench_.talk.Tell(Text::AllPicturesSaved, Folder() / "NNNN.bmp");
}

void PicturesPanel::CopyPic_Click() {
  const auto& bitmap = view_->GetBitmap();
  if (!ChosenPicture() || !bitmap || bitmap->pixels.empty()) return;
  // At its own size and without the checkerboard: transparent pixels stay transparent in the clipboard.
  wxImage image = ToImage(*bitmap, 1, wxRect(0, 0, bitmap->width, bitmap->height));
  image.InitAlpha();
  for (int y = 0; y < bitmap->height; ++y)
    for (int x = 0; x < bitmap->width; ++x)
      image.SetAlpha(x, y, bitmap->At(x, y) == backgroundColour ? 0 : 255);
  const wxClipboardLocker lock;
  if (!!lock) wxTheClipboard->SetData(new wxBitmapDataObject(wxBitmap(image)));
}

void PicturesPanel::ShowPic_Click() {
  if (!ChosenPicture()) return;
  view_->FitWindow();
  view_->SetFocus();
}

}  // namespace tarvelo
