// What every command gets, and the ways in which one can end early.
#pragma once

#include <initializer_list>
#include <iosfwd>
#include <stdexcept>
#include <string>
#include <string_view>

#include "core/fullflash.h"
#include "core/table.h"
#include "resources/messages.h"

namespace CLI {
class App;
}

namespace tarvelo::cli {

struct Context {
  std::ostream& out;
  std::ostream& err;
  Progress& progress;
  Messages messages;
  int status = 0;  // the exit status, unless an exception sets another
};

// Arguments that parse but make no sense together.
class WrongArguments : public std::runtime_error {
  using std::runtime_error::runtime_error;
};

// A fault inside a scan of a file, with the cause.
class ScanFault : public std::runtime_error {
 public:
  ScanFault(const std::string& file, const std::string& cause) : runtime_error(file + ": " + cause) {}
};

// Prints one line on standard error, whatever the names in it hold.
void Diagnose(Context& context, const std::exception& error);

// A file's name as UTF-8 text, whatever its bytes are.
[[nodiscard]] std::string Printable(const std::string& file);
// Any text likewise, with blanks for control characters.
[[nodiscard]] std::string InOneLine(const std::string& text);

// Opens a dump given on the command line. Throws FileError, also for an empty file.
[[nodiscard]] Fullflash OpenDump(const std::string& file, Context& context);
[[nodiscard]] Fullflash OpenDump(const std::string& file, Progress& progress);

// Opens one that is read piece by piece. Throws the same.
[[nodiscard]] FileReader OpenDumpFile(const std::string& file);

// Prints a piece of what may be very long. Throws where it cannot be written: nobody waits for the rest.
void PrintPiece(std::string_view text, Context& context);
// Prints a table as tab-separated text.
void PrintTable(const TableRows& table, Context& context);

// Refuses "-", which elsewhere means standard input: a dump is read at random.
void RefuseStandardInput(const std::string& file);

// Refuses a file to write that is "-", or one of those that are read.
void CheckOutput(const std::string& option, const std::string& file, std::initializer_list<std::string> read);

// A hexadecimal number, with or without 0x (0 where the text is empty), and a decimal one (the largest int
// where it is larger). Both throw WrongArguments, naming the option.
[[nodiscard]] std::uint32_t ParseHex(const std::string& option, std::string text);
[[nodiscard]] int ParseDecimal(const std::string& option, const std::string& text);

// Each adds a subcommand, whose callback runs when it was given.
void AddInfo(CLI::App& app, Context& context);
void AddDecode(CLI::App& app, Context& context);
void AddEncode(CLI::App& app, Context& context);
void AddAddress(CLI::App& app, Context& context);
void AddDemo(CLI::App& app, Context& context);
void AddList(CLI::App& app, Context& context);
void AddExport(CLI::App& app, Context& context);
void AddFind(CLI::App& app, Context& context);
void AddMap(CLI::App& app, Context& context);
void AddDiff(CLI::App& app, Context& context);
void AddApply(CLI::App& app, Context& context);

}  // namespace tarvelo::cli
