// What an explorer is: the plain description of one kind of thing that dumps hold.
//
// Whatever works for every kind - lists, exports, panels, the dump map - is written once against this
// description. A new kind is a folder with an `Explorer` and a line in document/explorers.cpp;
// docs/adding-an-explorer.md goes through it.
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

// The records of one search, of a type that the explorer alone knows. A copy shares them.
class Findings {
 public:
  template <typename Records>
  explicit Findings(Records records) : records_(std::make_shared<const Records>(std::move(records))) {}

  // The type must be the one they were made of.
  template <typename Records>
  [[nodiscard]] const Records& As() const {
    return *static_cast<const Records*>(records_.get());
  }

 private:
  std::shared_ptr<const void> records_;
};

// What can be said of any record.
struct Item {
  int number = 0;          // as the list shows it, and as its file is named
  Region data;             // its bytes; may lie outside the image
  Region entry;            // the header or table entry that describes it
  bool isDeleted = false;  // listed where deleted things are asked for
  bool isCurrent = true;   // false: an older generation; written to a file where deleted things are asked for
};

// How much of a long cell a list has room for.
enum class CellRoom {
  Screen,  // all cells together a few times the image
  File,    // all that anybody waits for
};

// Where and how the files of an export are written.
struct ExportTarget {
  std::filesystem::path folder;  // made when the first file is written
  std::string stem;              // file names begin with it
  std::string_view format;       // one of ExplorerFiles::formats, or empty: the first
};

// What became of one record.
struct Exported {
  std::optional<std::filesystem::path> file;  // none: it was not written,
  std::string why;                            // and why, in one line of English
};

// Writes the record of an index. Throws FileError.
using ExportItem = std::function<Exported(std::size_t record)>;

struct ExplorerFiles {
  std::string_view about = {};                // what they hold, in English; empty: what the explorer lists
  std::string_view folder;                    // beside the dump
  std::span<const std::string_view> formats;  // for --format; empty: there is but one
  bool isNumberHex = false;                   // records are chosen by hexadecimal numbers
  // Prepares a run; the dump and the findings must outlive what it returns.
  ExportItem (*write)(const Dump& dump, const Findings& found, const ExportTarget& target) = nullptr;
};

struct Explorer {
  // --- what it is called
  std::string_view key;    // on the command line: "pictures"
  std::string_view about;  // what it lists, in English: "pictures"
  char letter;             // of the saved list: STEM_P.txt
  Text name;               // of its panel: menu entry and title
  Text help;               // of the menu entry, in the status bar
  int place = 0;           // in the menu of panels, 1 .. 9, with Ctrl and the digit; 0: behind these

  // --- what it finds
  // Searches an image. Throws std::length_error where it holds more records than there can be, nothing
  // else on what the image holds.
  Findings (*search)(const Dump& dump, Progress& progress);
  std::optional<Text> tooMany = {};  // what the user sees then
  std::size_t (*count)(const Findings& found);
  Item (*item)(const Findings& found, std::size_t record);
  bool hasDeleted = false;  // whether there are records of deleted things

  // --- how it is shown
  std::vector<std::string> (*captions)(const Messages& messages);
  // A row a record, in their order; rows of deleted things are marked. The dump must outlive the rows.
  TableRows (*rows)(const Dump& dump, const Findings& found, const Messages& messages, CellRoom room);
  // The column that "Find" searches; none: all.
  std::optional<unsigned> searchedColumn = {};
  unsigned markedColumns = static_cast<unsigned>(-1);  // of a marked row, drawn in colour on the desktop
  // Lines for the information text, each ended by a line feed.
  std::string (*lines)(const Findings& found, const Messages& messages);
  // The figure in the status bar, in panel 3 .. 8, and what its tooltip says.
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
