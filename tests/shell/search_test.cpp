#include "shell/desk.h"
#include "shell/search/hits_panel.h"

namespace tarvelo {
namespace {

const std::string stars(80, '*');

class SearchDesk : public Desk {
 protected:
  // Opens an image of zeros with a few other bytes.
  void OpenImage(std::size_t size, const std::map<std::size_t, std::uint8_t>& bytes) {
    std::vector<std::uint8_t> image(size);
    for (const auto& [offset, byte] : bytes) image.at(offset) = byte;
    OpenBytes("image.bin", image, Id::Info);
    before = InfoText();
  }

  // Searches. Returns the messages without the question for the pattern.
  std::string SearchFor(const std::string& pattern) {
    const std::string said = Said(Id::Search, pattern);
    EXPECT_TRUE(said.starts_with("ask Enter the string for search\n\nExa")) << said;
    const auto rest = said.find(" | ");
    return rest == said.npos ? std::string() : said.substr(rest + 3);
  }

  // The text added to the information text since the image was opened.
  [[nodiscard]] std::string Added() const { return InfoText().substr(before.size()); }
  [[nodiscard]] ListView& Found() const { return PanelOf<HitsPanel>(Id::Hits).List(); }
  [[nodiscard]] std::string Row(std::size_t row) const { return RowOf(Found(), row); }

  std::string before;
};

TEST_F(SearchDesk, HitsAreAddedToTheTextAndListed) {
  OpenImage(0x100000, {{0x2345, 0xE6}, {0x2346, 0xFF}, {0x2347, 0x41}, {0x2349, 0xE6}});
  Open().Write(0x1A2B4, std::vector<std::uint8_t>{0xE6, 0x12, 0x41, 0x00, 0xE6});
  EXPECT_TRUE(Found().EmptyHint().StartsWith("Search for bytes (Ctrl+Shift+F)\n"));
  const std::string name = "Search \"E6??41,00 E6\" :";
  const std::string lines = "  1. 002345: E6FF4100E6\n  2. 01A2B4: E6124100E6";
  EXPECT_EQ(SearchFor("e6??41,00 e6"),
            "[Tarvelo - Was added information \"" + name + "\"]" + name + "\n\n" + lines);
  EXPECT_EQ(Added(), "\n" + name + "\n\n" + lines + "\n\n" + stars + "\n");
  EXPECT_EQ(Title(), "Tarvelo - Search results");
  EXPECT_EQ(Found().EmptyHint(), "");
  EXPECT_EQ(Found().Selected(), 0u);
  EXPECT_EQ(Row(0), "1\t002345\t3C0:2345\tE6FF4100E6\n");
  EXPECT_EQ(Row(1), "2\t01A2B4\t3C6:22B4\tE6124100E6\n");
  Choose(Id::GoBack);
  EXPECT_EQ(Title(), "Tarvelo - Info");
}

TEST_F(SearchDesk, ListIsWalkedWithTheKeys) {
  OpenImage(0x1000, {{0x10, 7}, {0x11, 7}, {0x12, 7}, {0x800, 7}, {0x801, 7}});
  SearchFor("0707");
  EXPECT_EQ(Found().RowCount(), 3u);  // the first two overlap
  const auto walk = [this](std::initializer_list<std::pair<int, std::size_t>> steps) {
    for (const auto& [id, row] : steps) {
      main->Run(id);
      EXPECT_EQ(Found().Selected(), row);
    }
  };
  walk({{Id::Previous, 0}, {Id::Next, 1}, {Id::Next, 2}, {Id::Next, 2}, {Id::Previous, 1}});
  SortDown(1);
  walk({{Id::Next, 0}});
}

TEST_F(SearchDesk, HitsFollowEdits) {
  OpenImage(0x1000, {{0x10, 7}, {0x20, 7}, {0x30, 7}});
  SearchFor("07");
  Found().Select(1);
  const std::uint8_t zero = 0, seven = 7;
  Open().Write(0x10, Bytes(&zero, 1));  // the list is visible
  EXPECT_EQ(Found().RowCount(), 2u);
  EXPECT_EQ(Found().Selected(), 0u);  // the same hit
  Choose(Id::Info);
  Open().Write(0x800, Bytes(&seven, 1));
  Choose(Id::Hits);
  EXPECT_EQ(Found().RowCount(), 3u);
  EXPECT_EQ(Row(2), "3\t000800\t3FF:3800\t07\n");
}

TEST_F(SearchDesk, ReportsAMissingPatternInCapitals) {
  OpenImage(0x1000, {{0, 0xE6}, {0xFFE, 0x11}, {0xFFF, 0x22}});
  EXPECT_EQ(SearchFor("e6,g1"), "!String \"E6,G1\" wasn't found");
  EXPECT_EQ(Added(), "");
  EXPECT_EQ(Title(), "Tarvelo - Info");
  SearchFor("1122");
  EXPECT_EQ(Found().RowCount(), 1u);
  EXPECT_TRUE(Said(Id::Search).ends_with(": 1122"));  // cancelled: the last pattern was offered
  EXPECT_EQ(Found().RowCount(), 1u);
  SearchFor("33");
  EXPECT_EQ(Found().RowCount(), 0u);
}

TEST_F(SearchDesk, ManyHitsFloodNoTextUnasked) {
  OpenImage(2003, {{0, 1}});
  EXPECT_EQ(SearchFor("00"), "?Number of hits: 2001\nAdd all of them to the information text ?");
  EXPECT_EQ(Added(), "");
  EXPECT_EQ(Title(), "Tarvelo - Search results");
  EXPECT_EQ(Found().RowCount(), 2001u);
  EXPECT_EQ(Row(0), "   1\t000001\t3FF:382E\t00\n");
  EXPECT_TRUE(SearchFor("000?").starts_with("[Tarvelo - Was added information "));  // one less
  EXPECT_TRUE(Added().ends_with("\n000. 0007D0: 0000\n\n" + stars + "\n"));

  OpenImage(0x1400000, {{0, 1}});
  EXPECT_EQ(SearchFor("00"),
            "?Number of hits: 1000000\nOnly the first 1000000 hits are listed.\n"
            "Add all of them to the information text ?");
  EXPECT_EQ(Found().RowCount(), 1000000u);
  EXPECT_EQ(Row(999999), "1000000\t00F4240\tA00F4240\t00\n");
  EXPECT_EQ(Copied(Id::CopyOffset), "00F4240");
  // Hits that no text can hold are still listed.
  script.confirm = true;
  const std::string longPattern(600, '0');
  EXPECT_TRUE(SearchFor(longPattern).ends_with(" | !There is not enough memory."));
  EXPECT_EQ(Added(), "");
  EXPECT_TRUE(Row(0).ends_with("\t" + longPattern.substr(0, 512) + "...\n"));
}

TEST_F(SearchDesk, TextsAreAddedWhole) {
  OpenImage(0x1000, {});
  main->InfoText().AddText("Block 71", "");
  EXPECT_EQ(script.TakeSaid(), "iInformation \"Block 71\" is absent");
  std::string body;  // longer than one appended piece
  while (body.size() < 600'000) body += "строка \n";
  main->InfoText().AddText("Long", body);
  EXPECT_EQ(Added(), "\nLong\n\n" + body + "\n\n" + stars + "\n");
}

}  // namespace
}  // namespace tarvelo
