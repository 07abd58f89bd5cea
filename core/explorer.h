// The description of an explorer, which handles one kind of thing that dumps hold.
//
// All code that works for every kind (lists, exports, panels, the dump map) is written once, against this
// description. To add a kind, write a folder with an `Explorer` and add a line to document/explorers.cpp;
// docs/adding-an-explorer.md explains the steps.
#pragma once

#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "core/claim.h"
#include "core/dump.h"
#include "core/progress.h"
#include "core/region.h"
#include "core/table.h"
#include "resources/messages.h"
#include "resources/texts.h"

namespace tarvelo {

// The records of one search. Only the explorer knows their type. Copies share the records.
class Findings {
 public:
  template <typename Records>
  explicit Findings(Records records) : records_(std::make_shared<const Records>(std::move(records))) {}

  // `Records` must be the type that the constructor was given.
  template <typename Records>
  [[nodiscard]] const Records& As() const {
    return *static_cast<const Records*>(records_.get());
  }

 private:
  std::shared_ptr<const void> records_;
};

// The properties that every record has.
struct Item {
  int number = 0;          // shown in the list and used in the file name
  Region data;             // its bytes; may be outside the image
  Region entry;            // the header or table entry that describes it
  bool isDeleted = false;  // listed only if the user asks for deleted things
  bool isCurrent = true;   // false: an older generation, exported only with deleted things
};

// How much of a long cell a list shows.
enum class CellRoom {
  Screen,  // all cells together at most a few times the image's size
  File,    // as much as anybody would wait for
};

// Where and how an export writes its files.
struct ExportTarget {
  std::filesystem::path folder;  // created with the first file, which may be in a folder below
  std::string stem;              // file names begin with it
  std::string_view format;       // one of ExplorerFiles::formats; empty: the first
};

// The outcome of exporting one record.
struct Exported {
  std::optional<std::filesystem::path> file;  // empty if the record was not written
  std::string why;  // the reason, in one line of English; empty if the record is no file at all
};

// Writes the record with this index. Throws FileError.
using ExportItem = std::function<Exported(std::size_t record)>;

struct ExplorerFiles {
  std::string_view about = {};                // what the files hold, in English; empty: Explorer::about
  std::string_view folder;                    // name of the default folder, beside the dump
  std::span<const std::string_view> formats;  // for --format; empty: only one
  bool isNumberHex = false;                   // --number is hexadecimal
  // Prepares an export. The dump and the findings must outlive the result.
  ExportItem (*write)(const Dump& dump, const Findings& found, const ExportTarget& target) = nullptr;
};

struct Explorer {
  // --- its names
  std::string_view key;    // on the command line: "pictures"
  std::string_view about;  // what it lists, in English: "pictures"
  char letter;             // of the saved list: STEM_P.txt
  Text name;               // of its panel, in the menu and the title
  Text help;               // of the menu entry, shown in the status bar
  int place = 0;           // in the menu of panels, 1 .. 9, opened by Ctrl and the digit; 0: after these

  // --- what it finds
  // The sieve of the search's first pass over the image, so that one pass can serve several explorers; null:
  // no such pass.
  const SieveForm* (*sieve)(const Dump& dump) = nullptr;
  // Searches an image, at the marks of that sieve if the dump has them. Throws std::length_error if it holds
  // more records than it may; no other image content makes it throw.
  Findings (*search)(const Dump& dump, Progress& progress);
  std::optional<Text> tooMany = {};  // shown to the user in that case
  std::size_t (*count)(const Findings& found);
  Item (*item)(const Findings& found, std::size_t record);
  bool isOfC166 = false;    // whether it searches C166 code, which only images of up to 16 MiB hold
  bool hasDeleted = false;  // whether records of deleted things can occur
  // The command that lists them too, and its help.
  Text showDeleted = Text::ShowDeletedBlocks;
  Text showDeletedHelp = Text::HelpDeletedBlocks;

  // The model that the records name, for dumps whose firmware header names none; empty: none.
  std::string (*model)(const Dump& dump, const Findings& found) = nullptr;

  // --- how it is shown
  std::vector<std::string> (*captions)(const Messages& messages);
  // One row per record, in the same order. Rows of deleted things are marked. The dump must outlive the rows.
  TableRows (*rows)(const Dump& dump, const Findings& found, const Messages& messages, CellRoom room);
  // The column that "Find" searches; empty: all.
  std::optional<unsigned> searchedColumn = {};
  unsigned markedColumns = static_cast<unsigned>(-1);  // how many columns of marked rows are coloured
  // Lines for the information text, each ending in a line feed.
  std::string (*lines)(const Findings& found, const Messages& messages);
  // The figure in the status bar, in panel 3 .. 8, and its tooltip.
  int statusPanel = 0;  // 0: none
  std::string (*status)(const Findings& found) = nullptr;
  std::optional<Text> statusTip = {};

  // --- what it says about bytes
  std::span<const ClaimKind* const> kinds = {};
  void (*claim)(const Dump& dump, const Findings& found, const TakeClaim& take) = nullptr;

  // --- its files
  std::optional<ExplorerFiles> files = {};
};

}  // namespace tarvelo
