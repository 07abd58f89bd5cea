// The commands: the arguments of each, as the command line gives them, and the function that runs it. A
// command prints to the context and sets its status. All throw WrongArguments, FileError and ScanFault.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "cli/context.h"
#include "core/explorer.h"

namespace tarvelo::cli {

struct InfoArguments {
  std::vector<std::string> files;
  bool json = false;
  std::optional<std::string> jobs;
};
void Info(const InfoArguments& arguments, Context& context);

struct ListArguments {
  const Explorer* kind = nullptr;
  std::vector<std::string> files;
  std::optional<std::string> jobs;
  bool json = false;
  bool deleted = false;
};
void List(const ListArguments& arguments, Context& context);

struct ExportArguments {
  const Explorer* kind = nullptr;  // one with files
  std::string file;
  std::string folder;
  std::optional<std::string> number;
  std::string format;
  bool deleted = false;
  bool json = false;
};
void Export(const ExportArguments& arguments, Context& context);

struct FindArguments {
  std::vector<std::string> files;
  std::optional<std::string> jobs;
  std::string pattern;
  bool json = false;
};
void Find(const FindArguments& arguments, Context& context);

struct MapArguments {
  std::vector<std::string> files;
  std::optional<std::string> jobs;
  bool json = false;
};
void Map(const MapArguments& arguments, Context& context);

struct DiffArguments {
  std::string file;
  std::string other;
  bool json = false;
  bool fromStart = false;
  bool code = false;
  std::optional<std::string> patch;
};
void Diff(const DiffArguments& arguments, Context& context);

struct ApplyArguments {
  std::vector<std::string> files;
  std::optional<std::string> jobs;
  std::string patch;
  std::optional<std::string> output;  // needed unless the patch is only checked
  bool force = false;
  bool check = false;
  bool reverse = false;
};
void Apply(const ApplyArguments& arguments, Context& context);

struct PortArguments {
  std::string old;
  std::string now;
  std::string patch;
  std::optional<std::string> output;
  bool json = false;
  bool moveAreas = false;
};
void Port(const PortArguments& arguments, Context& context);

struct NamesArguments {
  std::string file;
  std::optional<std::string> patterns;
  std::optional<std::string> from;
  bool json = false;
};
void Names(const NamesArguments& arguments, Context& context);

struct DecodeArguments {
  std::string codec;  // one of Codecs()
  std::string file;
  std::string offset;
  std::string width = "20";
};
[[nodiscard]] std::vector<std::string> Codecs();
void Decode(const DecodeArguments& arguments, Context& context);

struct EncodeArguments {
  std::string text;
};
void Encode(const EncodeArguments& arguments, Context& context);

struct DisasmArguments {
  std::string file;
  std::string offset = "0";
  std::string count = "32";
  bool json = false;
};
void Disasm(const DisasmArguments& arguments, Context& context);

struct RefsArguments {
  std::string file;
  std::string offset;
  bool all = false;
  bool json = false;
  std::optional<std::string> dpp0, dpp1, dpp2, dpp3;
};
void Refs(const RefsArguments& arguments, Context& context);

struct AddressArguments {
  std::string base;
  std::optional<std::string> page, offs, addr, adff;
};
void Address(const AddressArguments& arguments, Context& context);

struct DemoArguments {
  std::string file;
  bool large = false;
  std::string version = "1";
};
void Demo(const DemoArguments& arguments, Context& context);

}  // namespace tarvelo::cli
