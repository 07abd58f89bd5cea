#include <fcntl.h>
#include <io.h>
#include <windows.h>
// after windows.h
#include <shellapi.h>

#include <memory>

#include "cli/platform/terminal.h"
#include "text/unicode.h"

namespace tarvelo::cli {

// argv has been converted to the system's code page. The wide command line keeps every character.
std::vector<std::string> Arguments(int, char**) {
  int count = 0;
  const std::unique_ptr<wchar_t*[], decltype(&LocalFree)> wide(CommandLineToArgvW(GetCommandLineW(), &count),
                                                               LocalFree);
  std::vector<std::string> arguments;
  for (int i = 1; i < count; ++i)
    arguments.push_back(
        ToUtf8(std::u16string(wide[i], wide[i] + std::char_traits<wchar_t>::length(wide[i]))));
  return arguments;
}

void PrepareStreams() {
  _setmode(_fileno(stdout), _O_BINARY);
  SetConsoleOutputCP(CP_UTF8);
}

bool ErrorIsTerminal() { return _isatty(_fileno(stderr)) != 0; }

}  // namespace tarvelo::cli
