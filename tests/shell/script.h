// What surrounds the window in tests: its dialogs answer from a script and record the questions, its beeper
// and its launcher record what they were asked for.
#pragma once

#include <deque>
#include <filesystem>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>

#include "core/file.h"
#include "shell/base/strings.h"
#include "shell/platform/beeper.h"
#include "shell/platform/launcher.h"
#include "shell/services/dialogs.h"
#include "shell/services/review.h"

namespace tarvelo {

// The messages and questions of the window, oldest first, and the answers to give.
struct Script {
  std::deque<std::string> said;
  std::deque<std::string> beeps;
  std::function<void()> duringBeep;  // called while a tone sounds
  std::deque<std::string> started;
  std::map<std::string, std::string> registry;
  bool confirm = false;
  std::string answer;  // empty: cancel
  std::optional<std::filesystem::path> file;
  std::filesystem::path offered;         // the suggestion when the window asked for a file to open
  std::optional<ReviewAnswer> reviewed;  // nothing: cancel
  std::function<void(const Review&)> lookThrough = {};  // called before a list is answered
  bool opensWithSystem = true;                          // the system knows a program for each file

  // Takes the oldest message or question; empty if there is none.
  std::string TakeSaid() {
    std::string text;
    if (!said.empty()) text = std::move(said.front());
    if (!said.empty()) said.pop_front();
    return text;
  }
};

struct Scripted {
  Script& script;
};

struct ScriptedDialogs final : Scripted, Dialogs {
  explicit ScriptedDialogs(Script& s) : Scripted{s} {}
  void Message(const wxString& text, Icon icon) override {
    script.said.push_back((icon == Icon::Critical ? "!" : "i") + Utf8(text));
  }
  void Announce(const wxString& title, const wxString& text) override {
    script.said.push_back("[" + Utf8(title) + "]" + Utf8(text));
  }
  bool Confirm(const wxString& text) override { return Offer(text); }
  bool Offer(const wxString& text) override {
    script.said.push_back("?" + Utf8(text));
    return script.confirm;
  }
  std::optional<wxString> Ask(const wxString& prompt, const wxString& initial) override {
    script.said.push_back("ask " + Utf8(prompt) + ": " + Utf8(initial));
    if (script.answer.empty()) return {};
    return Wx(script.answer);
  }
  std::optional<std::filesystem::path> OpenFile(const wxString&, const wxString& filter,
                                                const std::filesystem::path& current) override {
    script.said.push_back("open " + Utf8(filter));
    script.offered = current;
    return script.file;
  }
  std::optional<std::filesystem::path> SaveFile(const wxString&, const wxString&,
                                                const std::filesystem::path& current) override {
    script.said.push_back("save " + PathText(current.filename()));
    return script.file;
  }
  std::optional<ReviewAnswer> Show(const Review& review) override {
    script.said.push_back("review " + Utf8(review.summary) + "\n" + TabSeparated(review.rows.All(), "\n"));
    if (script.lookThrough) script.lookThrough(review);
    return script.reviewed;
  }
};

struct RecordingBeeper final : Scripted, Beeper {
  explicit RecordingBeeper(Script& s) : Scripted{s} {}
  bool BeepOn(int frequency, int milliseconds, const GoOn& goOn) override {
    script.beeps.push_back(std::to_string(frequency) + " Hz " + std::to_string(milliseconds) + " ms");
    if (script.duringBeep) script.duringBeep();
    return milliseconds == 0 || goOn();
  }
};

// Records programs instead of starting them: "run ...", "open ...".
struct RecordingLauncher final : Scripted, Launcher {
  explicit RecordingLauncher(Script& s) : Scripted{s} {}
  [[nodiscard]] std::string RegRead(const std::string& key) const override {
    const auto found = script.registry.find(key);
    return found == script.registry.end() ? std::string() : found->second;
  }
  [[nodiscard]] std::string CalculatorCommand() const override { return "calc"; }
  long shel(const std::string& commandLine) override {
    script.started.push_back("run " + commandLine);
    return 1;
  }
  bool OpenWithSystem(const std::filesystem::path& file) override {
    if (script.opensWithSystem) script.started.push_back("open " + PathText(file));
    return script.opensWithSystem;
  }
};

}  // namespace tarvelo
