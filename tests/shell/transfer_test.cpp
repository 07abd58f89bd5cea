// Saving and loading EEPROM blocks and ringtones through their panels.
#include <wx/textctrl.h>

#include "shell/desk.h"
#include "shell/eeprom/block_view.h"
#include "shell/eeprom/eeprom_panel.h"
#include "shell/ringtones/piano_roll.h"
#include "shell/ringtones/ringtones_panel.h"

namespace tarvelo {
namespace {

namespace fs = std::filesystem;

class TransferDesk : public Desk {
 protected:
  TransferDesk(int panel, const char* folderOfFiles) : files(folder / folderOfFiles) { OpenDemo(panel); }

  // The last message of a command that asks for a file and gets this one.
  std::string Loaded(int id, const std::optional<fs::path>& file) {
    script.file = file;
    return SaidAtLast(id);
  }
  [[nodiscard]] std::size_t FilesThere() const {
    return static_cast<std::size_t>(std::distance(fs::directory_iterator(files), {}));
  }
  void Alter(const char* name, std::size_t at) const {
    std::string bytes = ReadAll(files / name);
    bytes.at(at) = static_cast<char>(bytes.at(at) ^ 1);
    std::ofstream(files / name, std::ios::binary) << bytes;
  }
  void ExpectOneStepBackToTheDemo() {
    Open().Undo();
    EXPECT_FALSE(Open().Edits().CanUndo());
    EXPECT_TRUE(AllBytes() == DemoImage());
  }

  const fs::path files;
};

// --- EEPROM ---

class EepromTransferDesk : public TransferDesk {
 protected:
  EepromTransferDesk() : TransferDesk(eeprom, "EEPROM") {}

  [[nodiscard]] EepromPanel& Panel() { return Shown<EepromPanel>(); }
  [[nodiscard]] wxString DumpText() { return PanelOf<EepromPanel>(eeprom).View()->Dump().GetValue(); }
};

constexpr char greeting[] = "7CC384";  // the live block 5076: 66 bytes
constexpr Offset greetingData = 0x7C0AC4;

TEST_F(EepromTransferDesk, OneBlockGoesToAFileAndBack) {
  SelectHeader(greeting);
  const fs::path file = files / "demo_5076.bin";
  EXPECT_EQ(Said(Id::SaveBlock), "iBlock \"5076\" was saved in file" + At(file));
  EXPECT_EQ(fs::file_size(file), 66u);
  main->Run(Id::ShowBlock);
  const wxString before = DumpText();

  EXPECT_EQ(Loaded(Id::LoadBlock, file), "iBlock \"5076\" was loaded from file" + At(file));
  EXPECT_EQ(Status(10), "");  // nothing changed
  const std::uint8_t old = Image().Byte(greetingData + 10);
  Alter("demo_5076.bin", 10);
  EXPECT_EQ(Loaded(Id::LoadBlock, {}), "open EEPROM (*.bin)|*.bin|All files|*.*");  // cancelled
  EXPECT_EQ(Image().Byte(greetingData + 10), old);
  Loaded(Id::LoadBlock, file);
  EXPECT_EQ(Image().Byte(greetingData + 10), old ^ 1);
  EXPECT_EQ(Status(10), "F");
  EXPECT_NE(DumpText(), before);
  EXPECT_EQ(List().RowCount(), 241u);
  Choose(Id::Info);  // the block's window stays
  Open().Undo();
  EXPECT_EQ(DumpText(), before);
  Choose(eeprom);

  main->Run(Id::ShowDel);
  SelectHeader("7CC0C0");  // a deleted block with this number
  EXPECT_TRUE(Said(Id::SaveBlock).ends_with(At(files / "demo_5076_7CC0C0.bin")));

  SelectHeader(greeting);
  EXPECT_EQ(Loaded(Id::LoadBlock, folder.Write("new.bin", std::string(65, 'x'))),
            "!Error ! Wrong size of file \"new.bin\" !\nSize of the file: 65\n"
            "Size in the fullflash: 66 (of block 5076)");
  for (const fs::path& missing : {folder / "no.bin", folder.Path()})
    EXPECT_EQ(Loaded(Id::LoadBlock, missing), "!Error ! File \"" + PathText(missing) + "\" doesn't exist !");
  EXPECT_FALSE(Open().Edits().CanUndo());
}

TEST_F(EepromTransferDesk, AllBlocksGoToFilesAndBack) {
  EXPECT_EQ(Said(Id::LoadAllBlock),
            "!Error ! File \"" + PathText(files / "demo_NNNN.bin") + "\" doesn't exist !");
  EXPECT_EQ(Said(Id::SaveAllBlock), "iAll blocks were saved to" + At(files / "NNNN.bin"));
  const std::size_t live = FilesThere();
  EXPECT_GT(live, 200u);
  main->Run(Id::DeletedBlocks);
  EXPECT_TRUE(Panel().Commands()->Find(Id::DeletedBlocks)->checked());
  Said(Id::SaveAllBlock);
  EXPECT_GT(FilesThere(), live + 100);
  List().Control().SelectAll();
  EXPECT_EQ(Said(Id::SaveBlock), "iBlocks saved: 241" + At(files));

  const std::string head =
      "[Tarvelo - Load all blocks]Blocks were loaded from\n" + PathText(files) + "\n\nFiles loaded: ";
  EXPECT_EQ(Said(Id::LoadAllBlock),
            head + std::to_string(live) + "\nFiles that differed from the fullflash: 0\n");
  EXPECT_EQ(Status(10), "");

  Alter("demo_5076.bin", 65);
  Alter("demo_5077.bin", 0);
  for (const char* name :
       {"demo_0067.bin", "demo_0998.bin", "demo_7000.bin" /* no block's */, "other_5078.bin"})
    folder.Write(fs::path("EEPROM") / name, std::string("1"));
  const std::string said = Said(Id::LoadAllBlock);
  EXPECT_TRUE(said.starts_with(head + std::to_string(live - 1) +
                               "\nFiles that differed from the fullflash: 2\ndemo_5076.bin\ndemo_5077.bin\n\n"
                               "Files not loaded: 2\nError ! Wrong size of file \"demo_0067.bin\" !\n"
                               "Size of the file: 1\nSize in the fullflash: "))
      << said;
  EXPECT_TRUE(said.ends_with(" (of block 67)\ndemo_0998.bin: Error ! Block \"998\" wasn't found !\n"))
      << said;
  EXPECT_EQ(Status(10), "F");
  ExpectOneStepBackToTheDemo();

  const std::string backups[] = {Said(Id::eeBackup), Said(Id::eeBackup)};
  EXPECT_NE(backups[0], backups[1]);
  const std::string saved = "iAll blocks were saved to\n\n";
  for (const std::string& backup : backups) {
    ASSERT_TRUE(backup.starts_with(saved + PathText(folder / "EEPROM backup 20"))) << backup;
    EXPECT_TRUE(FileExist(PathOf(backup.substr(saved.size())) / "demo_5076.bin"));
  }
}

TEST_F(EepromTransferDesk, BlocksWithoutDataOrPlace) {
  std::vector<std::uint8_t> bytes = ImageOfBlocks({1, 2});
  bytes[4 + 2] = 0xBF;                // before the start of the image
  bytes[12] = bytes[12 + 11] = 0xF0;  // deleted
  OpenBytes("few.bin", bytes, eeprom);
  main->Run(Id::ShowDel);
  for (const int id : {Id::SaveBlock, Id::LoadBlock})
    EXPECT_EQ(Said(id), "!The block has no data in the image.");
  List().Select(1);
  EXPECT_EQ(Said(Id::LoadBlock), "!Error ! Block \"2\" wasn't found !");
  for (const int id : {Id::SaveAllBlock, Id::eeBackup})
    EXPECT_EQ(Said(id), "!No data for saving !\n\nBlocks without data in the fullflash: 1");
  for (const auto& entry : fs::directory_iterator(folder.Path()))
    EXPECT_FALSE(PathText(entry.path().filename()).starts_with("EEPROM backup"));
  main->Run(Id::DeletedBlocks);
  EXPECT_EQ(Said(Id::SaveAllBlock), "iAll blocks were saved to" + At(files / "NNNN.bin") +
                                        "\n\nBlocks without data in the fullflash: 1");
  EXPECT_EQ(FilesThere(), 1u);
}

// --- ringtones ---

class RingtoneTransferDesk : public TransferDesk {
 protected:
  RingtoneTransferDesk() : TransferDesk(ringtones, "MIDI") {}

  [[nodiscard]] std::string Melody(std::size_t row) { return Cell(row, 7); }
};

constexpr std::string_view twoNotes("\xB8\x01\xF4\x01\x70\x03\xFA\x00", 8);
constexpr char asText[] = "440:500 880:250 ";

TEST_F(RingtoneTransferDesk, AMelodyIsReplaced) {
  const auto file = folder.Write("new.bin", twoNotes);
  List().Select(1);
  EXPECT_EQ(Said(Id::SaveRing), "iRingtone \"01\" was saved in file" + At(files / "demo_0001.bin"));
  EXPECT_EQ(FilesThere(), 1u);
  const std::string text = Melody(1);
  EXPECT_EQ(Loaded(Id::LoadRing, {}),
            "open Ringtones|*.bin;*.mid;*.wav|Mono (*.bin)|*.bin|*.mid|*.mid|*.wav|*.wav|All files|*.*");
  EXPECT_EQ(Loaded(Id::LoadRing, file), "iRingtones were loaded from" + At(file));
  EXPECT_EQ(Melody(1), asText);
  EXPECT_EQ(List().Selected(), 1u);
  EXPECT_EQ(Shown<RingtonesPanel>().Roll().Notes().size(), 2u);
  EXPECT_EQ(Status(10), "F");
  EXPECT_EQ(InfoText().find("RIT-table"), InfoText().rfind("RIT-table"));
  EXPECT_TRUE(script.beeps.empty());

  Loaded(Id::LoadRing, files / "demo_0001.bin");  // the old one still has its room
  EXPECT_EQ(Melody(1), text);
  Open().Undo();
  EXPECT_EQ(Melody(1), asText);
  Choose(Id::Info);
  Open().Undo();
  Choose(ringtones);  // searched again
  EXPECT_EQ(Melody(1), text);
  EXPECT_EQ(List().Selected(), 1u);

  for (const auto& [bytes, said] :
       {std::pair<std::string, std::string>(
            std::string(168, 'a'),
            "!Error ! Wrong size of file \"new.bin\" !\nSize of the file: 168\n"
            "Size in the fullflash: 160 (of ringtone 01)"),
        {"abc",
         "!new.bin: A melody has 4 bytes for each note: the size of its file must be a multiple of 4."},
        {"", "!new.bin: The file is empty or incomplete."},
        {std::string(8, '\0'), "!new.bin: The melody ends before the end of the file."}})
    EXPECT_EQ(Loaded(Id::LoadRing, folder.Write("new.bin", bytes)), said);
  EXPECT_TRUE(Loaded(Id::LoadRing, folder / "no.bin").starts_with("!Error ! File "));
  EXPECT_FALSE(Open().Edits().CanUndo());
}

TEST_F(RingtoneTransferDesk, AllAreLoadedAtOnce) {
  EXPECT_EQ(Said(Id::LoadAllRing),
            "!Error ! File \"" + PathText(files / "demo_NNNN.*") + "\" doesn't exist !");
  main->Run(Id::SaveMidi);
  EXPECT_EQ(Said(Id::SaveAllRing), "iRingtones were saved to" + At(files / "NNNN.xxx"));
  EXPECT_EQ(FilesThere(), 3 * (List().RowCount() - 2) + 2);  // two are already files

  for (const char* name : {"demo_0001.bin", "demo_0006.bin", "demo_00FE.bin"})
    folder.Write(fs::path("MIDI") / name, twoNotes);
  Alter("demo_0007.wav", 100);
  folder.Write("MIDI/demo_0002.bin", std::string(9999, 'a'));
  const std::string said = Said(Id::LoadAllRing);
  EXPECT_TRUE(said.starts_with("[Tarvelo - Load all ringtones]Ringtones were loaded from\n")) << said;
  for (const char* part : {"fullflash: 2\ndemo_0001.bin\ndemo_0007.wav\n\nFiles not loaded: 3\n",
                           "\"demo_0002.bin\" !\nSize of the file: 9999\n"})
    EXPECT_NE(said.find(part), said.npos) << said;
  EXPECT_TRUE(
      said.ends_with("demo_0006.bin: The file is not of the same kind as the ringtone.\n"
                     "demo_00FE.bin: There is no ringtone of this number.\n"))
      << said;
  EXPECT_EQ(Melody(1), asText);
  ExpectOneStepBackToTheDemo();

  fs::remove_all(files);
  WriteFile(files, "in the way of the folder");
  for (const int id : {Id::SaveRing, Id::SaveAllRing})
    EXPECT_EQ(Said(id), "!Can't write file !" + At(files) + WriteAdvice());
}

// Two melodies in the same place with a file each, which contradict each other.
TEST_F(RingtoneTransferDesk, FilesThatContradictEachOther) {
  std::vector<std::uint8_t> bytes = DemoImage();
  std::copy_n(bytes.begin() + 0x330004, 4, bytes.begin() + 0x33000C);  // 1 shares the data of 0
  OpenBytes("shared.bin", bytes, ringtones);
  ASSERT_EQ(Cell(0, 4), Cell(1, 4));
  Said(Id::SaveAllRing);
  Alter("shared_0000.bin", 0);  // the other file matches the current data
  EXPECT_NE(Said(Id::LoadAllRing).find("fullflash: 1\nshared_0000.bin\n"), std::string::npos);
  EXPECT_EQ(Melody(0), Melody(1));
  Open().Undo();
  Alter("shared_0001.bin", 1);
  const std::string said = Said(Id::LoadAllRing);
  EXPECT_TRUE(
      said.ends_with("Files not loaded: 1\nshared_0001.bin: It shares bytes with another file, which "
                     "says something else.\n"))
      << said;
}

}  // namespace
}  // namespace tarvelo
