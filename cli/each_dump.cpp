#include "cli/each_dump.h"

#include <algorithm>
#include <sstream>
#include <string_view>
#include <thread>

#include "cli/commands.h"
#include "cli/files.h"
#include "cli/in_order.h"
#include "cli/numbers.h"
#include "cli/output.h"

namespace tarvelo::cli {
namespace {

struct Outcome {
  std::string out;
  std::string err;
  int status = done;
};

Outcome RunOn(const std::string& file, const Messages& messages,
              const std::function<void(const std::string& file, Context& context)>& run) {
  NoProgress none;  // several files would share one bar
  std::ostringstream out;
  std::ostringstream err;
  Context context{out, err, none, messages, done};
  try {
    run(file, context);
  } catch (const FileError& error) {
    Diagnose(context, error);
    context.status = fileTrouble;
  } catch (const ScanFault& error) {
    Diagnose(context, error);
    context.status = scanFault;
  }
  return {std::move(out).str(), std::move(err).str(), context.status};
}

// Prints lines with the file in front of each.
void Print(const std::string& file, std::string_view lines, Printed printed, bool isFirst, Context& context) {
  const std::string path = printed == Printed::Json ? "{\"path\":" + Json(Printable(file)).dump() + ","
                                                    : PrintableLine(file) + "\t";
  bool isHeader = printed == Printed::Table;
  while (!lines.empty()) {
    const std::size_t end = std::min(lines.find('\n'), lines.size() - 1) + 1;
    std::string_view line = lines.substr(0, end);
    lines.remove_prefix(end);
    if (isHeader) {
      if (isFirst) context.out << "File\t" << line;
      isHeader = false;
      continue;
    }
    if (printed == Printed::Json) line.remove_prefix(1);  // its brace
    context.out << path << line;
  }
}

// The worst of two outcomes; nothing found in one file is not worth a word if there is something in another.
int Worse(int a, int b) {
  const auto rank = [](int status) {
    switch (status) {
      case nothingFound: return 0;
      case done: return 1;
      case scanFault: return 2;
      default: return 3;
    }
  };
  return rank(a) >= rank(b) ? a : b;
}

}  // namespace

std::size_t JobsOf(const std::optional<std::string>& jobs) {
  if (!jobs) return std::max(1u, std::thread::hardware_concurrency());
  const int count = ParseDecimal("--jobs", *jobs);
  if (count < 1) throw WrongArguments("--jobs: there must be one at least");
  return static_cast<std::size_t>(count);
}

void OnEach(const std::vector<std::string>& files, std::size_t jobs, Printed printed, Context& context,
            const std::function<void(const std::string& file, Context& context)>& run) {
  std::ranges::for_each(files, RefuseStandardInput);
  if (files.size() == 1) return run(files[0], context);
  InOrder<Outcome> outcomes(files.size(), jobs,
                            [&](std::size_t i) { return RunOn(files[i], context.messages, run); });
  int status = nothingFound;
  bool isFirst = true;
  for (std::size_t i = 0; i < files.size(); ++i) {
    const Outcome outcome = outcomes.Get(i);
    Print(files[i], outcome.out, printed, isFirst, context);
    isFirst &= outcome.out.empty();
    context.err << outcome.err;
    status = Worse(status, outcome.status);
  }
  context.status = status;
}

}  // namespace tarvelo::cli
