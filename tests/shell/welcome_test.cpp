#include "shell/info/welcome.h"
#include "shell/frame/demonstration.h"

#include "shell/desk.h"

namespace tarvelo {
namespace {

class WelcomeDesk : public Desk {
 protected:
  // The visible button with this caption or for this file; null if there is none.
  [[nodiscard]] wxButton* Button(const std::string& text) const {
    return FirstIn<wxButton>(main->InfoText().Window(), [&](const wxButton& button) {
      return button.IsShownOnScreen() &&
             (button.GetLabelText() == Wx(text) || button.GetToolTipText() == Wx(text));
    });
  }

  [[nodiscard]] std::filesystem::path Demonstration(const char* name) const {
    return folder / "documents" / name;
  }
};

TEST_F(WelcomeDesk, IsShownUntilADumpIsOpen) {
  EXPECT_EQ(&main->InfoText().FirstFocus(), Button("Open"));
  script.file = WriteDump("dump.bin");
  Click(*Button("Open"));
  EXPECT_TRUE(Open().IsOpen());
  EXPECT_EQ(Button("Open"), nullptr);
  Choose(pictures);
  main->Dumps().OpenF(folder / "missing.bin");  // closes the dump
  EXPECT_EQ(InfoText(), "");
  EXPECT_EQ(&main->InfoText().FirstFocus(), Button("Open"));
  EXPECT_NE(Button("Help"), nullptr);
}

TEST_F(WelcomeDesk, OffersRecentFiles) {
  const auto first = WriteDump("first.bin");
  const auto second = WriteDump("A & B.bin");
  EXPECT_EQ(Button(PathText(first)), nullptr);
  main->Dumps().OpenF(first);
  main->Dumps().OpenF(second);
  main->Dumps().CloseFF();
  EXPECT_NE(Button(PathText(second)), nullptr);
  Click(*Button(PathText(first)));
  EXPECT_EQ(Open().Path(), first);
}

TEST_F(WelcomeDesk, FollowsTheChosenLanguage) {
  Choose(Id::FirstLanguage + 10);
  const Messages greek(*FindLanguage("GR"));
  for (const Text text : {Text::Open, Text::TryDemonstration, Text::Help})
    EXPECT_NE(Button(std::string(greek.Msg(text))), nullptr) << greek.Msg(text);
}

TEST_F(WelcomeDesk, WritesAndOpensTheDemonstration) {
  const std::string tryIt(Messages().Msg(Text::TryDemonstration));
  const auto file = Demonstration("Tarvelo demo.bin");
  const std::string said =
      "i" + std::string(Messages().Msg(Text::DemonstrationSaved)) + "\n\n" + PathText(file);
  for (int time = 0; time < 2; ++time) {  // the second time it is already there
    Click(*Button(tryIt));
    EXPECT_EQ(script.TakeSaid(), said);
    EXPECT_EQ(Open().Path(), file);
    main->Dumps().CloseFF();
  }
  EXPECT_EQ(std::filesystem::file_size(file), 0x800000u);
  EXPECT_FALSE(FileExist(Demonstration("Tarvelo demo 2.bin")));
}

TEST_F(WelcomeDesk, OverwritesNothingWithTheDemonstration) {
  const auto file = Demonstration("Tarvelo demo.bin");
  WriteFile(file, "mine");
  std::filesystem::create_directory(Demonstration("Tarvelo demo 2.bin"));
  EXPECT_EQ(WriteDemonstration(folder / "documents"), Demonstration("Tarvelo demo 3.bin"));
  EXPECT_EQ(ReadAll(file), "mine");
}

}  // namespace
}  // namespace tarvelo
