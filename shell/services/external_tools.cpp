#include "shell/services/external_tools.h"

#include "core/file.h"
#include "core/notation.h"
#include "shell/base/strings.h"
#include "shell/platform/launcher.h"
#include "shell/settings/settings.h"
#include "text/unicode.h"

namespace tarvelo {
namespace {

constexpr char section[] = "Integration";

// At least six hexadecimal digits.
std::string HexOf(Offset offset) {
  const std::string digits = Hex(offset);
  return digits.size() < 6 ? PadZero(digits, 6) : digits;
}

// Whether a command has places for the region's offset or size.
bool HasPlaces(std::string_view command) {
  return command.find("%2") != command.npos || command.find("%3") != command.npos;
}

// A program's path, put in quotes if it needs them and has none.
std::string Program(const std::string& path) { return path.starts_with('"') ? path : quot(path); }

// Replaces every `mark` by the value, in quotes if needed; between quotes it inserts the bare value.
std::string Replace(std::string text, std::string_view mark, const std::string& value) {
  for (auto at = text.find(mark); at != text.npos;) {
    const bool quoted =
        at > 0 && text[at - 1] == '"' && at + mark.size() < text.size() && text[at + mark.size()] == '"';
    const std::string inserted = quoted ? value : quot(value);
    text.replace(at, mark.size(), inserted);
    at = text.find(mark, at + inserted.size());
  }
  return text;
}

// Old script readers understand only the system's code page.
std::string InSystemEncoding(const std::string& utf8) {
  const std::string text(Wx(utf8).mb_str(wxConvLocal));
  return text.empty() ? utf8 : text;
}

}  // namespace

std::string CommandFor(std::string_view command, const std::filesystem::path& file) {
  if (command.find("%1") == command.npos) return std::string(command) + " " + quot(PathText(file));
  return Replace(std::string(command), "%1", PathText(file));
}

std::string EditorCommand(std::string_view command, const std::filesystem::path& dump, Offset start,
                          Offset size) {
  if (!HasPlaces(command))
    return CommandFor(command, dump) + " /GOTO:0x" + HexOf(start) + " /SELECT:" + std::to_string(size);
  // The path comes last, so that marks in it are not replaced.
  const std::string placed = Replace(std::string(command), "%2", "0x" + HexOf(start));
  return CommandFor(Replace(placed, "%3", std::to_string(size)), dump);
}

std::string EditorScript(const std::filesystem::path& dump, Offset start, Offset size) {
  std::string script = "CloseAll\r\nOpen \"" + PathText(dump) + "\"\r\nGoto 0x" + HexOf(start) + "\r\n";
  if (size > 0) script += "Block 0x" + HexOf(start) + " 0x" + Hex(start + size - 1) + "\r\n";
  return script;
}

ExternalTools::ExternalTools(const Settings& settings, Launcher& launcher)
    : launcher_(launcher), script_(settings.Folder() / "Tarvelo.whs") {
  const std::string editor = settings.GetRaw(section, "HexEditor");
  if (ToUpper(editor) == "HEXWORKSHOP")
    editorCommand_ = launcher.RegRead("HKCR\\HexWorkshop\\shell\\open\\command\\");
  else if (editor.find("%1") != editor.npos)
    editorCommand_ = editor;
  else if (!editor.empty() && ToUpper(editor) != "WINHEX")
    editorProgram_ = Program(editor);
  else
    editorProgram_ = Program(
        launcher.RegRead("HKLM\\Software\\Microsoft\\Windows\\CurrentVersion\\App Paths\\WinHex.exe\\"));
  quillo_ = launcher.RegRead("HKCR\\Quillo.bin\\shell\\open\\command\\");
  if (quillo_.empty()) quillo_ = settings.GetRaw(section, "Quillo");
  calculator_ = settings.GetRaw(section, "Calculator");
  if (calculator_.empty()) calculator_ = Program(launcher.CalculatorCommand());
}

bool ExternalTools::ShowBl(const std::filesystem::path& dump, Offset start, Offset size) {
  if (!editorCommand_.empty()) {
    launcher_.shel(EditorCommand(editorCommand_, dump, start, size));
    return true;
  }
  if (editorProgram_.empty()) return false;
  WriteFile(script_, InSystemEncoding(EditorScript(dump, start, size)));
  launcher_.shel(CommandFor(editorProgram_, script_));
  return true;
}

bool ExternalTools::View(const std::filesystem::path& dump) {
  if (HasPlaces(editorCommand_)) return ShowBl(dump, 0, 0);
  const std::string& command = editorCommand_.empty() ? editorProgram_ : editorCommand_;
  if (command.empty()) return false;
  launcher_.shel(CommandFor(command, dump));
  return true;
}

void ExternalTools::Quillo(const std::filesystem::path& patch) { launcher_.shel(CommandFor(quillo_, patch)); }

void ExternalTools::Calculator() { launcher_.shel(calculator_); }

void ExternalTools::Forget() const {
  std::error_code ignored;
  std::filesystem::remove(script_, ignored);
}

}  // namespace tarvelo
