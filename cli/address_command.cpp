#include <ostream>

#include "cli/numbers.h"
#include "cli/output.h"
#include "cli/subcommands.h"
#include "core/calculator.h"

namespace tarvelo::cli {
namespace {

// A base may be written as a negative number: -60000000 is A0000000.
std::int32_t ParseBase(const std::string& text) {
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

}  // namespace

void Address(const AddressArguments& arguments, Context& context) {
  const AddressFields fields = Convert(arguments);
  context.out << JsonLine(
      {{"Page", fields.Page}, {"Offs", fields.Offs}, {"Addr", fields.Addr}, {"AdFF", fields.AdFF}});
}

}  // namespace tarvelo::cli
