#include "shell/ringtones/ringtone_transfer.h"

#include <algorithm>
#include <exception>

#include "core/file.h"
#include "core/notation.h"
#include "resources/texts.h"
#include "shell/base/strings.h"
#include "shell/platform/temporary_folder.h"
#include "shell/services/ids.h"
#include "shell/services/loaded_files.h"
#include "shell/services/save_each.h"
#include "shell/services/status_bar.h"
#include "shell/services/talk.h"
#include "shell/services/workbench.h"

namespace tarvelo {
namespace {

using Reason = RefusedRingtone::Reason;

constexpr std::string_view extensions[] = {".bin", ".mid", ".wav"};

// The message for a reason; nothing if the sizes explain it.
std::optional<Text> TextOf(Reason reason) {
  switch (reason) {
    case Reason::TooLong: return {};
    case Reason::OddSize: return Text::MelodySizeOdd;
    case Reason::OtherKind: return Text::RingtoneOfOtherKind;
    case Reason::Damaged: return Text::FileIncomplete;
    case Reason::EndsEarly: return Text::MelodyEndsEarly;
  }
  return {};
}

}  // namespace

std::vector<PanelCommand> RingtoneTransfer::Commands() {
  const auto chosen = [this] { return chosen_() != nullptr; };
  const auto any = [this] { return !listed_().ringtones.empty(); };
  return {
      {Id::SaveRing, Text::SaveRingtone, Text::HelpSaveRingtone, "", [this] { SaveRing_Click(); }, chosen},
      {Id::SaveAllRing, Text::SaveAllRingtones, Text::HelpSaveAllRingtones, "",
       [this] { SaveAllRing_Click(); }, any},
      {Id::SaveMidi,
       Text::SaveMidiWaveToo,
       Text::HelpSaveTheseToo,
       "",
       [this] { saveMidi_ = !saveMidi_; },
       {},
       [this] { return saveMidi_; }},
      {Id::LoadRing, Text::LoadRingtone, Text::HelpLoadOne, "", [this] { LoadRing_Click(); }, chosen},
      {Id::LoadAllRing, Text::LoadAllRingtones, Text::HelpLoadAll, "", [this] { LoadAllRing_Click(); }, any}};
}

std::filesystem::path RingtoneTransfer::Folder() const { return bench_.document.FileDir() / "MIDI"; }

std::string RingtoneTransfer::Stem() const { return PathText(bench_.document.FileStem().filename()); }

// --- saving ---

std::filesystem::path RingtoneTransfer::SaveOne(const Ringtone& ringtone, RingtoneFormat format) {
  return *SaveRingtone(bench_.document.Image(), ringtone, Folder(), Stem(), format);
}

// A player may still hold the file that was played before.
std::filesystem::path RingtoneTransfer::SaveToPlay(const Ringtone& ringtone) {
  if (temporary_.empty()) temporary_ = platform::MakeTemporaryFolder();
  const std::filesystem::path folder = temporary_ / std::to_string(++played_);
  return *SaveRingtone(bench_.document.Image(), ringtone, folder, Stem(), RingtoneFormat::Raw);
}

RingtoneTransfer::~RingtoneTransfer() {
  std::error_code ignored;
  if (!temporary_.empty()) std::filesystem::remove_all(temporary_, ignored);
}

// Writes a ringtone in its own form, and a melody in the common formats too if the user wants that. Returns
// the path of the first file.
std::filesystem::path RingtoneTransfer::SaveFormats(const Ringtone& ringtone) {
  if (saveMidi_ && !ringtone.IsFile()) {
    SaveOne(ringtone, RingtoneFormat::Midi);
    SaveOne(ringtone, RingtoneFormat::Wave);
  }
  return SaveOne(ringtone, RingtoneFormat::Raw);
}

void RingtoneTransfer::SaveRing_Click() {
  const std::vector<const Ringtone*> ringtones = selected_();
  if (ringtones.size() > 1) return SaveSelected(ringtones);
  const Ringtone* ringtone = chosen_();
  if (!ringtone) return;
  const std::filesystem::path file = SaveFormats(*ringtone);
  bench_.talk.Tell(Wx(bench_.texts.MsgS(Text::RingtoneSaved, HexOfByte(ringtone->number))), file);
}

// If some could not be saved, tells the user how many of how many were.
void RingtoneTransfer::SaveSelected(const std::vector<const Ringtone*>& ringtones) {
  const std::size_t saved = SaveEach(ringtones);
  if (saved == 0) return;
  wxString text = Wx(bench_.texts.Msg(Text::RingtonesSavedLabel)) << saved;
  if (saved < ringtones.size()) text << " / " << ringtones.size();
  bench_.talk.Tell(text, Folder());
}

void RingtoneTransfer::SaveAllRing_Click() {
  std::vector<const Ringtone*> all;
  for (const Ringtone& ringtone : listed_().ringtones) all.push_back(&ringtone);
  if (SaveEach(all) > 0) bench_.talk.Tell(Text::RingtonesSaved, Folder() / "NNNN.xxx");
}

// Saves ringtones, without those whose files cannot be created. Returns how many were saved, 0 if the user
// stopped it. Throws FileError if none could be saved.
std::size_t RingtoneTransfer::SaveEach(const std::vector<const Ringtone*>& ringtones) {
  std::size_t saved = 0;
  std::exception_ptr failure;
  const auto save = [&](std::size_t i) {
    try {
      SaveFormats(*ringtones[i]);
      ++saved;
    } catch (const FileError&) {
      failure = std::current_exception();
    }
  };
  if (!tarvelo::SaveEach(bench_, ringtones.size(), save)) return 0;
  if (saved == 0 && failure) std::rethrow_exception(failure);
  return saved;
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
  const Messages& texts = bench_.texts;
  if (const auto why = TextOf(refused.reason))
    return WxPath(refused.path.filename()) + ": " + Wx(texts.Msg(*why));
  const wxString whose = Wx(texts.Msg(Text::OfRingtone)) + " " + Wx(HexOfByte(ringtone.number));
  return WrongSizeText(texts, refused.path, refused.fileSize, ringtone.size, whose);
}

void RingtoneTransfer::LoadRing_Click() {
  const Ringtone* ringtone = chosen_();
  if (!ringtone) return;
  const Messages& texts = bench_.texts;
  const wxString filter = Wx(texts.Msg(Text::Ringtones)) +
                          "|*.bin;*.mid;*.wav|Mono (*.bin)|*.bin|*.mid|*.mid|*.wav|*.wav|" +
                          Wx(texts.Msg(Text::AllFiles)) + "|*.*";
  const std::filesystem::path folder = DirExist(Folder()) ? Folder() : bench_.document.FileDir();
  const std::string name = NumberedFileName(Stem(), ringtone->number, ringtone->Extension());
  if (const auto file = bench_.talk.OpenFile(Text::LoadRingtone, filter, folder / PathOf(name)))
    LoadFile(PlaceOf(*ringtone), *file);
}

void RingtoneTransfer::LoadFile(const Ringtone& ringtone, const std::filesystem::path& file) try {
  if (!FileExist(file))
    return bench_.talk.Complain(Wx(bench_.texts.MsgS(Text::FileNotFound, PathText(file))));
  const Change change = LoadRingtone(bench_.document.Image(), ringtone, file);
  bench_.document.Write({&change, 1});
  bench_.talk.Tell(Text::RingtonesLoaded, file);
} catch (const RefusedRingtone& refused) {
  bench_.talk.Complain(Why(refused, ringtone));
}

// Loads the files that SaveAllRing writes, all that fit in one step.
void RingtoneTransfer::LoadAllRing_Click() {
  constexpr int numbers = 256;
  LoadedFiles loaded(bench_);
  {
    const StatusHint hint(bench_.status, Wx(bench_.texts.Msg(Text::EscapeStops)));
    ProgressRun run(bench_.status, 0, numbers);
    for (int number = 0; number < numbers; ++number) {
      run.At(number);
      if (run.StopAsked()) return;
      for (const std::string_view extension : extensions) LoadNumber(number, extension, loaded);
    }
  }
  loaded.Finish(Text::LoadAllRingtones, Text::RingtonesLoaded, Folder() / PathOf(Stem() + "_NNNN.*"));
}

void RingtoneTransfer::LoadNumber(int number, std::string_view extension, LoadedFiles& loaded) {
  const auto& all = listed_().ringtones;
  const auto ringtone = std::ranges::find(all, number, &Ringtone::number);
  const bool isListed = ringtone != all.end();
  // The MIDI and WAVE files of melodies are meant for other programs.
  if (isListed && !ringtone->IsFile() && extension != ringtone->Extension()) return;
  const std::filesystem::path file = Folder() / PathOf(NumberedFileName(Stem(), number, extension));
  if (!FileExist(file)) return;
  if (isListed)
    LoadListed(PlaceOf(*ringtone), file, loaded);
  else
    loaded.Refuse(file, Wx(bench_.texts.Msg(Text::NoRingtoneOfNumber)));
}

void RingtoneTransfer::LoadListed(const Ringtone& ringtone, const std::filesystem::path& file,
                                  LoadedFiles& loaded) try {
  loaded.Add(file, LoadRingtone(bench_.document.Image(), ringtone, file));
} catch (const RefusedRingtone& refused) {
  loaded.Refuse(Why(refused, ringtone));
} catch (const FileError&) {
  loaded.Refuse(file, Wx(bench_.texts.Msg(Text::CantOpenFile)));
}

}  // namespace tarvelo
