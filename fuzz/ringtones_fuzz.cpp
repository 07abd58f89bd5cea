// Arbitrary bytes as a dump with ringtones: decodes them and turns them into files; and as a sound file.
#include "core/identification.h"
#include "fuzz/target.h"
#include "ringtones/melody.h"
#include "ringtones/ringtone_files.h"
#include "ringtones/ringtone_length.h"
#include "ringtones/ringtone_search.h"

namespace {

using namespace tarvelo;
using namespace tarvelo::fuzz;

// Limits for all ringtones together, to keep an input fast.
constexpr std::int64_t mostTime = 3000;  // milliseconds of sound
constexpr Offset mostNotes = 1 << 17;    // records that are played

// Returns its playing time.
std::int64_t Play(const Fullflash& image, const Ringtone& ringtone, bool heard) {
  if (ringtone.IsFile()) return 0;
  const std::vector<Tone> melody = DecodeMelody(image.ff(), ringtone.data);
  Check(static_cast<Offset>(melody.size()) == ringtone.Notes(), "a melody has as many notes as its entry");
  std::int64_t time = 0;
  for (const Tone& tone : melody) time += tone.duration;
  Check(time == ringtone.time, "a melody is as long as its notes");
  if (!heard) return time;
  (void)MelodyMidi(melody);
  (void)MelodyWave(melody);
  return time;
}

void CheckLength(Bytes file) {
  for (const FileLength& length : {LengthOfMidi(file), LengthOfWave(file)}) {
    Check(length.size >= 0 && length.size <= static_cast<Offset>(file.size()), "a file ends with the image");
    Check(length.time >= 0, "time does not run backwards");
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  Input content({data, size});
  (void)content.DWord();  // the header with which an input describes an image
  CheckLength(content.Rest());
  Fullflash image = ImageOf({data, size});
  if (!image.IsOpen()) return 0;
  (void)Identify(image);
  NoProgress progress;
  const RingtoneList list = GetRingtones(image, progress);
  Check(list.ringtones.size() <= 256, "there is one ringtone a number");
  std::int64_t played = 0;
  Offset notes = 0;
  for (const Ringtone& ringtone : list.ringtones) {
    const auto end = static_cast<Offset>(image.ff().size());
    Check(ringtone.size == 0 || ringtone.data + ringtone.size <= end, "a ringtone lies within the image");
    notes += ringtone.Notes();
    if (notes < mostNotes) played += Play(image, ringtone, played + ringtone.time < mostTime);
  }
  return 0;
}
