#include <CLI/CLI.hpp>
#include <nlohmann/json.hpp>
#include <optional>
#include <ostream>

#include "cli/context.h"
#include "core/calculator.h"

namespace tarvelo::cli {
namespace {

struct AddressArguments {
  std::string base;
  std::optional<std::string> page, offs, addr, adff;
};

// A base may be written as a negative number: -60000000 is A0000000.
std::int32_t ParseBase(std::string text) {
  const bool negative = text.starts_with('-');
  const std::uint32_t value = ParseHex("--base", negative ? text.substr(1) : text);
  if (negative && value > 0x80000000) throw WrongArguments("--base: " + text + " is too small");
  return static_cast<std::int32_t>(negative ? 0 - value : value);
}

AddressFields Convert(const AddressArguments& arguments) {
  const bool byPage = arguments.page || arguments.offs;
  if (int{byPage} + int{arguments.addr.has_value()} + int{arguments.adff.has_value()} != 1)
    throw WrongArguments("address: one of --page with --offs, --addr, --adff is needed");
  const std::int32_t base = ParseBase(arguments.base);
  if (arguments.addr) return FromAddr(ParseHex("--addr", *arguments.addr), base);
  if (arguments.adff) return FromAdFF(ParseHex("--adff", *arguments.adff), base);
  return FromPage(ParseHex("--page", arguments.page.value_or("")),
                  ParseHex("--offs", arguments.offs.value_or("")), base);
}

void PrintAddress(const AddressArguments& arguments, Context& context) {
  const AddressFields fields = Convert(arguments);
  const nlohmann::ordered_json object{
      {"Page", fields.Page}, {"Offs", fields.Offs}, {"Addr", fields.Addr}, {"AdFF", fields.AdFF}};
  context.out << object.dump() << '\n';
}

}  // namespace

void AddAddress(CLI::App& app, Context& context) {
  auto arguments = std::make_shared<AddressArguments>();
  CLI::App* command = app.add_subcommand("address", "Convert between page and offset, address, and offset");
  command->add_option("--base", arguments->base, "Corrected base, 0 by default");
  command->add_option("--page", arguments->page, "Page of 16 KiB");
  command->add_option("--offs", arguments->offs, "Offset within the page");
  command->add_option("--addr", arguments->addr, "Phone address");
  command->add_option("--adff", arguments->adff, "Offset in the fullflash");
  command->callback([arguments, &context] { PrintAddress(*arguments, context); });
}

}  // namespace tarvelo::cli
