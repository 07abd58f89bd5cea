#include "demo/demo_program.h"

#include <algorithm>
#include <stdexcept>

#include "demo/demo_code_writer.h"

namespace tarvelo {
namespace {

// Variables in RAM, where DPP2 points. Bits are in words that can be addressed bit by bit.
constexpr unsigned textBuffer = 0x8200, firstVariable = 0x8240;
constexpr unsigned displayBits = 0x20;  // 0FD40h
constexpr unsigned redrawBit = 3, lightBit = 4;
constexpr unsigned lightBlock = 5001;  // EEPROM block with the seconds of light
constexpr unsigned mostItems = 3;

class Program {
 public:
  Program(Flash& flash, Area area, const ProgramNeeds& needs)
      : flash_(flash),
        needs_(needs),
        items_(needs.isLater ? mostItems - 1 : mostItems),
        menuItem_(firstVariable + (needs.isLater ? 2 : 0)),
        blockNumber_(menuItem_ + 2),
        pictureWidth_(menuItem_ + 4),
        constants_(area.begin + (area.end - area.begin) / 2),
        out_(area.begin) {}

  void Write() {
    Helpers();
    Tests();
    Menu();
    Start();
    PutBytes(flash_.bytes, out_.Offset() - out_.Code().size(), out_.Code());
    Constants();
  }

 private:
  // --- instructions
  void Short(std::uint8_t opcode, unsigned operand) { out_.Instruction(opcode, operand); }
  void Long(std::uint8_t opcode, unsigned operand, unsigned word) { out_.Instruction(opcode, operand, word); }
  void Move(unsigned reg, unsigned value) { Long(0xE6, 0xF0 | reg, value); }
  void Call(std::size_t function) {
    const std::uint32_t address = flash_.Address(function);
    Long(0xDA, address >> 16, address & 0xFFFF);
  }
  // A far pointer in two registers, the page in the second one.
  void Point(unsigned reg, std::size_t target) {
    Move(reg, flash_.Address(target) % cpuPage);
    Move(reg + 1, PageOf(target));
  }
  // The next instructions read from the page of `target`.
  void InPageOf(std::size_t target, unsigned count) { Long(0xD7, 0x40 | (count - 1) << 4, PageOf(target)); }
  void Return() { Short(0xDB, 0x00); }
  void JumpBack(std::uint8_t opcode, std::size_t target) {
    Short(opcode, (target - out_.Offset() - 2) / 2 & 0xFF);
  }
  [[nodiscard]] unsigned PageOf(std::size_t target) const { return flash_.Address(target) / cpuPage; }
  [[nodiscard]] unsigned InPage(std::size_t target) const { return flash_.Address(target) % cpuPage; }

  [[nodiscard]] std::size_t Text(std::string_view text) const {
    const auto begin = flash_.bytes.begin() + static_cast<std::ptrdiff_t>(needs_.texts.begin);
    const auto end = flash_.bytes.begin() + static_cast<std::ptrdiff_t>(needs_.texts.end);
    const auto found = std::search(begin, end, text.begin(), text.end());
    if (found == end) throw std::logic_error("the demonstration has no such text");
    return static_cast<std::size_t>(found - flash_.bytes.begin());
  }

  void Helpers() {
    copyText_ = out_.Offset();  // text at R12 in page R13, copied to R14
    Short(0xDC, 0x4D);          // EXTP R13, #1
    Short(0x99, 0x8C);          // MOVB RL4, [R12+]
    Short(0xB9, 0x8E);          // MOVB [R14], RL4
    Short(0x08, 0xE1);          // ADD R14, #1
    Short(0x49, 0x80);          // CMPB RL4, #0
    JumpBack(0x3D, copyText_);  // JMPR cc_NZ
    Return();

    showText_ = out_.Offset();  // the text at R12 in page R13
    Move(14, textBuffer);
    Call(copyText_);
    Short(redrawBit << 4 | 0xF, displayBits);  // BSET
    Return();

    showPicture_ = out_.Offset();  // the picture with number R12
    InPageOf(needs_.pictures, 1);
    Long(0xC2, 0xF4, InPage(needs_.pictures));  // MOVBZ R4, width of the first picture
    Long(0xF6, 0xF4, pictureWidth_);            // MOV pictureWidth, R4
    Short(0x5C, 0x3C);                          // SHL R12, #3
    InPageOf(needs_.pictures, 2);
    Long(0xD4, 0x4C, InPage(needs_.pictures) + 4);  // MOV R4, [R12+#..]: the pointer to its data
    Long(0xD4, 0x5C, InPage(needs_.pictures) + 6);
    Short(redrawBit << 4 | 0xF, displayBits);
    Return();

    if (needs_.isLater)
      DimLight();
    else
      PlayMelody();

    readBlock_ = out_.Offset();      // the EEPROM block with number R12
    Long(0xF6, 0xFC, blockNumber_);  // MOV blockNumber, R12
    Short(0xE0, 0x04);               // MOV R4, #0
    Return();
  }

  void PlayMelody() {
    playMelody_ = out_.Offset();  // the melody with number R12
    Short(0x5C, 0x3C);
    InPageOf(needs_.ringtones, 2);
    Long(0xD4, 0x4C, InPage(needs_.ringtones) + 4);
    Long(0xD4, 0x5C, InPage(needs_.ringtones) + 6);
    Return();
  }

  void DimLight() {
    dimLight_ = out_.Offset();  // R12: for so many seconds
    Long(0xF6, 0xFC, firstVariable);
    Short(lightBit << 4 | 0xE, displayBits);  // BCLR
    Return();
  }

  void Tests() {
    tests_[0] = out_.Offset();
    Point(12, Text("Battery test"));
    Call(showText_);
    Long(0x9A, displayBits, lightBit << 12 | 4);  // JNB lightBit, over the next two
    Move(12, lightBlock);
    Call(readBlock_);
    Return();

    tests_[1] = out_.Offset();
    Point(12, Text("Display test"));
    Call(showText_);
    Short(0xE0, 0x2C);  // MOV R12, #2
    Call(showPicture_);
    Short(lightBit << 4 | 0xF, displayBits);
    Return();
    if (needs_.isLater) return;

    tests_[2] = out_.Offset();
    Point(12, Text("Keypad test"));
    Call(showText_);
    Short(0xE0, 0x1C);
    Call(playMelody_);
    Return();
  }

  void Menu() {
    onKey_ = out_.Offset();                // key R12: 0 up, 1 down, 2 choose
    Long(0xF2, 0xF4, menuItem_);           // MOV R4, menuItem
    Long(0x46, 0xFC, 2);                   // CMP R12, #2
    Short(0xED, 13);                       // JMPR cc_UGT, to the RETS
    Short(0x5C, 0x1C);                     // SHL R12, #1
    Long(0x06, 0xFC, InPage(constants_));  // ADD R12, #cases
    Short(0xA8, 0xCC);                     // MOV R12, [R12]
    Short(0x9C, 0x0C);                     // JMPI cc_UC, [R12]
    cases_[0] = out_.Offset();
    Short(0x28, 0x41);  // SUB R4, #1
    Short(0x0D, 4);     // JMPR, to the MOV
    cases_[1] = out_.Offset();
    Short(0x08, 0x41);  // ADD R4, #1
    Short(0x0D, 2);
    cases_[2] = out_.Offset();
    Call(out_.Offset() + 10);  // the next function
    Long(0xF6, 0xF4, menuItem_);
    Return();
  }

  void Start() {
    Long(0xF2, 0xFC, menuItem_);  // runs the test of the menu's item
    Short(0x5C, 0x3C);
    InPageOf(constants_, 2);
    Long(0xD4, 0x4C, InPage(Items()) + 4);
    Long(0xD4, 0x5C, InPage(Items()) + 6);
    Short(0xEC, 0xF5);  // PUSH the function's segment and offset, and go there
    Short(0xEC, 0xF4);
    Return();

    start_ = out_.Offset();
    Long(0xE6, 0x00, PageOf(constants_));  // MOV DPP0, #page
    Long(0xE6, 0x02, 0);                   // MOV DPP2, #0
    Point(12, Text("Service menu"));
    Call(showText_);
    if (needs_.isLater) {
      Short(0xE0, 0xAC);  // MOV R12, #10
      Call(dimLight_);
    }
    const std::size_t loop = out_.Offset();
    Long(0xF2, 0xFC, menuItem_);
    Call(onKey_);
    JumpBack(0x0D, loop);
  }

  // The offsets of the cases; the items, each a text and a function; the function that the system starts.
  [[nodiscard]] std::size_t Items() const { return constants_ + 8; }
  void Constants() {
    std::size_t at = constants_;
    for (const std::size_t each : cases_) at = PutWord(flash_.bytes, at, flash_.Address(each) & 0xFFFF);
    at = Items();
    constexpr std::string_view texts[mostItems] = {"Battery test", "Display test", "Keypad test"};
    for (std::size_t i = 0; i < items_; ++i) {
      at = flash_.PutPointer(at, Text(texts[i]));
      at = PutDWord(flash_.bytes, at, flash_.Address(tests_[i]));
    }
    PutDWord(flash_.bytes, at, flash_.Address(start_));
  }

  Flash& flash_;
  const ProgramNeeds& needs_;
  const unsigned items_;
  const unsigned menuItem_, blockNumber_, pictureWidth_;
  const std::size_t constants_;
  CodeWriter out_;
  std::size_t copyText_ = 0, showText_ = 0, showPicture_ = 0, playMelody_ = 0, dimLight_ = 0, readBlock_ = 0,
              onKey_ = 0, start_ = 0;
  std::size_t tests_[mostItems] = {}, cases_[3] = {};
};

}  // namespace

void WriteProgram(Flash& flash, Area area, const ProgramNeeds& needs) { Program(flash, area, needs).Write(); }

}  // namespace tarvelo
