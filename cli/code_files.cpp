#include "cli/code_files.h"

#include <ostream>

#include "cli/commands.h"
#include "cli/files.h"
#include "cli/numbers.h"
#include "cli/output.h"

namespace tarvelo::cli {

std::optional<Dump> OpenCode(const std::string& file, Context& context) {
  Dump dump = OpenDump(file, context.progress);
  if (dump.image.PageMode()) return dump;
  context.err << PrintableLine(file) << ": an image above 16 MiB holds no C166 code\n";
  context.status = nothingFound;
  return {};
}

Offset ParseOffset(const std::string& text) {
  if (text.empty()) throw WrongArguments("OFFSET: a number is needed");
  return ParseHex("OFFSET", text);
}

void CheckPlace(Offset offset, const Dump& dump, const std::string& file) try {
  (void)dump.image.Byte(offset);
} catch (const std::out_of_range& fault) {
  throw ScanFault(file, fault.what());
}

}  // namespace tarvelo::cli
