#include "ringtones/ringtone_table.h"

#include <algorithm>
#include <utility>

#include "core/notation.h"
#include "resources/texts.h"
#include "ringtones/melody.h"

namespace tarvelo {
namespace {

std::string NoteColumn(const Ringtone& ringtone) {
  if (ringtone.IsFile()) return std::string(ringtone.Extension().substr(1));
  return WholeDecimal(ringtone.Notes(), 4);
}

// How much of a melody's text form its row shows.
struct ShownText {
  std::size_t records = 0;
  std::size_t length = 0;  // characters
  bool isCut = false;
};

std::size_t Digits(std::uint16_t value) {
  return value >= 10000 ? 5 : value >= 1000 ? 4 : value >= 100 ? 3 : value >= 10 ? 2 : 1;
}

// The part of a text form that fits into `room`, which shrinks accordingly.
ShownText Fit(const Ringtone& ringtone, Bytes image, std::size_t& room) {
  ShownText text;
  for (Offset p = ringtone.data; text.records < static_cast<std::size_t>(ringtone.Notes()); p += 4) {
    const std::size_t pair = Digits(WordAt(image, p)) + Digits(WordAt(image, p + 2)) + 2;  // ':' and ' '
    text.isCut = pair > room;
    if (text.isCut) break;
    room -= pair;
    text.length += pair;
    ++text.records;
  }
  if (text.isCut) room = 0;
  return text;
}

// Works in pieces, because a melody may have as many records as the image.
std::string TextColumn(const Ringtone& ringtone, const ShownText& shown, Bytes image) {
  constexpr std::size_t piece = 4096;
  constexpr std::string_view cutMark = "...";
  std::string text;
  text.reserve(shown.length + cutMark.size());
  for (std::size_t done = 0; done < shown.records; done += piece)
    text += MelodyText(DecodeMelody(image, ringtone.data + 4 * static_cast<Offset>(done),
                                    std::min(piece, shown.records - done)));
  return shown.isCut ? text.append(cutMark) : text;
}

}  // namespace

std::vector<std::string> RingtoneCaptions(const Messages& messages) {
  return Captions(messages, {"N", Text::ColumnNote, Text::ColumnTime, "T", Text::ColumnOffset,
                             Text::ColumnSize, "RIT", Text::ColumnRingtone});
}

TableRows RingtoneRows(const RingtoneList& list, const Fullflash& image, const Messages& messages,
                       std::size_t roomForTexts) {
  std::size_t room = roomForTexts + 4 * image.ff().size();
  std::vector<ShownText> texts;
  for (const Ringtone& ringtone : list.ringtones) texts.push_back(Fit(ringtone, image.ff(), room));
  return {RingtoneCaptions(messages), list.ringtones.size(),
          [&list, &image, texts = std::move(texts)](std::size_t row) -> Table::Row {
            const Ringtone& ringtone = list.ringtones[row];
            return {{HexOfByte(ringtone.number), NoteColumn(ringtone), WholeDecimal(ringtone.time, 6),
                     HexOfByte(ringtone.kind), WholeHex(ringtone.data), WholeDecimal(ringtone.size, 5),
                     WholeHex(ringtone.entry), TextColumn(ringtone, texts[row], image.ff())}};
          }};
}

std::string RingtoneInformation(const RingtoneList& list, const Messages& messages) {
  if (!list.table) return "";
  std::string text(messages.Msg(Text::RitAddressLabel));
  text.append(Hex(*list.table)).append("\n");
  text.append(messages.Msg(Text::RingtoneCountLabel))
      .append(std::to_string(list.ringtones.size()))
      .append("\n");
  return text;
}

}  // namespace tarvelo
