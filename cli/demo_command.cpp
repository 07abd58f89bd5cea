#include "cli/subcommands.h"
#include "core/file.h"
#include "demo/demo_image.h"

namespace tarvelo::cli {

void Demo(const DemoArguments& arguments, Context&) {
  if (arguments.file == "-") throw WrongArguments("-: a file is needed");
  ReplaceFile(PathOf(arguments.file), DemoImage(arguments.large));
}

}  // namespace tarvelo::cli
