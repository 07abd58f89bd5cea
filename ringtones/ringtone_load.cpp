#include "ringtones/ringtone_load.h"

#include <algorithm>
#include <limits>
#include <string>
#include <string_view>

#include "core/file.h"
#include "ringtones/melody.h"
#include "ringtones/ringtone_length.h"

namespace tarvelo {
namespace {

using Buffer = std::vector<std::uint8_t>;
using Reason = RefusedRingtone::Reason;

constexpr std::uint8_t standardEnd[Tone::recordSize] = {0xFC, 0xFF, 0x00, 0x00};

const char* CauseOf(Reason reason) {
  switch (reason) {
    case Reason::OtherKind: return "it is of another kind than the ringtone";
    case Reason::TooLong: return "it is too long";
    case Reason::OddSize: return "its size is no multiple of 4";
    case Reason::EndsEarly: return "the melody ends before the file";
    case Reason::Damaged: break;
  }
  return "it is empty or incomplete";
}

bool HasText(Bytes file, std::size_t position, std::string_view text) {
  return file.size() >= position + text.size() &&
         std::equal(text.begin(), text.end(), file.begin() + static_cast<std::ptrdiff_t>(position));
}

// The form of a file, or nothing for a RIFF file other than WAVE. Melodies have no signature.
std::optional<RingtoneForm> FormOf(Bytes file) {
  if (HasText(file, 0, "MThd")) return RingtoneForm::Midi;
  if (!HasText(file, 0, "RIFF")) return RingtoneForm::Melody;
  if (HasText(file, 8, "WAVE")) return RingtoneForm::Wave;
  return {};
}

// The size of the longest file that may fit, in bytes.
Offset MostOf(const Ringtone& ringtone) { return ringtone.size + (ringtone.IsFile() ? 0 : Tone::recordSize); }

Offset RecordsIn(Bytes melody) { return Tone::recordSize * std::ssize(DecodeMelody(melody, 0)); }

std::optional<Reason> RefusalOfMelody(Bytes file, Offset place) {
  const Offset size = std::ssize(file);
  if (size % Tone::recordSize != 0) return Reason::OddSize;
  const Offset records = RecordsIn(file);
  if (records > place) return Reason::TooLong;
  if (records + Tone::recordSize < size) return Reason::EndsEarly;
  return {};
}

// Examines the file as it would be in the image: its own header must end it before the bytes that follow.
std::optional<Reason> RefusalOfFile(const Fullflash& image, const Ringtone& ringtone, Bytes file) {
  constexpr Offset chunkHead = 8;
  const Offset size = std::ssize(file);
  const Offset behind = ringtone.data + size;
  const Offset more =
      std::min(ringtone.size - size + chunkHead, static_cast<Offset>(image.ff().size()) - behind);
  const Bytes old = image.Region(behind, more);
  Buffer placed(file.begin(), file.end());
  placed.insert(placed.end(), old.begin(), old.end());
  placed.push_back(0);  // a file that states too large a size reaches this byte
  const bool isMidi = ringtone.form == RingtoneForm::Midi;
  const Offset told = (isMidi ? LengthOfMidi(placed) : LengthOfWave(placed)).size;
  if (told == 0 || told > size) return Reason::Damaged;
  return {};
}

// `file` is the whole file, or its beginning if the file is longer than the place.
std::optional<Reason> Refusal(const Fullflash& image, const Ringtone& ringtone, Bytes file,
                              std::uint64_t fileSize) {
  if (fileSize == 0) return Reason::Damaged;
  if (FormOf(file) != ringtone.form) return Reason::OtherKind;
  if (fileSize > static_cast<std::uint64_t>(MostOf(ringtone))) return Reason::TooLong;
  return ringtone.IsFile() ? RefusalOfFile(image, ringtone, file) : RefusalOfMelody(file, ringtone.size);
}

// Keeps only the records, and adds an end record if they do not fill the place.
void EndMelody(const Fullflash& image, const Ringtone& ringtone, Buffer& melody) {
  const Offset records = RecordsIn(melody);
  melody.resize(static_cast<std::size_t>(records));
  if (records == ringtone.size) return;
  const Offset end = ringtone.data + ringtone.size;
  // A melody may run to the end of the image and then has no end record.
  const bool hasEnd =
      end + Tone::recordSize <= std::ssize(image.ff()) && EndsMelody(image.Word(end), image.Word(end + 2));
  const Bytes record = hasEnd ? image.Region(end, Tone::recordSize) : Bytes(standardEnd);
  melody.insert(melody.end(), record.begin(), record.end());
}

Buffer ReadUpTo(FileReader& reader, std::size_t most) {
  Buffer bytes(std::min(reader.Size(), most));
  reader.Read(bytes);
  return bytes;
}

}  // namespace

RefusedRingtone::RefusedRingtone(Reason why, const std::filesystem::path& file, std::uint64_t sizeOfFile,
                                 Offset sizeOfPlace)
    : runtime_error(PathText(file) + ": " + CauseOf(why)),
      reason(why),
      path(file),
      fileSize(sizeOfFile),
      placeSize(sizeOfPlace) {}

Change LoadRingtone(const Fullflash& image, const Ringtone& ringtone, const std::filesystem::path& file) {
  constexpr Offset signature = 12;
  FileReader reader(file, std::numeric_limits<std::uint64_t>::max());
  Buffer bytes = ReadUpTo(reader, static_cast<std::size_t>(std::max(MostOf(ringtone), signature)));
  // An empty melody may be behind the image.
  const Bytes place = ringtone.size == 0 ? Bytes() : image.Region(ringtone.data, ringtone.size);
  if (reader.Size() != place.size() || !std::ranges::equal(bytes, place)) {
    if (const auto reason = Refusal(image, ringtone, bytes, reader.Size()))
      throw RefusedRingtone(*reason, file, reader.Size(), ringtone.size);
    if (!ringtone.IsFile()) EndMelody(image, ringtone, bytes);
  }
  if (bytes.empty()) return {};
  const Bytes old = place.first(bytes.size());
  return {ringtone.data, {old.begin(), old.end()}, std::move(bytes)};
}

}  // namespace tarvelo
