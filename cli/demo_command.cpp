#include <CLI/CLI.hpp>

#include "cli/context.h"
#include "demo/demo_image.h"

namespace tarvelo::cli {

void AddDemo(CLI::App& app, Context&) {
  struct Arguments {
    std::string file;
    bool large = false;
  };
  auto arguments = std::make_shared<Arguments>();
  CLI::App* command = app.add_subcommand("demo", "Write the demonstration fullflash");
  command->add_option("FILE", arguments->file, "The file to write")->required();
  command->add_flag("--large", arguments->large, "A large image of 32 MiB instead of one of 8");
  command->callback([arguments] {
    if (arguments->file == "-") throw WrongArguments("-: a file is needed");
    ReplaceFile(PathOf(arguments->file), DemoImage(arguments->large));
  });
}

}  // namespace tarvelo::cli
