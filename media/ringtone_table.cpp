#include "media/ringtone_table.h"

#include <algorithm>

#include "core/notation.h"
#include "media/melody.h"

namespace tarvelo {
namespace {

// Characters that all the texts of a list may have, beside four for each byte of the image.
constexpr std::size_t textOfTable = 0x1000000;

// At least six digits; a longer number keeps all of its own.
std::string HexColumn(Offset value) {
  const std::string digits = Hex(static_cast<std::uint32_t>(value));
  return PadZero(digits, std::max<std::size_t>(6, digits.size()));
}

std::string Column(std::int64_t value, std::size_t width) {
  const std::string digits = std::to_string(value);
  return PadSpace(digits, std::max(width, digits.size()));
}

std::string NoteColumn(const Ringtone& ringtone) {
  if (ringtone.IsFile()) return std::string(ringtone.Extension().substr(1));
  return Column(ringtone.Notes(), 4);
}

// The text form within `room`, which shrinks by it.
std::string TextColumn(const Ringtone& ringtone, const Fullflash& image, std::size_t& room) {
  constexpr std::size_t shortestPair = 4;  // "0:1 "
  const auto records = static_cast<std::size_t>(ringtone.Notes());
  const std::vector<Tone> tones =
      DecodeMelody(image.ff(), ringtone.data, std::min(records, room / shortestPair + 1));
  std::string text;
  if (tones.size() * longestPair <= room) {
    text = MelodyText(tones);
    room -= text.size();
    return text;
  }
  for (const Tone& tone : tones) {
    const std::string pair = MelodyText({&tone, 1});
    if (pair.size() > room) {
      room = 0;
      return text.append("...");
    }
    room -= pair.size();
    text.append(pair);
  }
  return text;
}

}  // namespace

Table RingtoneTable(const RingtoneList& list, const Fullflash& image) {
  Table table{{"N", "Note", "Time", "T", "Offset", "Size", "RIT", "Ringtone"}, {}};
  table.rows.reserve(list.ringtones.size());
  std::size_t room = textOfTable + 4 * image.ff().size();
  for (const Ringtone& ringtone : list.ringtones)
    table.rows.push_back({{HexOfByte(ringtone.number), NoteColumn(ringtone), Column(ringtone.time, 6),
                           HexOfByte(ringtone.kind), HexColumn(ringtone.data), Column(ringtone.size, 5),
                           HexColumn(ringtone.entry), TextColumn(ringtone, image, room)}});
  return table;
}

std::string RingtoneInformation(const RingtoneList& list, const Messages& messages) {
  if (!list.table) return "";
  std::string text(messages.Msg(29));
  text.append(Hex(static_cast<std::uint32_t>(*list.table))).append("\n");
  text.append(messages.Msg(28)).append(std::to_string(list.ringtones.size())).append("\n");
  return text;
}

}  // namespace tarvelo
