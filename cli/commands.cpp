#include "cli/commands.h"

#include <ostream>

#include "cli/output.h"
#include "cli/parser.h"
#include "cli/progress_bar.h"

namespace tarvelo::cli {
namespace {

int Fail(Context& context, const std::exception& error, ExitStatus status) {
  Diagnose(context, error);
  return status;
}

int Execute(const std::vector<std::string>& arguments, Context& context) try {
  if (const Command command = Parse(arguments, context)) command(context);
  context.out.flush();
  if (!context.out) throw std::runtime_error("the output can't be written");
  return context.status;
} catch (const WrongArguments& error) {
  return Fail(context, error, wrongArguments);
} catch (const ScanFault& error) {
  return Fail(context, error, scanFault);
} catch (const std::bad_alloc&) {
  return Fail(context, std::runtime_error("there is not enough memory"), fileTrouble);
} catch (const std::exception& error) {
  return Fail(context, error, fileTrouble);
}

}  // namespace

int Run(const std::vector<std::string>& arguments, std::ostream& out, std::ostream& err) {
  const std::unique_ptr<Progress> progress = TerminalProgress();
  Context context{out, err, *progress, Messages(), done};
  return Execute(arguments, context);
}

}  // namespace tarvelo::cli
