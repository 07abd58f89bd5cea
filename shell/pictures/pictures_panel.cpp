#include "shell/pictures/pictures_panel.h"

#include <wx/clipbrd.h>
#include <wx/image.h>
#include <wx/sizer.h>
#include <wx/splitter.h>
#include <wx/statbox.h>

#include <algorithm>
#include <utility>
#include <vector>

#include "core/notation.h"
#include "pictures/picture_files.h"
#include "pictures/picture_search.h"
#include "pictures/picture_table.h"
#include "shell/pictures/gallery.h"
#include "shell/info/info_panel.h"
#include "shell/list/list_view.h"
#include "shell/frame/main.h"
#include "shell/base/mnemonics.h"
#include "shell/pictures/picture_view.h"
#include "shell/platform/accessible_name.h"
#include "shell/base/strings.h"

namespace tarvelo {
namespace {

constexpr int countPanel = 6;      // of the status bar
constexpr Offset entryLength = 8;  // of a picture table

}  // namespace

PicturesPanel::PicturesPanel(Main& main)
    : Panel({.menuEntry = tarvelo::Pictures, .name = Text::Pictures}),
      main_(main),
      search_(main, [this](const auto& text, bool behind) { return ListP_->Find(text, behind); }),
      commands_(MakeCommands()),
      window_(new wxSplitterWindow(&main, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxSP_LIVE_UPDATE)),
      right_(new wxSplitterWindow(window_, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxSP_LIVE_UPDATE)),
      ListP_(new ListView(window_)) {
  Layout();
  Bind();
}

void PicturesPanel::Layout() {
  const int gap = window_->FromDIP(6);
  auto* top = new wxPanel(right_);
  Frame = new wxStaticBox(top, wxID_ANY, wxString());
  Pic_ = new PictureView(Frame);
  gallery_ = new Gallery(right_);
  auto* box = new wxStaticBoxSizer(Frame, wxVERTICAL);
  box->Add(Pic_, 1, wxEXPAND | wxALL, gap / 2);
  auto* around = new wxBoxSizer(wxVERTICAL);
  around->Add(box, 1, wxEXPAND | wxALL, gap);
  top->SetSizer(around);
  for (wxSplitterWindow* splitter : {window_, right_}) splitter->SetMinimumPaneSize(window_->FromDIP(120));
  right_->SetSashGravity(0.55);
  window_->SetSashGravity(0.5);
  right_->SplitHorizontally(top, gallery_);
  window_->SplitVertically(ListP_, right_);
}

void PicturesPanel::Bind() {
  ListP_->onSelect = [this](std::size_t row) { ShowPicture(row); };
  ListP_->onActivate = [this](std::size_t) { main_.Run(ShowPic); };
  ListP_->onContextMenu = [this] { main_.PopUpCommands(); };
  gallery_->onSelect = [this](std::size_t row) { ListP_->Select(row); };
  gallery_->onActivate = [this](std::size_t) { main_.Run(ShowPic); };
  gallery_->onContextMenu = [this] { main_.PopUpCommands(); };
  Pic_->Bind(wxEVT_RIGHT_UP, [this](wxMouseEvent&) { main_.PopUpCommands(); });
  window_->Bind(wxEVT_CHAR_HOOK, [this](wxKeyEvent& event) {
    const bool copy = event.GetModifiers() == wxMOD_CONTROL && event.GetKeyCode() == 'C';
    if (copy && (gallery_->HasFocus() || Pic_->HasFocus()))
      main_.Run(CopyPic);
    else
      event.Skip();
  });
  main_.AcceptDrops(ListP_->Control());
  main_.AcceptDrops(*gallery_);
  main_.AcceptDrops(*Pic_);
}

wxWindow& PicturesPanel::Window() { return *window_; }

wxWindow& PicturesPanel::FirstFocus() { return ListP_->Control(); }

void PicturesPanel::Build() {
  if (list_.pictures.empty()) GetPictures();
  if (!list_.pictures.empty()) ListP_->Select(0);
  // The splitters have their size only once they are shown.
  if (!std::exchange(placed_, true))
    window_->CallAfter([this] {
      window_->SetSashPosition(std::min(ListP_->BestColumnsWidth(), window_->GetSize().x * 7 / 10));
      right_->SetSashPosition(right_->GetSize().y / 2);
    });
}

void PicturesPanel::GetPictures() {
  const Fullflash& image = main_.Open().image;
  list_ = GetP(image, main_.Status());
  decoder_ = std::make_unique<PictureDecoder>(image.ff());
  ListP_->SetRows(PictureRows(list_, main_.Texts()));
  gallery_->SetPictures(list_.pictures.size(), [this](std::size_t i) { return Draw(list_.pictures[i]); });
  main_.InfoText().AppendText(Wx(PictureInformation(list_, main_.Texts())));
  main_.Status().SetPanel(countPanel,
                          wxString::Format("%zu / %d", list_.pictures.size(), list_.outsideCount));
}

void PicturesPanel::Clear() {
  list_ = PictureList();
  decoder_.reset();
  ListP_->SetRows(PictureRows(list_, main_.Texts()));
  gallery_->SetPictures(0, {});
  Pic_->Show(std::nullopt);
  Frame->SetLabel(wxString());
}

void PicturesPanel::Save() { main_.SaveList(PictureRows(list_, main_.Texts()), 'P'); }

void PicturesPanel::Recaption(const Messages& messages) {
  ListP_->Recaption(messages, Traits().name);
  ListP_->SetCaptions(PictureCaptions(messages));
  platform::SetAccessibleName(*gallery_, Wx(messages.Msg(Traits().name)));
}

Bitmap PicturesPanel::Draw(const Picture& picture) { return decoder_->ShowP(picture, list_.colourSeen); }

const Picture* PicturesPanel::Chosen() const {
  const auto row = ListP_->Selected();
  return row ? &list_.pictures[*row] : nullptr;
}

void PicturesPanel::ShowPicture(std::size_t row) {
  const Picture& picture = list_.pictures[row];
  Frame->SetLabel(Wx(picture.Caption()));
  platform::SetAccessibleName(*Pic_, Wx(picture.Caption()));
  Pic_->Show(Draw(picture));
  gallery_->Select(row);
}

// --- commands ---

PanelCommands PicturesPanel::MakeCommands() {
  const auto chosen = [this] { return Chosen() != nullptr; };
  const auto any = [this] { return !list_.pictures.empty(); };
  return PanelCommands(
      {{.id = ShowPic, .message = Text::ShowPicture, .help = Text::HelpShowPicture, .run = [this] { ShowPic_Click(); }, .enabled = chosen},
       {},
       {.id = SavePic, .message = Text::SavePicture, .help = Text::HelpSavePicture, .run = [this] { SavePic_Click(); }, .enabled = chosen},
       {.id = SaveAllPic, .message = Text::SaveAllPictures, .help = Text::HelpSaveAllPictures, .run = [this] { SaveAllPic_Click(); }, .enabled = any},
       {.id = SavePng,
        .message = Text::SavePngToo,
        .help = Text::HelpSaveTheseToo,
        .run = [this] { savePng_ = !savePng_; },
        .checked = [this] { return savePng_; }},
       {},
       {.id = CopyPic, .message = Text::CopyPicture, .help = Text::HelpCopyPicture, .run = [this] { CopyPic_Click(); }, .enabled = chosen},
       {.id = OffsetP, .message = Text::CopyOffset, .help = Text::HelpCopyNumber, .run = [this] { OffsetP_Click(); }, .enabled = chosen},
       {.id = OpenP, .message = Text::OpenWith, .help = Text::HelpOpenWith, .run = [this] { OpenP_Click(); }, .enabled = chosen},
       {.id = OpenDescP,
        .message = Text::OpenDescriptionWith,
        .help = Text::HelpOpenDescriptionWith,
        .run = [this] { OpenDescP_Click(); },
        .enabled = chosen},
       {},
       {.id = FindP,
        .message = Text::SearchPicture,
        .help = Text::HelpSearchText,
        .shortcut = "Ctrl+F",
        .run = [this] { search_.Find(); },
        .enabled = any},
       {.id = FindMoreP,
        .message = Text::SearchAgain,
        .help = Text::HelpSearchAgain,
        .shortcut = "Ctrl+G",
        .run = [this] { search_.FindMore(); },
        .enabled = any},
       {},
       {.id = ZoomIn, .message = Text::ZoomIn, .help = Text::HelpZoom, .shortcut = "Ctrl++", .run = [this] { Pic_->ZoomBy(1); }},
       {.id = ZoomOut,
        .message = Text::ZoomOut,
        .help = Text::HelpZoom,
        .shortcut = "Ctrl+-",
        .run = [this] { Pic_->ZoomBy(-1); }},
       {.id = ZoomFit, .message = Text::FitToWindow, .help = Text::HelpShowPicture, .run = [this] { Pic_->FitWindow(); }}},
      ShowPic);
}

std::filesystem::path PicturesPanel::Folder() const { return main_.Open().FileDir / "BMP"; }

// Writes a picture as a bitmap, and beside it as PNG if the user wants that too. Returns the bitmap's
// path.
std::filesystem::path PicturesPanel::SaveCurPic(const Picture& picture) {
  const std::string stem = PathText(main_.Open().FileStem.filename());
  if (savePng_) SavePicture(*decoder_, picture, list_.colourSeen, Folder(), stem, PictureFormat::Png);
  return *SavePicture(*decoder_, picture, list_.colourSeen, Folder(), stem, PictureFormat::Bmp);
}

void PicturesPanel::SavePic_Click() {
  const Picture* picture = Chosen();
  if (!picture) return;
  const std::filesystem::path file = SaveCurPic(*picture);
  main_.Tell(Wx(main_.Texts().MsgS(Text::PictureSaved, std::to_string(picture->number))), file);
}

void PicturesPanel::SaveAllPic_Click() {
  if (SaveEach()) main_.Tell(Text::AllPicturesSaved, Folder() / "NNNN.bmp");
}

// Saves all pictures. False when the user stopped it.
bool PicturesPanel::SaveEach() {
  const StatusHint hint(main_.Status(), Wx(main_.Texts().Msg(Text::EscapeStops)));
  ProgressRun run(main_.Status(), 0, static_cast<std::int64_t>(list_.pictures.size()));
  for (const Picture& picture : list_.pictures) {
    run.At(picture.number);
    if (run.StopAsked()) return false;
    SaveCurPic(picture);
  }
  return true;
}

void PicturesPanel::CopyPic_Click() {
  const auto& bitmap = Pic_->GetBitmap();
  if (!Chosen() || !bitmap || bitmap->pixels.empty()) return;
  // At its own size, and without the checkerboard: what is transparent is so in the clipboard too.
  wxImage image = ToImage(*bitmap, 1, wxRect(0, 0, bitmap->width, bitmap->height));
  image.InitAlpha();
  for (int y = 0; y < bitmap->height; ++y)
    for (int x = 0; x < bitmap->width; ++x)
      image.SetAlpha(x, y, bitmap->At(x, y) == backgroundColour ? 0 : 255);
  const wxClipboardLocker lock;
  if (!!lock) wxTheClipboard->SetData(new wxBitmapDataObject(wxBitmap(image)));
}

void PicturesPanel::OffsetP_Click() {
  const Picture* picture = Chosen();
  if (!picture) return;
  main_.Copy(HexColumn(picture->data, 6));
}

void PicturesPanel::OpenP_Click() {
  if (const Picture* picture = Chosen()) main_.ShowBl(picture->data, picture->size);
}

void PicturesPanel::OpenDescP_Click() {
  if (const Picture* picture = Chosen()) main_.ShowBl(picture->entry, entryLength);
}

void PicturesPanel::ShowPic_Click() {
  if (!Chosen()) return;
  Pic_->FitWindow();
  Pic_->SetFocus();
}

}  // namespace tarvelo
