#include "shell/info/welcome.h"

#include "shell/desk.h"

namespace tarvelo {
namespace {

class WelcomeDesk : public Desk {
 protected:
  // The button of this caption, resp. for this file, that can be seen; null where there is none.
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

TEST_F(WelcomeDesk, StandsThereUntilADumpIsOpen) {
  EXPECT_EQ(&main->InfoText().FirstFocus(), Button("Open"));
  script.file = WriteDump("dump.bin");
  Click(*Button("Open"));
  EXPECT_TRUE(main->Open().IsOpen());
  EXPECT_EQ(Button("Open"), nullptr);
  Choose(Pictures);
  main->OpenF(folder / "missing.bin");  // closes the dump
  EXPECT_EQ(InfoText(), "");
  EXPECT_EQ(&main->InfoText().FirstFocus(), Button("Open"));
  EXPECT_NE(Button("Help"), nullptr);
}

TEST_F(WelcomeDesk, OffersWhatWasOpenedLast) {
  const auto first = WriteDump("first.bin");
  const auto second = WriteDump("A & B.bin");
  EXPECT_EQ(Button(PathText(first)), nullptr);
  main->OpenF(first);
  main->OpenF(second);
  main->CloseFF();
  EXPECT_NE(Button(PathText(second)), nullptr);
  Click(*Button(PathText(first)));
  EXPECT_EQ(main->Open().path, first);
}

TEST_F(WelcomeDesk, SpeaksTheLanguageThatIsChosen) {
  Choose(FirstLanguage + 10);
  const Messages greek(*FindLanguage("GR"));
  for (const int n : {134, 315, 120}) EXPECT_NE(Button(std::string(greek.Msg(n))), nullptr) << n;
}

TEST_F(WelcomeDesk, WritesAndOpensTheDemonstration) {
  const std::string tryIt(Messages().Msg(Text::TryDemonstration));
  const auto file = Demonstration("Tarvelo demo.bin");
  const std::string said = "i" + std::string(Messages().Msg(Text::DemonstrationSaved)) + "\n\n" + PathText(file);
  for (int time = 0; time < 2; ++time) {  // the second time it lies there already
    Click(*Button(tryIt));
    EXPECT_EQ(script.TakeSaid(), said);
    EXPECT_EQ(main->Open().path, file);
    main->CloseFF();
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
