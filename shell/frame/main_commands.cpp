// The main window's commands: opening, saving, leaving, and what happens when one fails.
#include <wx/clipbrd.h>
#include <wx/menu.h>
#include <wx/stdpaths.h>

#include <utility>

#include "core/summary.h"
#include "shell/patch/apply_patch.h"
#include "shell/calculator/calc166.h"
#include "shell/compare/compare_panel.h"
#include "shell/hex/hex_panel.h"
#include "shell/search/hits_panel.h"
#include "shell/info/info_panel.h"
#include "shell/frame/main.h"
#include "shell/services/panel_commands.h"
#include "shell/patch/patch_panel.h"
#include "shell/base/product.h"
#include "shell/base/program_files.h"
#include "shell/base/strings.h"
#include "shell/base/window_place.h"
#include "text/unicode.h"

namespace tarvelo {

void Main::AddCommands() {
  commands_ = {
      {OpenFF, [this] { OpenFF_Click(); }},
      {Save, [this] { Save_Click(); }},
      {SaveAs, [this] { SaveAs_Click(); }},
      {SaveText, [this] { SaveText_Click(); }},
      {View, [this] { View_Click(); }},
      {Quillo, [this] { Quillo_Click(); }},
      {Search, [this] { hits_->Search_Click(); }},
      {CompareWith, [this] { compare_->CompareWith_Click(); }},
      {ApplyPatch, [this] { ApplyPatch_Click(*this); }},
      {Help, [this] { Help_Click(); }},
      {Calculator, [this] { tools_.Calculator(); }},
      {Calc166_Menu, [this] { Calc166_Menu_Click(); }},
      {ExitM, [this] { ExitM_Click(); }},
      {About, [this] { About_Click(); }},
  };
  for (int i = 0; i < static_cast<int>(RecentFiles::count); ++i)
    commands_[File1 + i] = [this, i] { OpenChosen(PathOf(recent_[static_cast<std::size_t>(i)])); };
  for (int i = 0; i <= LastLanguage - FirstLanguage; ++i)
    commands_[FirstLanguage + i] = [this, i] { ApplyLang(Languages()[static_cast<std::size_t>(i)]); };
}

void Main::Run(int id) {
  if (const PanelCommands* own = visible_ ? visible_->Commands() : nullptr; own && own->Find(id)) {
    if (own->CanRun(id)) RunGuarded(Msg(own->Find(id)->message), own->Find(id)->run);
    return;
  }
  const auto command = commands_.find(id);
  if (command == commands_.end()) return;
  const wxMenuItem* entry = GetMenuBar()->FindItem(id);
  RunGuarded(entry ? entry->GetItemLabelText() : wxString(), command->second);
  // The tick that the click itself has changed follows the panel again.
  menus_->CheckPanel(visible_ ? visible_->Traits().menuEntry : MenuNone);
}

void Main::PopUpCommands() {
  const PanelCommands* own = visible_ ? visible_->Commands() : nullptr;
  if (own) Run(own->PopUp(visible_->Window(), messages_));
}

void Main::RunGuarded(const wxString& name, const std::function<void()>& command) try {
  command();
} catch (const FileError& error) {
  TellFileError(error);
} catch (const std::out_of_range& fault) {
  TellFault(name, std::string(messages_.Msg(Text::ReadPastEnd)) + "\n" + fault.what());
} catch (const std::overflow_error& fault) {
  TellFault(name, std::string(messages_.Msg(Text::ImageNumberTooLarge)) + "\n" + fault.what());
} catch (const std::bad_alloc&) {
  TellFault(name, std::string(messages_.Msg(Text::NotEnoughMemory)));
} catch (const std::exception& fault) {
  TellFault(name, fault.what());
}

void Main::TellFault(const wxString& command, const std::string& cause) {
  Complain(Wx(messages_.MsgS(Text::CommandFailed, Utf8(command))) + "\n\n" + Wx(cause));
}

void Main::TellFileError(const FileError& error) {
  Text text = Text::CantOpenFile;
  if (error.Reason() == FileError::Kind::TooLarge) text = Text::FileTooLarge;
  if (error.Reason() == FileError::Kind::CantWrite) text = Text::CantWriteFile;
  const Text advice = error.OpenedTo() == FileError::Purpose::Write ? Text::AdviceOnWriting : Text::AdviceOnReading;
  wxString told = Msg(text) + "\n\n" + WxPath(error.Path());
  if (error.Reason() != FileError::Kind::TooLarge) told += "\n\n" + Msg(advice);
  Complain(told);
}

bool Main::fOpenErr(const std::function<void()>& access) try {
  access();
  return false;
} catch (const FileError& error) {
  TellFileError(error);
  return true;
}

void Main::Tell(const wxString& text) { dialogs_->Message(text, Dialogs::Icon::Information); }

void Main::Tell(const wxString& text, const std::filesystem::path& path) {
  Tell(text + "\n\n" + WxPath(path));
}

void Main::Tell(int n, const std::filesystem::path& path) { Tell(Msg(n), path); }

void Main::Complain(const wxString& text) { dialogs_->Message(text, Dialogs::Icon::Critical); }

void Main::Announce(const wxString& title, const wxString& text) {
  dialogs_->Announce(wxString(productName) + " - " + title, text);
}

std::optional<std::string> Main::Ask(int n, const std::string& initial) {
  const auto answer = dialogs_->Ask(Msg(n), Wx(initial));
  if (!answer || answer->empty()) return {};
  return Utf8(*answer);
}

std::optional<std::string> Main::AskPattern() {
  const wxString examples = "\n\nExamples:\nE6,FC,41,00,E6\nE6??4100E6\ne6??41,00 e6";
  const auto answer = dialogs_->Ask(Msg(Text::AskSearchString) + examples, Wx(lastPattern_));
  if (!answer || answer->empty()) return {};
  lastPattern_ = Utf8(*answer);
  return lastPattern_;
}

bool Main::Confirm(const wxString& question) { return dialogs_->Confirm(question); }

void Main::Copy(const std::string& text) {
  const wxClipboardLocker lock;
  if (!!lock) wxTheClipboard->SetData(new wxTextDataObject(Wx(text)));
}

std::string Main::CopiedText() const {
  const wxClipboardLocker lock;
  wxTextDataObject text;
  return !!lock && wxTheClipboard->GetData(text) ? Utf8(text.GetText()) : std::string();
}

void Main::ShowBl(Offset start, Offset size) {
  if (start < 0 || start > document_.image.ffEnd()) return Complain(Msg(Text::DataOutsideImage));
  if (!tools_.ShowBl(document_.path, start, size)) ShowHex(start, size);
}

void Main::ShowHex(Offset start, Offset size) {
  if (start < 0 || start > document_.image.ffEnd()) return Complain(Msg(Text::DataOutsideImage));
  ShowPanel(*hex_);
  hex_->Go(start, size);
}

wxString Main::DumpFilter() const { return Msg(Text::Fullflash) + " (*.bin,*.fls)|*.bin;*.fls|" + Msg(Text::AllFiles) + "|*.*"; }

std::filesystem::path Main::Documents() const {
  return documents_.empty() ? PathFrom(wxStandardPaths::Get().GetDocumentsDir()) : documents_;
}

bool Main::WasChanged() {
  if (status_->Panel(StatusBar::patchPanel).empty()) return false;
  return !dialogs_->Confirm(Msg(Text::UnsavedPatch) + "\n" + Msg(Text::AskContinue));
}

void Main::OpenChosen(const std::filesystem::path& path) {
  RunGuarded(Msg(Text::Open), [&] {
    if (!WasChanged()) OpenF(path);
  });
}

void Main::OpenWhenShown(const std::string& name) {
  openWhenIdle_ = name;
  Bind(wxEVT_IDLE, [this](wxIdleEvent& event) {
    event.Skip();
    if (const std::string file = std::exchange(openWhenIdle_, {}); !file.empty()) OpenNamed(file);
  });
}

void Main::OpenNamed(const std::string& name) {
  if (ToUpper(name).ends_with("ADR")) return Complain(Msg(Text::CantOpenAddressBooks) + "\n\n" + Wx(name));
  std::error_code error;
  const std::filesystem::path path = std::filesystem::absolute(PathOf(name), error);
  OpenChosen(error ? PathOf(name) : path);
}

void Main::OpenFF_Click() {
  if (WasChanged()) return;
  const auto path = AskForDump(Text::Open, document_.path);
  if (path) OpenF(*path);
}

std::optional<std::filesystem::path> Main::AskForDump(int n, const std::filesystem::path& current) {
  return dialogs_->OpenFile(Msg(n), DumpFilter(), current);
}

void Main::OpenF(const std::filesystem::path& path) {
  CloseFF();
  if (!GetInfo(path)) return;
  document_.FileName = ToUpper(PathText(path));
  UpdateMenus();
  if (calculator_) calculator_->BaseChanged();
  recent_.Add(PathText(path));
  menus_->ShowRecent(recent_);
}

std::optional<Fullflash> Main::ReadDump(const std::filesystem::path& path) {
  Fullflash image;
  if (fOpenErr([&] { image = Fullflash::Load(path, *status_); })) return {};
  if (image.IsOpen()) return image;
  Complain(Msg(Text::FileEmpty) + "\n\n" + WxPath(path));
  return {};
}

// Reads and identifies a dump and writes the summary. False where there is nothing to show.
bool Main::GetInfo(const std::filesystem::path& path) {
  auto image = ReadDump(path);
  if (!image) return false;
  Document opened;
  opened.image = std::move(*image);
  opened.SetPath(path);
  opened.FileDir = path.parent_path();
  opened.info = Identify(opened.image);
  info_->SetText(Wx(Summary(PathText(path), opened.image, opened.info, messages_)));
  status_->SetPanel(1, WxPath(path));
  status_->SetPanel(2, Wx(opened.info.StatusText()));
  document_ = std::move(opened);
  return true;
}

void Main::CloseFF() {
  document_.Close();
  for (const auto& panel : panels_) panel->Clear();
  status_->ClearFrom(2);
  UpdateMenus();
  ShowPanel(*info_);
}

void Main::WriteImage(Offset offset, Bytes bytes) {
  document_.edits.Write(document_.image, offset, bytes);
  ImageChanged();
}

void Main::WriteImage(std::span<const Change> changes) {
  document_.edits.Write(document_.image, changes);
  ImageChanged();
}

std::optional<ImageEdits::Region> Main::UndoImage() {
  const auto region = document_.edits.Undo(document_.image);
  if (region) ImageChanged();
  return region;
}

std::optional<ImageEdits::Region> Main::RedoImage() {
  const auto region = document_.edits.Redo(document_.image);
  if (region) ImageChanged();
  return region;
}

// Writing what stands there already is no step, and then there may be none at all.
void Main::ImageChanged() {
  if (document_.edits.CanUndo()) status_->SetPanel(StatusBar::imagePanel, "F");
  for (const auto& panel : panels_) panel->ImageChanged();
}

void Main::Save_Click() { SaveTo(document_.path); }

// Writes the image to a file, which is from then on the document's.
void Main::SaveTo(const std::filesystem::path& path) {
  if (fOpenErr([&] {
        if (FileExist(path)) RemoveFile(path);
        WriteFile(path, document_.image.ff(), *status_);
      }))
    return;
  document_.SetPath(path);
  status_->SetPanel(1, Wx(document_.FileName));
  beeper_->Beep(12000, 300);
}

void Main::SaveAs_Click() {
  const auto path = dialogs_->SaveFile(Msg(Text::SaveAs), DumpFilter(), document_.path);
  if (path) SaveTo(*path);
}

void Main::SaveText_Click() {
  if (visible_)
    visible_->Save();
  else
    Complain(Msg(Text::NoDataToSave));
}

void Main::SaveList(const Table& table, char letter) { SaveList(RowsOf(table), letter); }

void Main::SaveList(const TableRows& table, char letter) {
  const std::filesystem::path file = document_.Beside(std::string("_") + letter + ".txt");
  ReplaceFile(file, [&](const TextSink& write) { WriteTabSeparated(table, CrLf, write); });
  document_.FileName = PathText(file);
  Tell(Text::ListSaved, file);
}

void Main::View_Click() {
  if (!tools_.View(document_.path)) ShowHex(0, 0);
}

void Main::Quillo_Click() {
  if (!status_->Panel(StatusBar::patchPanel).empty()) patch_->SavePatch();
  tools_.Quillo(document_.Beside(".qpt"));
}

// Shows the calculator, or closes it. Its tick tells whether it is open.
void Main::Calc166_Menu_Click() {
  if (calculator_) {
    calculator_->Close();
    return;
  }
  calculator_ = new Calc166(this, messages_,
                            {.corrBase = [this] { return document_.image.CorrBase(); },
                             .show =
                                 [this](Offset offset) {
                                   if (document_.IsOpen()) RunGuarded(Msg(Text::HexView), [&] { ShowHex(offset, 1); });
                                 },
                             .closed =
                                 [this] {
                                   calculator_ = nullptr;
                                   GetMenuBar()->Check(Calc166_Menu, false);
                                 }});
  calculator_->CentreOnParent();
  calculator_->Show();
  GetMenuBar()->Check(Calc166_Menu, true);
}

void Main::Help_Click() {
  const std::filesystem::path page = DataFolder() / PathFrom(Msg(Text::ManualFile));
  if (!FileExist(page)) return Complain(Wx(messages_.MsgS(Text::FileNotFound, PathText(page))));
  launcher_->OpenWithSystem(page);
}

void Main::About_Click() {
  dialogs_->Message(wxString(productTitle) + "\n\n" + Msg(Text::AboutProgram), Dialogs::Icon::Information);
}

void Main::ExitM_Click() {
  if (WasChanged()) return;
  StoreSettings();
  Destroy();
}

void Main::StoreSettings() {
  tools_.Forget();
  recent_.Write(settings_);
  StorePlace(*this, settings_);
}

void Main::Form_Unload(wxCloseEvent& event) {
  if (event.CanVeto() && WasChanged()) {
    event.Veto();
    return;
  }
  status_->SetPanel(StatusBar::patchPanel, wxString());  // the question is not asked twice
  ExitM_Click();
}

void Main::QueryEndSession(wxCloseEvent& event) {
  if (event.CanVeto() && WasChanged()) event.Veto();
}

void Main::EndSession(wxCloseEvent&) { StoreSettings(); }

}  // namespace tarvelo
