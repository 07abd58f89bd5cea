#include "files/volume_builder.h"

namespace tarvelo {

std::size_t VolumeBuilder::Unit(std::size_t begin, std::size_t size) {
  image_.Word(begin + 0x80, 0xFEFE);
  image_.Fill(begin + 0x82, 6, 0);
  image_.Data(begin + 0x82, AsBytes(name_));
  image_.Fill(begin + 0x88, 6, 1);
  image_.Word(begin + 0x8E, 0xFEFE);
  units_.push_back({begin, size, begin + 0x90, begin + size});
  return units_.size() - 1;
}

std::size_t VolumeBuilder::Record(std::size_t unit, int number, Bytes bytes, std::uint8_t state) {
  const std::size_t at = units_[unit].next;
  units_[unit].next = image_.Data(at, bytes);
  return Slot(unit, number, Address(at), static_cast<std::uint16_t>(bytes.size()), state);
}

std::size_t VolumeBuilder::Slot(std::size_t unit, int number, std::uint32_t address, std::uint16_t size,
                                std::uint8_t state) {
  const std::size_t slot = units_[unit].slot -= 12;
  image_.Word(image_.Byte(image_.Byte(slot, state), 0), size);
  image_.Word(image_.DWord(slot + 4, address), static_cast<std::uint16_t>(number));
  image_.Byte(image_.Byte(slot + 10, 0), state);
  return slot;
}

Data VolumeBuilder::Header(const EntryFields& fields) const {
  Data bytes;
  const int data = fields.data < 0 ? fields.number + 1 : fields.data;
  AppendWord(bytes, static_cast<std::size_t>(fields.number));
  AppendWord(bytes, static_cast<std::size_t>(fields.parent));
  AppendDWord(bytes, fields.time);
  AppendWord(bytes, static_cast<std::size_t>(data));
  AppendWord(bytes, static_cast<std::size_t>(fields.attributes));
  AppendWord(bytes, 0);
  AppendWord(bytes, static_cast<std::size_t>(fields.next));
  if (fields.name.empty()) return bytes;
  if (isWide_) AppendDWord(bytes, 0xFFFFFFFF);
  AppendText(bytes, fields.name);
  bytes.push_back(0);
  return bytes;
}

std::size_t VolumeBuilder::Entry(std::size_t unit, const EntryFields& fields, std::uint8_t state) {
  return Record(unit, fields.number + 6000, Header(fields), state);
}

void VolumeBuilder::File(std::size_t unit, const EntryFields& fields, std::string_view bytes,
                         std::uint8_t state) {
  Entry(unit, fields, state);
  Record(unit, fields.number + 6001, AsBytes(bytes), state);
}

void VolumeBuilder::Folder(std::size_t unit, EntryFields fields, const std::vector<int>& members) {
  fields.attributes |= 0x10;
  Entry(unit, fields);
  Data items;
  for (const int member : members) {
    AppendWord(items, static_cast<std::size_t>(member));
    AppendWord(items, 0x1234);
  }
  Record(unit, fields.number + 6001, items);
}

void VolumeBuilder::Map(std::size_t pointer, std::uint16_t sizeCode) const {
  const std::size_t table = pointer + 10;
  const std::size_t list = table + 6 * units_.size();
  image_.DWord(pointer, static_cast<std::uint32_t>(units_.size()));
  image_.Word(pointer + 4, 1);
  PagePointer(image_, pointer + 6, table);
  for (std::size_t i = 0; i < units_.size(); ++i) {
    const std::size_t unitSize = sizeCode == 0x80 ? 0x20000 : 0x10000;
    image_.Word(table + 6 * i, static_cast<std::uint16_t>(units_[i].size / unitSize));
    PagePointer(image_, table + 6 * i + 2, list + 6 * i);
    image_.Word(image_.DWord(list + 6 * i, Address(units_[i].begin)), sizeCode);
  }
}

void VolumeBuilder::PagePointer(ImageBuilder& image, std::size_t at, std::size_t target) {
  const std::size_t address = target + 0x1000000 - image.Size();
  image.Word(image.Word(at, static_cast<std::uint16_t>(address % 0x4000)),
             static_cast<std::uint16_t>(address / 0x4000));
}

}  // namespace tarvelo
