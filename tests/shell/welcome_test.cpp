#include "shell/frame/demonstration.h"

#include <wx/settings.h>

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

  const std::filesystem::path first = WriteDump("first.bin"), second = WriteDump("A & B.bin");
};

TEST_F(WelcomeDesk, IsShownUntilADumpIsOpen) {
  EXPECT_EQ(&main->InfoText().FirstFocus(), Button("Open"));
  script.file = first;
  Click(*Button("Open"));
  EXPECT_TRUE(Open().IsOpen());
  EXPECT_EQ(Button("Open"), nullptr);
  Choose(pictures);
  main->Dumps().OpenF(folder / "missing.bin");  // closes the dump
  EXPECT_EQ(InfoText(), "");
  EXPECT_EQ(&main->InfoText().FirstFocus(), Button("Open"));
  wxWindow& page = *Button("Open")->GetParent();
  page.SetBackgroundColour(*wxRED);
  wxSysColourChangedEvent themed;
  themed.SetEventObject(main);
  main->ProcessWindowEvent(themed);
  EXPECT_EQ(page.GetBackgroundColour(), wxSystemSettings::GetColour(wxSYS_COLOUR_WINDOW));
  Choose(Id::FirstLanguage + 10);
  const Messages greek(*FindLanguage("GR"));
  for (const Text text : {Text::Open, Text::TryDemonstration, Text::Help})
    EXPECT_NE(Button(std::string(greek.Msg(text))), nullptr) << greek.Msg(text);
}

TEST_F(WelcomeDesk, OffersRecentFiles) {
  int shown = 0;
  const auto* none = FirstIn<wxButton>(main->InfoText().Window(), [&](const wxButton& button) {
    shown += button.IsShownOnScreen();
    return false;
  });
  EXPECT_EQ(none, nullptr);
  EXPECT_EQ(shown, 4);  // no empty ones
  for (const auto& file : {first, second}) main->Dumps().OpenF(file);
  main->Dumps().CloseFF();
  EXPECT_EQ(Utf8(Button(PathText(second))->GetToolTipText()), PathText(second));
  Click(*Button(PathText(first)));
  EXPECT_EQ(Open().Path(), first);
}

TEST_F(WelcomeDesk, WritesAndOpensTheDemonstration) {
  const auto documents = folder / "documents", file = documents / "Tarvelo demo.bin";
  for (int time = 0; time < 2; ++time) {  // the second time it is already there
    Click(*Button(std::string(Messages().Msg(Text::TryDemonstration))));
    EXPECT_EQ(script.TakeSaid(), "i" + std::string(Messages().Msg(Text::DemonstrationSaved)) + At(file));
    EXPECT_EQ(Open().Path(), file);
    main->Dumps().CloseFF();
  }
  EXPECT_EQ(std::filesystem::file_size(file), 0x800000u);
  const auto secondFile = documents / "Tarvelo demo 2.bin";
  EXPECT_FALSE(FileExist(secondFile));

  WriteFile(file, "mine");  // is not overwritten
  std::filesystem::create_directory(secondFile);
  EXPECT_EQ(WriteDemonstration(documents, DemoKind::First), documents / "Tarvelo demo 3.bin");
  EXPECT_EQ(ReadAll(file), "mine");
  main->Dumps().CloseFF();
  Click(*Button(std::string(Messages().Msg(Text::TrySecondDemonstration))));
  EXPECT_EQ(Open().Path(), documents / "Tarvelo demo, second firmware.bin");
  EXPECT_EQ(Open().Info().StatusText().substr(0, 7), "C55 v25");
}

}  // namespace
}  // namespace tarvelo
