// A main window to test: with settings in a folder of its own, a beeper that records, and dialogs
// that answer from a script and record what was asked.
#pragma once

#include <gtest/gtest.h>
#include <wx/clipbrd.h>
#include <wx/dnd.h>
#include <wx/menu.h>

#include <deque>
#include <map>
#include <optional>

#include "demo/image_builder.h"
#include "shell/info_panel.h"
#include "shell/main.h"
#include "shell/patch_misfits.h"
#include "shell/strings.h"
#include "shell/test_app.h"
#include "temporary_folder.h"

namespace tarvelo {

// What the window has said and asked, oldest first, and what to answer.
struct Script {
  std::deque<std::string> said;
  std::deque<std::string> beeps;
  std::function<void()> duringBeep;  // while a tone sounds
  std::deque<std::string> started;
  std::map<std::string, std::string> registry;
  bool confirm = false;
  std::string answer;  // cancelled when it is empty
  std::optional<std::filesystem::path> file;
  std::filesystem::path offered;  // when a file to open was asked for
  bool applyOthers = false;

  // The oldest of what was said; empty when nothing was.
  std::string TakeSaid() {
    if (said.empty()) return {};
    std::string text = said.front();
    said.pop_front();
    return text;
  }
};

class ScriptedDialogs final : public Dialogs {
 public:
  explicit ScriptedDialogs(Script& script) : script_(script) {}

  void Message(const wxString& text, Icon icon) override {
    script_.said.push_back((icon == Icon::Critical ? "!" : "i") + Utf8(text));
  }
  void Announce(const wxString& title, const wxString& text) override {
    script_.said.push_back("[" + Utf8(title) + "]" + Utf8(text));
  }
  bool Confirm(const wxString& text) override {
    script_.said.push_back("?" + Utf8(text));
    return script_.confirm;
  }
  std::optional<wxString> Ask(const wxString& prompt, const wxString& initial) override {
    script_.said.push_back("ask " + Utf8(prompt) + ": " + Utf8(initial));
    if (script_.answer.empty()) return {};
    return Wx(script_.answer);
  }
  std::optional<std::filesystem::path> OpenFile(const wxString&, const wxString& filter,
                                                const std::filesystem::path& current) override {
    script_.said.push_back("open " + Utf8(filter));
    script_.offered = current;
    return script_.file;
  }
  std::optional<std::filesystem::path> SaveFile(const wxString&, const wxString&,
                                                const std::filesystem::path& current) override {
    script_.said.push_back("save " + PathText(current.filename()));
    return script_.file;
  }
  bool ApplyOthers(const PatchMisfits& misfits) override {
    Table lines{misfits.Captions(), {}};
    for (std::size_t i = 0; i < misfits.Listed(); ++i) lines.rows.push_back(misfits.Row(i));
    script_.said.push_back(misfits.Summary() + "\n" + TabSeparated(lines, "\n"));
    return script_.applyOthers;
  }

 private:
  Script& script_;
};

class RecordingBeeper final : public Beeper {
 public:
  explicit RecordingBeeper(Script& script) : script_(script) {}
  bool BeepOn(int frequency, int milliseconds, const GoOn& goOn) override {
    script_.beeps.push_back(std::to_string(frequency) + " Hz " + std::to_string(milliseconds) + " ms");
    if (script_.duringBeep) script_.duringBeep();
    return milliseconds == 0 || goOn();
  }

 private:
  Script& script_;
};

// Programs are not started but written down: "run ...", "open ...".
class RecordingLauncher final : public Launcher {
 public:
  explicit RecordingLauncher(Script& script) : script_(script) {}
  [[nodiscard]] std::string RegRead(const std::string& key) const override {
    const auto found = script_.registry.find(key);
    return found == script_.registry.end() ? std::string() : found->second;
  }
  [[nodiscard]] std::string CalculatorCommand() const override { return "calc"; }
  long shel(const std::string& commandLine) override {
    script_.started.push_back("run " + commandLine);
    return 1;
  }
  bool OpenWithSystem(const std::filesystem::path& file) override {
    script_.started.push_back("open " + PathText(file));
    return true;
  }

 private:
  Script& script_;
};

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

  [[nodiscard]] std::filesystem::path SettingsFile() const { return folder / "Tarvelo.ini"; }

  // A dump of 1 MiB, C55 firmware 24.
  std::filesystem::path WriteDump(const std::filesystem::path& name) const {
    ImageBuilder builder(0x100000);
    builder.Byte(0x7FF50, 0x24);
    builder.Text(0x7FF60, "FD-02");
    builder.Text(0x7FF70, "C55");
    builder.Text(0x7FF80, "SIEMENS");
    return folder.Write(name, std::move(builder).Take());
  }

  // Chooses a menu entry as a click does.
  void Choose(int id) {
    ASSERT_NE(Item(id), nullptr);
    ASSERT_TRUE(Item(id)->IsEnabled()) << Caption(id);
    main->ProcessCommand(id);
    Settle();
  }

  // What follows the path where a file could not be read, resp. written.
  [[nodiscard]] static std::string ReadAdvice() { return "\n\n" + std::string(Messages().Msg(317)); }
  [[nodiscard]] static std::string WriteAdvice() { return "\n\n" + std::string(Messages().Msg(318)); }

  // Drops a file on the window. It is opened when the drop is over, not before.
  void Drop(const std::filesystem::path& file) {
    wxArrayString files;
    files.Add(WxPath(file));
    auto* target = dynamic_cast<wxFileDropTarget*>(main->GetDropTarget());
    ASSERT_NE(target, nullptr);
    const bool wasOpen = main->Open().IsOpen();
    EXPECT_TRUE(target->OnDropFiles(0, 0, files));
    EXPECT_EQ(main->Open().IsOpen(), wasOpen);
    Settle();
  }

  // What a program would find in the clipboard.
  [[nodiscard]] static std::string ClipboardText() {
    const wxClipboardLocker lock;
    wxTextDataObject text;
    return wxTheClipboard->GetData(text) ? Utf8(text.GetText()) : std::string();
  }

  [[nodiscard]] wxMenuItem* Item(int id) const { return main->GetMenuBar()->FindItem(id); }
  [[nodiscard]] bool Enabled(int id) const { return Item(id)->IsEnabled(); }
  [[nodiscard]] std::string Caption(int id) const { return Utf8(Item(id)->GetItemLabelText()); }
  [[nodiscard]] std::string Title() const { return Utf8(main->GetTitle()); }
  [[nodiscard]] std::string Status(int panel) const { return Utf8(main->Status().Panel(panel)); }
  [[nodiscard]] std::string InfoText() const { return Utf8(main->InfoText().GetText()); }

  TemporaryFolder folder;
  Script script;
  Main* main = nullptr;
};

}  // namespace tarvelo
