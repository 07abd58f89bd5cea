// A main window for tests, with its settings in a temporary folder, and what a user does with it.
#pragma once

#include <gtest/gtest.h>
#include <wx/button.h>
#include <wx/dataview.h>
#include <wx/dnd.h>
#include <wx/menu.h>
#include <wx/stopwatch.h>
#include <wx/utils.h>

#include <optional>

#include "core/byte_text.h"
#include "core/places.h"
#include "demo/demo_image.h"
#include "document/explorers.h"
#include "image_builder.h"
#include "shell/base/strings.h"
#include "shell/frame/main.h"
#include "shell/info/info_panel.h"
#include "shell/list/explorer_panel.h"
#include "shell/list/list_view.h"
#include "shell/patch/patch_panel.h"
#include "shell/script.h"
#include "shell/services/clipboard.h"
#include "shell/services/ids.h"
#include "shell/test_app.h"
#include "temporary_folder.h"

namespace tarvelo {

// The menu entries of the explorers' panels.
inline int EntryOf(std::string_view key) { return PanelId(*FindExplorer(key)); }
inline const int eeprom = EntryOf("eeprom");
inline const int pictures = EntryOf("pictures");
inline const int ringtones = EntryOf("ringtones");

class Desk : public testing::Test {
 protected:
  Desk() {
    Settings(SettingsFile()).SetIni("General", "Language", "EN");
    std::filesystem::create_directory(folder / "documents");
    StartProgram();
  }
  ~Desk() override {
    if (main) main->Destroy();
    Settle();
  }

  void StartProgram() {
    main = new Main({Settings(SettingsFile()), std::make_unique<RecordingBeeper>(script),
                     std::make_unique<RecordingLauncher>(script), std::make_unique<ScriptedDialogs>(script),
                     folder / "documents"});
    main->Show();
    Settle();
  }

  // Changes the size of the window.
  void Resize(const wxSize& size) {
    main->SetSize(size);
    Settle();
  }

  // Ends the program and starts it again, with this hex editor if one is given.
  void Restart(const std::string& hexEditor = {}) {
    Choose(Id::ExitM);
    if (!hexEditor.empty()) Settings(SettingsFile()).SetIni("Integration", "HexEditor", hexEditor);
    StartProgram();
  }

  [[nodiscard]] std::filesystem::path SettingsFile() const { return folder / "Tarvelo.ini"; }

  // --- dumps ---

  // A dump of 1 MiB, C55 firmware 24.
  std::filesystem::path WriteDump(const std::filesystem::path& name) const {
    ImageBuilder builder(0x100000);
    builder.Byte(0x7FF50, 0x24);
    builder.Text(0x7FF60, "FD-02");
    builder.Text(0x7FF70, "C55");
    builder.Text(0x7FF80, "SIEMENS");
    return folder.Write(name, std::move(builder).Take());
  }

  // 64 KiB with a live block of each number. Headers start at multiples of 12; the 16 bytes of data are at
  // 0xF000. More than 2000 blocks are refused.
  [[nodiscard]] static std::vector<std::uint8_t> ImageOfBlocks(const std::vector<int>& numbers) {
    ImageBuilder builder(0x10000);
    std::size_t p = 0;
    for (const int number : numbers) {
      p = builder.Word(p, 0x00FC);
      p = builder.Word(p, 16);
      p = builder.DWord(p, 0xFFF000);
      p = builder.Word(p, static_cast<std::uint16_t>(number));
      p = builder.Word(p, 0xFC00);
    }
    return std::move(builder).Take();
  }

  // Opens bytes as a dump with this name and shows a panel.
  void OpenBytes(const std::filesystem::path& name, const std::vector<std::uint8_t>& bytes, int panel) {
    main->Dumps().OpenF(folder.Write(name, bytes));
    if (panel != Id::Info) Choose(panel);
  }
  void OpenDemo(int panel) {
    static const std::vector<std::uint8_t> demo = DemoImage();
    OpenBytes("demo.bin", demo, panel);
  }

  [[nodiscard]] Document& Open() const { return main->Bench().document; }
  [[nodiscard]] const Fullflash& Image() const { return Open().Image(); }
  [[nodiscard]] std::vector<std::uint8_t> AllBytes() const {
    return {Image().ff().begin(), Image().ff().end()};
  }

  // A panel, visible or not.
  template <typename P>
  [[nodiscard]] P& PanelOf(int entry) const {
    return dynamic_cast<P&>(*main->Panels().Of(entry));
  }
  [[nodiscard]] PatchPanel& Patch() const { return PanelOf<PatchPanel>(Id::PatchMenu); }
  void ShowHex(Offset start, Offset size) { main->Bench().frame.ShowHex(start, size); }
  void ShowBl(Offset start, Offset size) { main->Bench().frame.ShowBl(start, size); }

  // --- what the user does ---

  // Chooses a menu entry as a click does.
  void Choose(int id) {
    ASSERT_NE(Item(id), nullptr);
    ASSERT_TRUE(Item(id)->IsEnabled()) << Caption(id);
    main->ProcessCommand(id);
    Settle();
  }

  // Runs a command with this text as the answer. Returns all questions and messages.
  std::string Said(int id, const std::string& answer = {}) {
    script.said.clear();
    script.answer = answer;
    main->Run(id);
    std::string all = script.TakeSaid();
    while (!script.said.empty()) all += " | " + script.TakeSaid();
    return all;
  }
  // The same without the question: the last message.
  std::string SaidAtLast(int id, const std::string& answer = {}) {
    const std::string all = Said(id, answer);
    const auto last = all.rfind(" | ");
    return last == all.npos ? all : all.substr(last + 3);
  }
  // Runs a command that copies. Returns the text that a program would then get from the clipboard.
  std::string Copied(int id) {
    main->Run(id);
    return ClipboardText();
  }
  void UndoAll() const {
    while (Open().Undo()) {
    }
  }

  // Presses a key or uses the mouse in a window. True if the window handled it.
  static bool Key(wxWindow& window, int key, int modifiers = wxMOD_NONE) {
    wxKeyEvent event(wxEVT_CHAR_HOOK);
    event.m_keyCode = key;
    if (key < WXK_START) event.m_uniChar = key;
    event.SetAltDown((modifiers & wxMOD_ALT) != 0);
    event.SetControlDown((modifiers & wxMOD_CONTROL) != 0);
    event.SetShiftDown((modifiers & wxMOD_SHIFT) != 0);
    event.SetEventObject(&window);
    return window.ProcessWindowEvent(event);
  }
  static void Mouse(wxWindow& window, wxEventType type, const wxPoint& point = {}, bool shift = false) {
    wxMouseEvent event(type);
    event.SetPosition(point);
    event.SetShiftDown(shift);
    event.SetEventObject(&window);
    window.ProcessWindowEvent(event);
  }
  static void Click(wxButton& button) {
    wxCommandEvent click(wxEVT_BUTTON, button.GetId());
    click.SetEventObject(&button);
    button.ProcessWindowEvent(click);
    Settle();
  }

  // Drops a file on the window, which opens it only when the drop is over.
  void Drop(const std::filesystem::path& file) {
    wxArrayString files;
    files.Add(WxPath(file));
    auto* target = dynamic_cast<wxFileDropTarget*>(main->GetDropTarget());
    ASSERT_NE(target, nullptr);
    const bool wasOpen = Open().IsOpen();
    EXPECT_TRUE(target->OnDropFiles(0, 0, files));
    EXPECT_EQ(Open().IsOpen(), wasOpen);
    Settle();
  }

  // --- what there is to see ---

  // The panel that is shown, the list in it, and a cell of that.
  template <typename P>
  [[nodiscard]] P& Shown() const {
    return dynamic_cast<P&>(*main->Panels().Visible());
  }
  [[nodiscard]] ListView& List() const {
    auto* list = FirstIn<ListView>(main->Panels().Visible()->Window(), [](ListView&) { return true; });
    if (!list) throw std::logic_error("the panel has no list");
    return *list;
  }
  [[nodiscard]] std::string Cell(std::size_t row, std::size_t column) const {
    return List().Row(row).cells.at(column);
  }
  // The first window of this type that meets a condition: the given one or a descendant; null if none does.
  template <typename W, typename Holds>
  [[nodiscard]] static W* FirstIn(wxWindow& window, const Holds& holds) {
    if (auto* found = dynamic_cast<W*>(&window); found && holds(*found)) return found;
    for (wxWindow* child : window.GetChildren())
      if (W* found = FirstIn<W>(*child, holds)) return found;
    return nullptr;
  }
  // Selects a row of a list and returns its text, with all cells, as it is saved.
  [[nodiscard]] static std::string RowOf(ListView& list, std::size_t row) {
    list.Select(row);
    const std::string text = TabSeparated(Table{{}, {list.Row(row)}}, "\n");
    return text.substr(text.find('\n') + 1);
  }
  // Selects the EEPROM block with this header position.
  void SelectHeader(const std::string& position) { ASSERT_TRUE(List().Find(position, SearchFrom::Top, 2)); }
  // Sorts the list, the last row first.
  void SortDown(unsigned column) {
    List().SortBy(column);
    List().SortBy(column);
  }

  // A file's path as it ends a message, and the advice after it if the file could not be read or written.
  [[nodiscard]] static std::string At(const std::filesystem::path& file) { return "\n\n" + PathText(file); }
  [[nodiscard]] static std::string ReadAdvice() {
    return "\n\n" + std::string(Messages().Msg(Text::AdviceOnReading));
  }
  [[nodiscard]] static std::string WriteAdvice() {
    return "\n\n" + std::string(Messages().Msg(Text::AdviceOnWriting));
  }

  [[nodiscard]] static std::string ClipboardText() { return CopiedText(); }

  [[nodiscard]] wxMenuItem* Item(int id) const { return main->GetMenuBar()->FindItem(id); }
  [[nodiscard]] bool Enabled(int id) const { return Item(id)->IsEnabled(); }
  [[nodiscard]] std::string Caption(int id) const { return Utf8(Item(id)->GetItemLabelText()); }
  [[nodiscard]] std::string Title() const { return Utf8(main->GetTitle()); }
  [[nodiscard]] std::string Status(int panel) const { return Utf8(main->Bench().status.Panel(panel)); }
  [[nodiscard]] std::string InfoText() const { return Utf8(main->InfoText().GetText()); }

  TemporaryFolder folder;
  Script script;
  Main* main = nullptr;
};

}  // namespace tarvelo
