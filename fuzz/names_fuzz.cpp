// Arbitrary bytes as a names file, with a name set in it.
#include "core/names.h"
#include "fuzz/target.h"

namespace tarvelo::fuzz {
namespace {

void CheckOrder(const Names& names) {
  for (std::size_t i = 0; i < names.Count(); ++i) {
    const Name name = names[i];
    Check(i == 0 || names[i - 1].address < name.address, "the names are in order");
    Check(names.At(name.address)->name == name.name, "a name is found by its address");
    Check(names.From(name.address) == i, "a name is found by its address");
    Check(!name.name.empty() || !name.comment.empty(), "a line says something");
    Check(name.comment.find('\n') == name.comment.npos, "a comment is in one line");
  }
}

}  // namespace

void Run(Bytes data) {
  const std::string_view file = TextOf(data);
  Names names{std::string(file)};
  Check(names.Text() == file, "the file stays as it is");
  CheckOrder(names);
  const std::uint32_t address = data.empty() ? 0 : data[data.size() / 2];
  const std::size_t bad = names.BadCount();
  names.Set(address, "new", file.substr(0, 20));
  CheckOrder(names);
  Check(names.NameAt(address) == "new", "what was set is there");
  Check(names.BadCount() == bad, "no other line changes");
  names.Set(address, "", "");
  CheckOrder(names);
}

}  // namespace tarvelo::fuzz
