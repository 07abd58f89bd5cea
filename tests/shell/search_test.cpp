#include <algorithm>

#include "shell/desk.h"
#include "shell/hits_panel.h"
#include "shell/list_view.h"

namespace tarvelo {
namespace {

const std::string stars(80, '*');

class SearchDesk : public Desk {
 protected:
  // Opens an image with bytes other than zero here and there.
  void OpenImage(std::size_t size, const std::map<std::size_t, std::uint8_t>& bytes) {
    std::vector<std::uint8_t> image(size);
    for (const auto& [offset, byte] : bytes) image.at(offset) = byte;
    main->OpenF(folder.Write("image.bin", image));
    before = InfoText();
  }

  void SearchFor(const std::string& pattern) {
    script.answer = pattern;
    Choose(Search);
    EXPECT_EQ(script.TakeSaid().substr(0, 36), "ask Enter the string for search\n\nExa");
  }

  // What was added to the information text since the image was opened.
  [[nodiscard]] std::string Added() const { return InfoText().substr(before.size()); }
  [[nodiscard]] ListView& List() const { return main->FoundHits().ListS(); }
  // A row as the clipboard has it.
  [[nodiscard]] std::string Row(std::size_t row) const {
    List().Select(row);
    List().CopyRows();
    const std::string text = ClipboardText();
    return text.substr(text.find('\n') + 1);
  }
  [[nodiscard]] bool IsListShown() const { return main->Visible() == &main->FoundHits(); }

  std::string before;
};

TEST_F(SearchDesk, HitsAreAddedToTheTextAndListed) {
  OpenImage(0x100000, {{0x1A2B4, 0xE6},
                       {0x1A2B5, 0x12},
                       {0x1A2B6, 0x41},
                       {0x1A2B8, 0xE6},
                       {0x2345, 0xE6},
                       {0x2346, 0xFF},
                       {0x2347, 0x41},
                       {0x2349, 0xE6}});
  SearchFor("e6??41,00 e6");
  const std::string name = "Search \"E6??41,00 E6\" :";
  const std::string lines = "  1. 002345: E6FF4100E6\n  2. 01A2B4: E6124100E6";
  EXPECT_EQ(Added(), "\n" + name + "\n\n" + lines + "\n\n" + stars + "\n");
  EXPECT_EQ(script.TakeSaid(), "[Tarvelo - Was added information \"" + name + "\"]" + name + "\n\n" + lines);
  EXPECT_EQ(Title(), "Tarvelo - Search results");
  EXPECT_EQ(List().Selected(), 0u);
  EXPECT_EQ(Row(0), "1\t002345\t3C0:2345\tE6FF4100E6\n");
  Choose(SaveText);
  EXPECT_EQ(ReadAll(folder / "image_S.txt"),
            "N\tOffset\tAddress\tBytes\r\n1\t002345\t3C0:2345\tE6FF4100E6\r\n"
            "2\t01A2B4\t3C6:22B4\tE6124100E6\r\n");
}

TEST_F(SearchDesk, ListIsWalkedWithTheKeys) {
  OpenImage(0x1000, {{0x10, 7}, {0x11, 7}, {0x12, 7}, {0x800, 7}, {0x801, 7}});
  SearchFor("0707");
  EXPECT_EQ(List().RowCount(), 3u);  // the first two overlap
  main->Run(PreviousHit);
  EXPECT_EQ(List().Selected(), 0u);
  for (const std::size_t row : {1u, 2u, 2u}) {
    main->Run(NextHit);
    EXPECT_EQ(List().Selected(), row);
  }
  main->Run(PreviousHit);
  main->Run(OffsetHit);
  EXPECT_EQ(ClipboardText(), "000011");
  List().SortBy(1);
  List().SortBy(1);  // descending
  main->Run(NextHit);
  EXPECT_EQ(List().Selected(), 0u);
  main->Run(OpenHit);
  EXPECT_EQ(Title(), "Tarvelo - Hex view");
  Choose(Hits);
  EXPECT_EQ(List().Selected(), 0u);
}

TEST_F(SearchDesk, NotFoundIsToldWithThePatternInCapitals) {
  OpenImage(0x1000, {{0, 0xE6}, {0xFFE, 0x11}, {0xFFF, 0x22}});
  for (const auto& [pattern, capitals] : {std::pair{"e6,g1", "E6,G1"}, {"e6", "E6"}, {"11??", "11??"}}) {
    SearchFor(pattern);
    EXPECT_EQ(script.TakeSaid(), std::string("!String \"") + capitals + "\" wasn't found");
  }
  EXPECT_EQ(Added(), "");
  EXPECT_FALSE(IsListShown());
  SearchFor("1122");  // without wildcards the image's end is reached
  EXPECT_EQ(List().RowCount(), 1u);
  script.said.clear();
  script.answer.clear();
  Choose(Search);  // cancelled: the last pattern was offered, the list stays
  EXPECT_TRUE(script.TakeSaid().ends_with(": 1122"));
  EXPECT_EQ(List().RowCount(), 1u);
  EXPECT_TRUE(script.said.empty());
  SearchFor("33");
  EXPECT_EQ(List().RowCount(), 0u);
}

TEST_F(SearchDesk, ManyHitsFloodNoTextUnasked) {
  OpenImage(2003, {{0, 1}});
  SearchFor("00");
  EXPECT_EQ(script.TakeSaid(), "?Number of hits: 2001\nAdd all of them to the information text ?");
  EXPECT_EQ(Added(), "");
  EXPECT_TRUE(IsListShown());
  EXPECT_EQ(List().RowCount(), 2001u);
  EXPECT_EQ(Row(0), "   1\t000001\t3FF:382E\t00\n");
  SearchFor("000?");  // one less
  EXPECT_TRUE(script.TakeSaid().starts_with("[Tarvelo - Was added information "));
  EXPECT_TRUE(Added().ends_with("\n000. 0007D0: 0000\n\n" + stars + "\n"));
}

TEST_F(SearchDesk, OnlyAMillionHitsAreKept) {
  OpenImage(0x1400000, {{0, 1}});
  SearchFor("00");
  EXPECT_EQ(script.TakeSaid(),
            "?Number of hits: 1000000\nOnly the first 1000000 hits are listed.\n"
            "Add all of them to the information text ?");
  EXPECT_EQ(List().RowCount(), 1000000u);
  EXPECT_EQ(Row(999999), "1000000\t00F4240\tA00F4240\t00\n");
  // What no text can take is listed all the same.
  script.confirm = true;
  std::string longPattern;
  for (int i = 0; i < 300; ++i) longPattern += "00";
  SearchFor(longPattern);
  script.TakeSaid();
  EXPECT_EQ(script.TakeSaid(), "!There is not enough memory.");
  EXPECT_EQ(Added(), "");
  EXPECT_TRUE(Row(0).ends_with("\t" + longPattern.substr(0, 512) + "...\n"));
}

TEST_F(SearchDesk, HitsGoWithTheFullflash) {
  OpenImage(0x1000, {{0x10, 7}});
  SearchFor("07");
  EXPECT_EQ(List().RowCount(), 1u);
  main->OpenF(WriteDump("other.bin"));
  script.said.clear();
  Choose(Hits);
  EXPECT_EQ(List().RowCount(), 0u);
  for (const int id : {OpenHit, OffsetHit, NextHit, PreviousHit}) main->Run(id);
  Choose(SaveText);
  EXPECT_EQ(script.TakeSaid(), "iList was saved in file\n\n" + PathText(folder / "other_S.txt"));
}

TEST_F(SearchDesk, InformationThatIsAbsentIsSaid) {
  OpenImage(0x1000, {});
  main->InfoText().AddText("Block 71", "");
  EXPECT_EQ(script.TakeSaid(), "iInformation \"Block 71\" is absent");
  EXPECT_EQ(Added(), "");
  std::string body;  // longer than what is appended at once
  while (body.size() < 600'000) body += "строка\n";
  main->InfoText().AddText("Long", body);
  EXPECT_EQ(Added(), "\nLong\n\n" + body + "\n\n" + stars + "\n");
}

}  // namespace
}  // namespace tarvelo
