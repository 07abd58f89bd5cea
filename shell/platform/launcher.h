// Other programs: which the system knows of, and starting them.
#pragma once

#include <filesystem>
#include <memory>
#include <string>

namespace tarvelo {

class Launcher {
 public:
  virtual ~Launcher() = default;

  // The default value of a key of the Windows registry, which begins with HKCR, HKCU or HKLM and may end
  // with a backslash. Empty where there is none, and on other systems.
  [[nodiscard]] virtual std::string RegRead(const std::string& key) const = 0;

  // The system's own calculator as a command line; empty where none is known.
  [[nodiscard]] virtual std::string CalculatorCommand() const = 0;

  // Starts a program in a normal window and returns its process id; 0 where it cannot be started, which
  // nobody is told.
  virtual long shel(const std::string& commandLine);

  // Opens a file with the program that the system has for it. False where there is none.
  virtual bool OpenWithSystem(const std::filesystem::path& file);
};

[[nodiscard]] std::unique_ptr<Launcher> SystemLauncher();

}  // namespace tarvelo
