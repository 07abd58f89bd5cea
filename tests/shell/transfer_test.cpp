// Saving and loading EEPROM blocks and ringtones through their panels.
#include <wx/dataview.h>
#include <wx/textctrl.h>

#include <algorithm>

#include "demo/demo_image.h"
#include "media/ringtone_files.h"
#include "shell/block_view.h"
#include "shell/desk.h"
#include "shell/eeprom_panel.h"
#include "shell/list_view.h"
#include "shell/piano_roll.h"
#include "shell/ringtones_panel.h"

namespace tarvelo {
namespace {

class TransferDesk : public Desk {
 protected:
  void Open(const std::vector<std::uint8_t>& bytes, int panel, const char* name = "demo.bin") {
    main->OpenF(folder.Write(name, bytes));
    Choose(panel);
  }

  // What a command says at the end; a file is chosen from the dialog if it asks for one.
  std::string Said(int id, const std::optional<std::filesystem::path>& file = {}) {
    script.file = file;
    script.said.clear();
    main->Run(id);
    return script.said.empty() ? std::string() : script.said.back();
  }

  [[nodiscard]] std::size_t FilesIn(const std::filesystem::path& path) const {
    return static_cast<std::size_t>(std::distance(std::filesystem::directory_iterator(path), {}));
  }
  void Alter(const std::filesystem::path& file, std::size_t at) const {
    std::string bytes = ReadAll(file);
    bytes.at(at) = static_cast<char>(bytes.at(at) ^ 1);
    std::ofstream(file, std::ios::binary) << bytes;
  }
  [[nodiscard]] std::uint8_t ByteAt(Offset offset) const { return main->Open().image.Byte(offset); }
};

std::string At(const std::filesystem::path& path) { return "\n\n" + PathText(path); }

// --- EEPROM ---

class EepromTransferDesk : public TransferDesk {
 protected:
  EepromTransferDesk() { Open(DemoImage(), EEPROM); }

  [[nodiscard]] EepromPanel& Panel() { return dynamic_cast<EepromPanel&>(*main->Visible()); }
  [[nodiscard]] std::filesystem::path Saved(const std::string& name) const {
    return folder / "EEPROM" / name;
  }
  void SelectHeader(const std::string& position) { ASSERT_TRUE(Panel().ListE().Find(position, false, 2)); }
};

constexpr char greeting[] = "7CC384";  // the live block 5076: 66 bytes
constexpr Offset greetingData = 0x7C0AC4;

TEST_F(EepromTransferDesk, OneBlockGoesToAFileAndBack) {
  SelectHeader(greeting);
  const std::filesystem::path file = Saved("demo_5076.bin");
  EXPECT_EQ(Said(SaveBlockE), "iBlock \"5076\" was saved in file" + At(file));
  EXPECT_EQ(std::filesystem::file_size(file), 66u);
  main->Run(InfoE);
  const wxString before = Panel().View()->Dump().GetValue();

  EXPECT_EQ(Said(LoadBlockE, file), "iBlock \"5076\" was loaded from file" + At(file));
  EXPECT_EQ(Status(10), "");  // nothing is another
  const std::uint8_t old = ByteAt(greetingData + 10);
  Alter(file, 10);
  EXPECT_EQ(Said(LoadBlockE), "open EEPROM (*.bin)|*.bin|All files|*.*");  // cancelled
  EXPECT_EQ(ByteAt(greetingData + 10), old);
  Said(LoadBlockE, file);
  EXPECT_EQ(ByteAt(greetingData + 10), old ^ 1);
  EXPECT_EQ(Status(10), "F");
  EXPECT_NE(Panel().View()->Dump().GetValue(), before);
  EXPECT_EQ(Panel().ListE().RowCount(), 241u);
  main->UndoImage();
  EXPECT_EQ(ByteAt(greetingData + 10), old);
  EXPECT_EQ(Panel().View()->Dump().GetValue(), before);
}

TEST_F(EepromTransferDesk, DeletedGenerationsAreSavedAndTheLiveBlockIsLoaded) {
  main->Run(ShowDel);
  SelectHeader("7CC0C0");  // a deleted block 5076
  const std::filesystem::path file = Saved("demo_5076_7CC0C0.bin");
  EXPECT_EQ(Said(SaveBlockE), "iBlock \"5076\" was saved in file" + At(file));
  EXPECT_EQ(Said(LoadBlockE, file), "iBlock \"5076\" was loaded from file" + At(file));
  const Bytes loaded = main->Open().image.Region(greetingData, 66);
  EXPECT_EQ(std::string(loaded.begin(), loaded.end()), ReadAll(file));
}

TEST_F(EepromTransferDesk, WhatDoesNotFitIsRefused) {
  SelectHeader(greeting);
  for (const std::size_t size : {0, 65, 67, 1 << 20}) {
    const auto file = folder.Write("new.bin", std::string(size, 'x'));
    EXPECT_EQ(Said(LoadBlockE, file),
              "!Error ! Wrong size of file \"new.bin\" !\nSize of the file: " + std::to_string(size) +
                  "\nSize in the fullflash: 66 (of block 5076)");
  }
  EXPECT_EQ(Said(LoadBlockE, folder / "no.bin"),
            "!Error ! File \"" + PathText(folder / "no.bin") + "\" doesn't exist !");
  EXPECT_EQ(Said(LoadBlockE, folder.Path()),
            "!Error ! File \"" + PathText(folder.Path()) + "\" doesn't exist !");
  EXPECT_EQ(Status(10), "");
}

TEST_F(EepromTransferDesk, AllBlocksGoToFilesAndBack) {
  EXPECT_EQ(Said(LoadAllBlockE),
            "!Error ! File \"" + PathText(Saved("demo_NNNN.bin")) + "\" doesn't exist !");
  EXPECT_EQ(Said(SaveAllBlockE), "iAll blocks were saved to" + At(Saved("NNNN.bin")));
  const std::size_t live = FilesIn(folder / "EEPROM");
  EXPECT_GT(live, 200u);
  main->Run(DeletedBlocksE);
  EXPECT_TRUE(Panel().Commands()->Find(DeletedBlocksE)->checked());
  Said(SaveAllBlockE);
  EXPECT_GT(FilesIn(folder / "EEPROM"), live + 100);

  const std::string head = "[Tarvelo - Load all blocks]Blocks were loaded from\n" +
                           PathText(folder / "EEPROM") + "\n\nFiles loaded: ";
  EXPECT_EQ(Said(LoadAllBlockE),
            head + std::to_string(live) + "\nFiles that differed from the fullflash: 0\n");
  EXPECT_EQ(Status(10), "");

  Alter(Saved("demo_5076.bin"), 65);
  Alter(Saved("demo_5077.bin"), 0);
  folder.Write("EEPROM/demo_0067.bin", std::string("1"));
  folder.Write("EEPROM/demo_0998.bin", std::string("1"));
  folder.Write("EEPROM/demo_7000.bin", std::string("no block's"));
  folder.Write("EEPROM/other_5078.bin", std::string("another dump's"));
  const std::string said = Said(LoadAllBlockE);
  EXPECT_TRUE(said.starts_with(head + std::to_string(live - 1) +
                               "\nFiles that differed from the fullflash: 2\ndemo_5076.bin\ndemo_5077.bin\n\n"
                               "Files not loaded: 2\nError ! Wrong size of file \"demo_0067.bin\" !\n"
                               "Size of the file: 1\nSize in the fullflash: "))
      << said;
  EXPECT_TRUE(said.ends_with(" (of block 67)\ndemo_0998.bin: Error ! Block \"998\" wasn't found !\n"))
      << said;
  EXPECT_EQ(Status(10), "F");
  main->UndoImage();  // one step
  EXPECT_FALSE(main->Open().edits.CanUndo());
  EXPECT_TRUE(std::ranges::equal(main->Open().image.ff(), DemoImage()));
}

TEST_F(EepromTransferDesk, BackupsNeverMeet) {
  const auto backups = [this] {
    std::vector<std::filesystem::path> folders;
    for (const auto& entry : std::filesystem::directory_iterator(folder.Path()))
      if (PathText(entry.path().filename()).starts_with("EEPROM backup 20")) folders.push_back(entry.path());
    return folders;
  };
  const std::string first = Said(BackupE);
  ASSERT_EQ(backups().size(), 1u);
  EXPECT_EQ(first, "iAll blocks were saved to" + At(backups()[0]));
  EXPECT_TRUE(FileExist(backups()[0] / "demo_5076.bin"));
  EXPECT_NE(Said(BackupE), first);
  EXPECT_EQ(backups().size(), 2u);
}

TEST_F(EepromTransferDesk, BlocksWithoutDataOrPlace) {
  ImageBuilder builder(0x10000);
  const auto put = [&builder](std::size_t at, std::uint16_t state, std::uint16_t number, std::uint32_t data) {
    builder.Word(builder.DWord(builder.Word(builder.Word(at, state), 4), data), number);
    builder.Word(at + 10, static_cast<std::uint16_t>(state << 8));
  };
  put(0, 0xFC, 1, 0xBFF000);     // in front of the image
  put(0x10, 0xF0, 2, 0xFFF000);  // deleted
  Open(std::move(builder).Take(), EEPROM, "few.bin");
  main->Run(ShowDel);
  EXPECT_EQ(Said(SaveBlockE), "!The block has no data in the image.");
  EXPECT_EQ(Said(LoadBlockE), "!The block has no data in the image.");
  Panel().ListE().Select(1);
  EXPECT_EQ(Said(LoadBlockE), "!Error ! Block \"2\" wasn't found !");
  const std::string none = "!No data for saving !\n\nBlocks without data in the fullflash: 1";
  EXPECT_EQ(Said(SaveAllBlockE), none);
  EXPECT_EQ(Said(BackupE), none);
  main->Run(DeletedBlocksE);
  EXPECT_EQ(Said(SaveAllBlockE), "iAll blocks were saved to" + At(Saved("NNNN.bin")) +
                                     "\n\nBlocks without data in the fullflash: 1");
  EXPECT_EQ(FilesIn(folder / "EEPROM"), 1u);
  for (const auto& entry : std::filesystem::directory_iterator(folder.Path()))
    EXPECT_FALSE(PathText(entry.path().filename()).starts_with("EEPROM backup"));

  Open({0xFC, 0xFC}, EEPROM, "tiny.bin");
  for (const int id : {SaveBlockE, SaveAllBlockE, LoadBlockE, LoadAllBlockE, BackupE})
    EXPECT_EQ(Said(id), "");
}

// --- ringtones ---

class RingtoneTransferDesk : public TransferDesk {
 protected:
  RingtoneTransferDesk() { Open(DemoImage(), Ringtones); }

  [[nodiscard]] RingtonesPanel& Panel() { return dynamic_cast<RingtonesPanel&>(*main->Visible()); }
  [[nodiscard]] ListView& List() { return Panel().ListR(); }
  [[nodiscard]] std::string Cell(std::size_t row, std::size_t column) {
    return List().GetTable().rows[row].cells[column];
  }
  [[nodiscard]] std::filesystem::path Saved(const std::string& name) const { return folder / "MIDI" / name; }
};

constexpr std::string_view twoNotes("\xB8\x01\xF4\x01\x70\x03\xFA\x00", 8);

TEST_F(RingtoneTransferDesk, AMelodyIsReplaced) {
  const auto file = folder.Write("new.bin", twoNotes);
  List().Select(1);
  Said(SaveRing);
  const std::string text = Cell(1, 7);
  EXPECT_EQ(Said(LoadRing),
            "open Ringtones|*.bin;*.mid;*.wav|Mono (*.bin)|*.bin|*.mid|*.mid|*.wav|*.wav|All files|*.*");
  EXPECT_EQ(Said(LoadRing, file), "iRingtones were loaded from" + At(file));
  EXPECT_EQ(Cell(1, 7), "440:500 880:250 ");
  EXPECT_EQ(List().Selected(), 1u);
  EXPECT_EQ(Panel().Roll().Notes().size(), 2u);
  EXPECT_EQ(Status(10), "F");
  EXPECT_EQ(InfoText().find("RIT-table"), InfoText().rfind("RIT-table"));
  EXPECT_TRUE(script.beeps.empty());

  Said(LoadRing, Saved("demo_0001.bin"));  // the old one has its place still
  EXPECT_EQ(Cell(1, 7), text);
  main->UndoImage();
  EXPECT_EQ(Cell(1, 7), "440:500 880:250 ");
  Choose(Info);
  main->UndoImage();
  Choose(Ringtones);  // searched again
  EXPECT_EQ(Cell(1, 7), text);
  EXPECT_EQ(List().Selected(), 1u);
}

TEST_F(RingtoneTransferDesk, WhatDoesNotFitIsRefused) {
  struct Case {
    std::size_t row;
    std::string file;
    std::string said;
  };
  const std::string wrongSize = "Error ! Wrong size of file \"new.bin\" !\nSize of the file: ";
  const Case cases[] = {
      {1, std::string(168, 'a'), wrongSize + "168\nSize in the fullflash: 160 (of ringtone 01)"},
      {1, std::string(159, 'a'),
       "new.bin: A melody has 4 bytes for each note: the size of its file must be a multiple of 4."},
      {1, "", "new.bin: The file is empty or incomplete."},
      {1, std::string("a\0\0\0a\0a\0", 8), "new.bin: The melody ends before the end of the file."},
      {1, "MThd", "new.bin: The file is not of the same kind as the ringtone."},
      {5, std::string(twoNotes), "new.bin: The file is not of the same kind as the ringtone."},
      {5, "MThd", "new.bin: The file is empty or incomplete."},
      {6, std::string("RIFF\x50\0\0\0WAVE", 12) + std::string(20000, 'a'), wrongSize},
  };
  for (const Case& c : cases) {
    List().Select(c.row);
    const std::string said = Said(LoadRing, folder.Write("new.bin", c.file));
    EXPECT_TRUE(said.starts_with("!" + c.said)) << said;
  }
  EXPECT_TRUE(Said(LoadRing, folder / "no.bin").starts_with("!Error ! File "));
  EXPECT_EQ(Status(10), "");
}

TEST_F(RingtoneTransferDesk, AllAreLoadedAtOnce) {
  EXPECT_EQ(Said(LoadAllRing), "!Error ! File \"" + PathText(Saved("demo_NNNN.*")) + "\" doesn't exist !");
  main->Run(SaveMidi);
  Said(SaveAllRing);
  const std::string rows = std::to_string(List().GetTable().rows.size());
  const std::string head = "[Tarvelo - Load all ringtones]Ringtones were loaded from\n" +
                           PathText(folder / "MIDI") + "\n\nFiles loaded: ";
  EXPECT_EQ(Said(LoadAllRing), head + rows + "\nFiles that differed from the fullflash: 0\n");
  EXPECT_EQ(Status(10), "");

  folder.Write("MIDI/demo_0001.bin", twoNotes);
  Alter(Saved("demo_0007.wav"), 100);
  folder.Write("MIDI/demo_0002.bin", std::string(9999, 'a'));
  folder.Write("MIDI/demo_0006.bin", twoNotes);
  folder.Write("MIDI/demo_00FE.bin", twoNotes);
  const std::string said = Said(LoadAllRing);
  EXPECT_NE(
      said.find("differed from the fullflash: 2\ndemo_0001.bin\ndemo_0007.wav\n\nFiles not loaded: 3\n"),
      std::string::npos)
      << said;
  EXPECT_NE(said.find("\"demo_0002.bin\" !\nSize of the file: 9999\n"), std::string::npos) << said;
  EXPECT_TRUE(
      said.ends_with("demo_0006.bin: The file is not of the same kind as the ringtone.\n"
                     "demo_00FE.bin: There is no ringtone of this number.\n"))
      << said;
  EXPECT_EQ(Cell(1, 7), "440:500 880:250 ");
  main->UndoImage();
  EXPECT_FALSE(main->Open().edits.CanUndo());
  EXPECT_TRUE(std::ranges::equal(main->Open().image.ff(), DemoImage()));
}

// Two melodies of one place: a file of each, which cannot both be there.
TEST_F(RingtoneTransferDesk, FilesThatContradictEachOther) {
  std::vector<std::uint8_t> bytes = DemoImage();
  std::copy_n(bytes.begin() + 0x330004, 4, bytes.begin() + 0x33000C);  // 1 is where 0 is
  Open(bytes, Ringtones, "shared.bin");
  ASSERT_EQ(Cell(0, 4), Cell(1, 4));
  Said(SaveAllRing);
  Alter(Saved("shared_0000.bin"), 0);  // the other one's file says what stands there
  EXPECT_NE(Said(LoadAllRing).find("fullflash: 1\nshared_0000.bin\n"), std::string::npos);
  EXPECT_EQ(Cell(0, 7), Cell(1, 7));
  main->UndoImage();
  Alter(Saved("shared_0001.bin"), 1);
  const std::string said = Said(LoadAllRing);
  EXPECT_TRUE(
      said.ends_with("Files not loaded: 1\nshared_0001.bin: It shares bytes with another file, which "
                     "says something else.\n"))
      << said;
}

}  // namespace
}  // namespace tarvelo
