// Finds and starts other programs.
#pragma once

#include <filesystem>
#include <memory>
#include <string>

namespace tarvelo {

class Launcher {
 public:
  virtual ~Launcher() = default;

  // The default value of a key of the Windows registry. The key starts with HKCR, HKCU or HKLM and may end
  // with a backslash. Empty if there is no such key, and on other systems.
  [[nodiscard]] virtual std::string RegRead(const std::string& key) const = 0;

  // The command line of the system's own calculator; empty if none is known.
  [[nodiscard]] virtual std::string CalculatorCommand() const = 0;

  // Starts a program in a normal window and returns its process id. If it cannot be started, returns 0
  // without telling the user.
  virtual long shel(const std::string& commandLine);

  // Opens a file with the system's default program for it. False if there is none.
  virtual bool OpenWithSystem(const std::filesystem::path& file);
};

[[nodiscard]] std::unique_ptr<Launcher> SystemLauncher();

}  // namespace tarvelo
