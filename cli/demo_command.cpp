#include "cli/subcommands.h"
#include "core/file.h"
#include "demo/demo_image.h"

namespace tarvelo::cli {

void Demo(const DemoArguments& arguments, Context&) {
  if (arguments.file == "-") throw WrongArguments("-: a file is needed");
  const bool isSecond = arguments.version == "2";
  if (isSecond && arguments.large) throw WrongArguments("--large: there is no second version of it");
  const DemoKind kind = arguments.large ? DemoKind::Large : isSecond ? DemoKind::Second : DemoKind::First;
  ReplaceFile(PathOf(arguments.file), DemoImage(kind));
}

}  // namespace tarvelo::cli
