#include "shell/frame/dump_commands.h"

#include <wx/filesys.h>

#include <algorithm>
#include <charconv>
#include <utility>

#include "resources/texts.h"
#include "shell/base/strings.h"
#include "shell/frame/demonstration.h"
#include "shell/frame/menus.h"
#include "shell/frame/panel_stack.h"
#include "shell/info/info_panel.h"
#include "shell/patch/apply_patch.h"
#include "shell/platform/beeper.h"
#include "shell/services/dump_files.h"
#include "shell/services/panel.h"
#include "shell/services/status_bar.h"
#include "shell/services/talk.h"
#include "shell/services/unsaved_patch.h"
#include "shell/settings/settings.h"
#include "text/unicode.h"

namespace tarvelo {

DumpCommands::DumpCommands(Workbench& bench, PanelStack& panels, Menus& menus, InfoPanel& info,
                           std::function<void()> changed)
    : bench_(bench), panels_(panels), menus_(menus), info_(info), changed_(std::move(changed)) {
  recent_.Read(bench.settings);
  watch_ = bench.document.OnModel([this] { ShowModel(); });
}

// --- opening ---

void DumpCommands::OpenF(const std::filesystem::path& path) {
  if (IsPatchFile(path)) return OpenPatch(path);
  CloseFF();
  if (!GetInfo(path)) return;
  changed_();
  recent_.Add(PathText(path), bench_.document.Info().StatusText());
  menus_.ShowRecent(recent_);
}

void DumpCommands::OpenPatch(const std::filesystem::path& path) {
  for (const char* extension : {".bin", ".fls", ".BIN", ".FLS"}) {
    const std::filesystem::path dump = std::filesystem::path(path).replace_extension(extension);
    if (!bench_.document.IsOpen() && FileExist(dump)) OpenF(dump);
  }
  if (bench_.document.IsOpen()) return bench_.frame.OpenPatch(path);
  bench_.talk.Complain(Wx(bench_.texts.Msg(Text::PatchIsNoFullflash)) + "\n\n" + WxPath(path));
}

bool DumpCommands::GetInfo(const std::filesystem::path& path) {
  auto image = ReadDump(bench_, path);
  if (!image) return false;
  Document& document = bench_.document;
  document.Open(std::move(*image), path);
  info_.SetSummary(path);
  ReadNames();
  bench_.status.SetPanel(1, WxPath(path));
  ShowModel();
  return true;
}

// Says in the information text which lines of the names file are bad.
void DumpCommands::ReadNames() {
  if (bench_.talk.fOpenErr([&] { bench_.document.ReadNames(); })) return;
  const Names& names = bench_.document.PlaceNames();
  if (names.BadCount() == 0) return;
  std::string lines = std::string(bench_.texts.Msg(Text::BadNameLinesLabel));
  for (const std::size_t line : names.BadLines())
    lines += (line == names.BadLines().front() ? "" : ", ") + std::to_string(line);
  if (names.BadCount() > names.BadLines().size()) lines += ", ...";
  bench_.frame.AddInformation(lines + "\n");
}

void DumpCommands::ShowModel() { bench_.status.SetPanel(2, Wx(bench_.document.Info().StatusText())); }

void DumpCommands::CloseFF() {
  bench_.document.Close();
  panels_.Clear();
  info_.ShowRecent(recent_);
  bench_.status.ClearFrom(2);
  changed_();
  panels_.ShowPanel(info_);
}

void DumpCommands::OpenChosen(const std::filesystem::path& path) {
  bench_.talk.Guard(Wx(bench_.texts.Msg(Text::Open)), [&] {
    if (IsPatchFile(path) || !WasChanged()) OpenF(path);
  });
}

void DumpCommands::OpenNamed(const std::string& name) {
  if (name.starts_with("file:"))
    return OpenChosen(PathFrom(wxFileSystem::URLToFileName(Wx(name)).GetFullPath()));
  if (ToUpper(name).ends_with("ADR"))
    return bench_.talk.Complain(Wx(bench_.texts.Msg(Text::CantOpenAddressBooks)) + "\n\n" + Wx(name));
  std::error_code error;
  const std::filesystem::path path = std::filesystem::absolute(PathOf(name), error);
  OpenChosen(error ? PathOf(name) : path);
}

void DumpCommands::OpenRecent(std::size_t index) { OpenChosen(PathOf(recent_[index])); }

// --- where the user left off ---

namespace {

constexpr char session[] = "Session";

// The same in every language and version.
std::string StableName(const Panel& panel) { return std::string(Messages().Msg(panel.Traits().name)); }

}  // namespace

void DumpCommands::StoreHistory(Settings& settings) const {
  recent_.Write(settings);
  const Panel* visible = panels_.Visible();
  if (!bench_.document.IsOpen() || !visible) return;
  settings.SetIni(session, "File", PathText(bench_.document.Path()));
  settings.SetIni(session, "Panel", StableName(*visible));
  settings.SetIni(session, "Place", std::to_string(visible->Here()));
}

void DumpCommands::Continue_Click() {
  const std::string file = bench_.settings.GetRaw(session, "File");
  const std::string name = bench_.settings.GetRaw(session, "Panel");
  const std::string place = bench_.settings.GetRaw(session, "Place");
  OpenChosen(PathOf(file));
  const auto panel =
      std::ranges::find_if(panels_.All(), [&name](const auto& each) { return StableName(*each) == name; });
  if (!bench_.document.IsOpen() || panel == panels_.All().end()) return;
  panels_.ShowPanel(**panel);
  Offset at = 0;
  std::from_chars(place.data(), place.data() + place.size(), at);
  (*panel)->Return(at);
}

void DumpCommands::OpenFF_Click() {
  if (WasChanged()) return;
  std::filesystem::path current = bench_.document.Path();
  if (current.empty()) current = PathOf(recent_[0]).parent_path() / "";
  const auto path = AskForDump(bench_, Text::Open, current);
  if (path) OpenF(*path);
}

void DumpCommands::OpenDemonstration(const std::filesystem::path& folder, DemoKind kind) {
  const std::filesystem::path path = WriteDemonstration(folder, kind);
  OpenChosen(path);
  if (bench_.document.IsOpen()) bench_.talk.Tell(Text::DemonstrationSaved, path);
}

bool DumpCommands::WasChanged() { return tarvelo::WasChanged(bench_); }

// --- saving ---

void DumpCommands::Save_Click() { SaveTo(bench_.document.Path()); }

void DumpCommands::SaveAs_Click() {
  const auto path = bench_.talk.SaveFile(Text::SaveAs, DumpFilter(bench_.texts), bench_.document.Path());
  if (path) SaveTo(*path);
}

// Writes the image to a file, which then becomes the document's file.
void DumpCommands::SaveTo(const std::filesystem::path& path) {
  if (bench_.talk.fOpenErr([&] {
        if (FileExist(path)) RemoveFile(path);
        WriteFile(path, bench_.document.Image().ff(), bench_.status);
      }))
    return;
  bench_.document.SetPath(path);
  bench_.status.SetPanel(1, Wx(bench_.document.FileName()));
  if (!bench_.talk.fOpenErr([&] { bench_.document.TakeNamesAlong(); })) bench_.sound.Beep(12000, 300);
}

}  // namespace tarvelo
