#include "shell/ringtones/ringtone_transfer.h"

#include <algorithm>

#include "core/file.h"
#include "core/notation.h"
#include "shell/services/loaded_files.h"
#include "shell/frame/main.h"
#include "shell/base/strings.h"

namespace tarvelo {
namespace {

using Reason = RefusedRingtone::Reason;

constexpr std::string_view extensions[] = {".bin", ".mid", ".wav"};

// The message that says why; 0 where the sizes do.
int MessageOf(Reason reason) {
  switch (reason) {
    case Reason::TooLong: return 0;
    case Reason::OddSize: return Text::MelodySizeOdd;
    case Reason::OtherKind: return Text::RingtoneOfOtherKind;
    case Reason::Damaged: return Text::FileIncomplete;
    case Reason::EndsEarly: return Text::MelodyEndsEarly;
  }
  return 0;
}

}  // namespace

std::vector<PanelCommand> RingtoneTransfer::Commands() {
  const auto chosen = [this] { return chosen_() != nullptr && ready_(); };
  const auto any = [this] { return !list_.ringtones.empty() && ready_(); };
  return {
      {.id = SaveRing, .message = Text::SaveRingtone, .help = Text::HelpSaveRingtone, .run = [this] { SaveRing_Click(); }, .enabled = chosen},
      {.id = SaveAllRing,
       .message = Text::SaveAllRingtones,
       .help = Text::HelpSaveAllRingtones,
       .run = [this] { SaveAllRing_Click(); },
       .enabled = any},
      {.id = SaveMidi,
       .message = Text::SaveMidiWaveToo,
       .help = Text::HelpSaveTheseToo,
       .run = [this] { saveMidi_ = !saveMidi_; },
       .checked = [this] { return saveMidi_; }},
      {.id = LoadRing, .message = Text::LoadRingtone, .help = Text::HelpLoadOne, .run = [this] { LoadRing_Click(); }, .enabled = chosen},
      {.id = LoadAllRing,
       .message = Text::LoadAllRingtones,
       .help = Text::HelpLoadAll,
       .run = [this] { LoadAllRing_Click(); },
       .enabled = any}};
}

std::filesystem::path RingtoneTransfer::Folder() const { return main_.Open().FileDir / "MIDI"; }

std::string RingtoneTransfer::Stem() const { return PathText(main_.Open().FileStem.filename()); }

// --- saving ---

std::optional<std::filesystem::path> RingtoneTransfer::SaveOne(const Ringtone& ringtone,
                                                               RingtoneFormat format) try {
  return SaveRingtone(main_.Open().image, ringtone, Folder(), Stem(), format);
} catch (const FileError&) {
  return {};
}

// Writes a ringtone as it stands, and a melody in the common formats too if the user wants that.
// Returns the path of the first file.
std::optional<std::filesystem::path> RingtoneTransfer::SaveFormats(const Ringtone& ringtone) {
  if (saveMidi_ && !ringtone.IsFile()) {
    SaveOne(ringtone, RingtoneFormat::Midi);
    SaveOne(ringtone, RingtoneFormat::Wave);
  }
  return SaveOne(ringtone, RingtoneFormat::Raw);
}

void RingtoneTransfer::SaveRing_Click() {
  const Ringtone* ringtone = chosen_();
  if (!ringtone) return;
  if (const auto file = SaveFormats(*ringtone))
    main_.Tell(Wx(main_.Texts().MsgS(Text::RingtoneSaved, std::to_string(ringtone->number))), *file);
}

void RingtoneTransfer::SaveAllRing_Click() {
  if (SaveEach()) main_.Tell(Text::RingtonesSaved, Folder() / "NNNN.xxx");
}

// Saves all ringtones. False when the user stopped it, and when none could be written.
bool RingtoneTransfer::SaveEach() {
  const StatusHint hint(main_.Status(), Wx(main_.Texts().Msg(Text::EscapeStops)));
  ProgressRun run(main_.Status(), 0, static_cast<std::int64_t>(list_.ringtones.size()));
  std::int64_t done = 0;
  bool isAnySaved = false;
  for (const Ringtone& ringtone : list_.ringtones) {
    run.At(done++);
    if (run.StopAsked()) return false;
    if (SaveFormats(ringtone)) isAnySaved = true;
  }
  return isAnySaved;
}

// --- loading ---

// The ringtone with the size that its file may have.
Ringtone RingtoneTransfer::PlaceOf(const Ringtone& ringtone) const {
  Ringtone place = ringtone;
  for (const Ringtone& before : places_)
    if (before.number == place.number && before.data == place.data && before.form == place.form)
      place.size = std::max(place.size, before.size);
  return place;
}

wxString RingtoneTransfer::Why(const RefusedRingtone& refused, const Ringtone& ringtone) const {
  const Messages& texts = main_.Texts();
  if (const int message = MessageOf(refused.reason))
    return WxPath(refused.path.filename()) + ": " + Wx(texts.Msg(message));
  const wxString whose = Wx(texts.Msg(Text::OfRingtone)) + " " + Wx(HexOfByte(ringtone.number));
  return WrongSizeText(texts, refused.path, refused.fileSize, ringtone.size, whose);
}

void RingtoneTransfer::LoadRing_Click() {
  const Ringtone* ringtone = chosen_();
  if (!ringtone) return;
  const Messages& texts = main_.Texts();
  const wxString filter = Wx(texts.Msg(Text::Ringtones)) +
                          "|*.bin;*.mid;*.wav|Mono (*.bin)|*.bin|*.mid|*.mid|*.wav|*.wav|" +
                          Wx(texts.Msg(Text::AllFiles)) + "|*.*";
  const std::filesystem::path folder = DirExist(Folder()) ? Folder() : main_.Open().FileDir;
  const std::string name = NumberedFileName(Stem(), ringtone->number, ringtone->Extension());
  if (const auto file = main_.Boxes().OpenFile(Wx(texts.Msg(Text::LoadRingtone)), filter, folder / PathOf(name)))
    LoadFile(PlaceOf(*ringtone), *file);
}

void RingtoneTransfer::LoadFile(const Ringtone& ringtone, const std::filesystem::path& file) try {
  if (!FileExist(file)) return main_.Complain(Wx(main_.Texts().MsgS(Text::FileNotFound, PathText(file))));
  const Change change = LoadRingtone(main_.Open().image, ringtone, file);
  main_.WriteImage({&change, 1});
  main_.Tell(Text::RingtonesLoaded, file);
} catch (const RefusedRingtone& refused) {
  main_.Complain(Why(refused, ringtone));
}

// Takes the files that SaveAllRing writes, and loads all that fit at once.
void RingtoneTransfer::LoadAllRing_Click() {
  constexpr int numbers = 256;
  LoadedFiles loaded(main_);
  {
    const StatusHint hint(main_.Status(), Wx(main_.Texts().Msg(Text::EscapeStops)));
    ProgressRun run(main_.Status(), 0, numbers);
    for (int number = 0; number < numbers; ++number) {
      run.At(number);
      if (run.StopAsked()) return;
      for (const std::string_view extension : extensions) LoadNumber(number, extension, loaded);
    }
  }
  loaded.Finish(Text::LoadAllRingtones, Text::RingtonesLoaded, Folder() / PathOf(Stem() + "_NNNN.*"));
}

void RingtoneTransfer::LoadNumber(int number, std::string_view extension, LoadedFiles& loaded) {
  const auto ringtone = std::ranges::find(list_.ringtones, number, &Ringtone::number);
  const bool isListed = ringtone != list_.ringtones.end();
  // The MIDI and WAVE files of melodies are for other programs.
  if (isListed && !ringtone->IsFile() && extension != ringtone->Extension()) return;
  const std::filesystem::path file = Folder() / PathOf(NumberedFileName(Stem(), number, extension));
  if (!FileExist(file)) return;
  if (isListed)
    LoadListed(PlaceOf(*ringtone), file, loaded);
  else
    loaded.Refuse(file, Wx(main_.Texts().Msg(Text::NoRingtoneOfNumber)));
}

void RingtoneTransfer::LoadListed(const Ringtone& ringtone, const std::filesystem::path& file,
                                  LoadedFiles& loaded) try {
  loaded.Add(file, LoadRingtone(main_.Open().image, ringtone, file));
} catch (const RefusedRingtone& refused) {
  loaded.Refuse(Why(refused, ringtone));
} catch (const FileError&) {
  loaded.Refuse(file, Wx(main_.Texts().Msg(Text::CantOpenFile)));
}

}  // namespace tarvelo
