#include "firmware_versions.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace tarvelo {
namespace {

using Field = ModelInstruction::Field;

ModelInstruction Two(int a, int b) { return {{static_cast<std::uint8_t>(a), static_cast<std::uint8_t>(b)}}; }

ModelInstruction Four(int a, int b, int word = 0) {
  return {{static_cast<std::uint8_t>(a), static_cast<std::uint8_t>(b), static_cast<std::uint8_t>(word),
           static_cast<std::uint8_t>(word >> 8)},
          4};
}

ModelInstruction With(ModelInstruction made, Field field, int symbol) {
  made.field = field;
  made.symbol = symbol;
  return made;
}

void SetWord(std::uint8_t* at, std::uint32_t word) {
  at[0] = static_cast<std::uint8_t>(word);
  at[1] = static_cast<std::uint8_t>(word >> 8);
}

}  // namespace

FirmwareModel::FirmwareModel(unsigned seed, int functions) : random_(seed) {
  for (int i = 0; i < 600; ++i) variables_.push_back(i);
  for (int i = 0; i < 500; ++i) bits_.push_back(i);
  for (int i = 0; i < 40; ++i) members_.push_back(i);
  for (int i = 0; i < 200; ++i) texts_.push_back(i);
  nextFunction_ = functions;
  const auto skewed = [&] {
    return static_cast<int>(std::exp(static_cast<double>(Pick(1000)) * 0.0055 + 1.2));
  };
  for (int id = 0; id < functions; ++id) {
    ModelFunction made = !functions_.empty() && Chance(0.06)
                             ? Twin(functions_[Pick(static_cast<int>(functions_.size()))])
                             : Make(skewed());
    made.id = id;
    if (Chance(0.4)) inTables_.push_back(id);
    functions_.push_back(std::move(made));
  }
  std::ranges::shuffle(functions_, random_);
}

int FirmwareModel::AnyFunction() {
  // A few functions have most callers.
  const double where = std::pow(Pick(10000) / 10000.0, 3.0);
  return static_cast<int>(where * nextFunction_ * 0.999);
}

ModelInstruction FirmwareModel::CallOf(int function) {
  return With(Four(0xDA, 0), Field::Function, function);
}

ModelInstruction FirmwareModel::Ordinary() {
  const int n = Pick(16);
  const int m = Pick(16);
  const int pick = Pick(100);
  if (pick < 14) return With(Four(Chance(0.5) ? 0xF2 : 0xF3, 0xF0 + n), Field::Variable, Pick(600));
  if (pick < 22) return With(Four(Chance(0.5) ? 0xF6 : 0xF7, 0xF0 + n), Field::Variable, Pick(600));
  if (pick < 24) return With(Four(0xF6, 0x8E), Field::Variable, Pick(600));  // MOV variable, ZEROS
  if (pick < 28) return Four(0xE6, 0xF0 + n, Pick(0x4000));
  if (pick < 33) return Two(0xF0, n << 4 | m);
  if (pick < 37) return Two(0xE0, Pick(16) << 4 | n);
  if (pick < 40) return Two(0x5C, Pick(8) << 4 | n);
  if (pick < 43) return With(Two(0x0E | Pick(2), 0), Field::Bit, Pick(500));
  if (pick < 48) return With(Four(Chance(0.5) ? 0x8A : 0x9A, 0), Field::Bit, Pick(500));
  if (pick < 52) return With(Four(Chance(0.6) ? 0xD4 : 0xC4, n << 4 | m), Field::Member, Pick(40));
  if (pick < 56) return Two(0xA8, n << 4 | m);
  if (pick < 59) return Four(0x66, 0xF0 + n, 1 << Pick(16));
  if (pick < 62) return Four(0x46, 0xF0 + n, Pick(300));
  if (pick < 66) return Two(0x48, n << 4 | Pick(8));
  if (pick < 70) return Two(0x08, n << 4 | Pick(8));
  if (pick < 73) return Two(0x00, n << 4 | m);
  if (pick < 75) return Four(0xF2, 0xF0 + n, 0xFF00 + 2 * Pick(64));  // special function registers
  if (pick < 76) return Two(0x0F | Pick(15) << 4, 0x80 + Pick(0x60));
  return With(Two(0x0D | Pick(15) << 4, 0), Field::Label, 0);
}

ModelFunction FirmwareModel::Make(int size) {
  ModelFunction made;
  auto& body = made.body;
  const int pushes = Chance(0.69) ? 0 : 1 + Pick(4);
  for (int i = pushes; i > 0; --i) body.push_back(Two(0x88, (5 + i) << 4));  // MOV [-R0], Rn
  if (Chance(0.02))
    for (int i = 20 + Pick(60); i > 0; --i) body.push_back(CallOf(AnyFunction()));
  while (static_cast<int>(body.size()) < size) {
    if (Chance(0.03)) body.push_back(CallOf(AnyFunction()));
    if (Chance(0.006)) {
      const int text = Pick(200);
      body.push_back(With(Four(0xE6, 0xFC), Field::TextOffset, text));
      body.push_back(With(Four(0xE6, 0xFD), Field::TextPage, text));
      body.push_back(CallOf(Pick(5)));
    }
    body.push_back(Ordinary());
  }
  for (int i = 1; i <= pushes; ++i) body.push_back(Two(0x98, (5 + i) << 4));  // MOV Rn, [R0+]
  body.push_back(Two(0xDB, 0));
  for (ModelInstruction& made_ : body) made_.id = nextInstruction_++;
  const int last = static_cast<int>(body.size()) - 1;
  for (int i = 0; i <= last; ++i) {
    ModelInstruction& jump = body[static_cast<std::size_t>(i)];
    if (jump.field != Field::Label) continue;
    const int to = std::clamp(i + (Chance(0.05) ? -Pick(15) : 1 + Pick(25)), 0, last);
    jump.symbol = body[static_cast<std::size_t>(to)].id;
  }
  return made;
}

ModelFunction FirmwareModel::Twin(const ModelFunction& of) {
  ModelFunction twin = of;
  std::map<int, int> ids;
  for (ModelInstruction& made : twin.body) made.id = ids[made.id] = nextInstruction_++;
  for (ModelInstruction& made : twin.body) switch (made.field) {
      case Field::Label: made.symbol = ids[made.symbol]; break;
      case Field::Variable: made.symbol = Chance(0.5) ? Pick(600) : made.symbol; break;
      case Field::Bit: made.symbol = Chance(0.5) ? Pick(500) : made.symbol; break;
      case Field::Function: made.symbol = Chance(0.3) ? AnyFunction() : made.symbol; break;
      default: break;
    }
  return twin;
}

void FirmwareModel::Edit(ModelFunction& function) {
  auto& body = function.body;
  for (int edits = 1 + Pick(3); edits > 0; --edits) {
    const auto at = body.begin() + Pick(static_cast<int>(body.size()));
    const int kind = Pick(3);
    if (kind == 0 && body.size() > 6 && at + 1 != body.end()) {
      body.erase(at);
    } else if (kind == 1) {
      for (int count = 1 + Pick(4); count > 0; --count) {
        ModelInstruction made = Chance(0.3) ? CallOf(AnyFunction()) : Ordinary();
        if (made.field == Field::Label) made.symbol = body.back().id;
        made.id = nextInstruction_++;
        body.insert(body.begin() + Pick(static_cast<int>(body.size())), made);
      }
    } else if (at + 1 != body.end()) {
      ModelInstruction made = Ordinary();
      if (made.field == Field::Label) made.symbol = body.back().id;
      made.id = nextInstruction_++;
      *at = made;
    }
  }
  // Labels of instructions that are gone lead to the end.
  for (ModelInstruction& made : body)
    if (made.field == Field::Label &&
        std::ranges::find(body, made.symbol, &ModelInstruction::id) == body.end())
      made.symbol = body.back().id;
}

void FirmwareModel::MoveSymbols(std::vector<int>& symbols, double amount, int first) {
  std::vector<int> moved;
  for (const int symbol : symbols) {
    while (Chance(amount)) moved.push_back(-1 - first);
    moved.push_back(symbol);
  }
  symbols = std::move(moved);
}

FirmwareModel FirmwareModel::Later(unsigned seed, double amount) const {
  FirmwareModel later = *this;
  later.random_.seed(seed);
  std::vector<ModelFunction> functions;
  for (const ModelFunction& function : functions_) {
    if (later.Chance(amount)) {
      ModelFunction made = later.Make(5 + later.Pick(60));
      made.id = later.nextFunction_++;
      functions.push_back(std::move(made));
    }
    if (later.Chance(amount) && function.id > 20) continue;  // removed; calls of it go to another
    functions.push_back(function);
    if (later.Chance(amount)) later.Edit(functions.back());
  }
  // Some modules move as blocks.
  for (int moves = 1 + static_cast<int>(amount * 40); moves > 0; --moves) {
    const auto size = static_cast<std::ptrdiff_t>(functions.size());
    const auto from = later.Pick(static_cast<int>(size) - 30);
    const auto count = 5 + later.Pick(25);
    const std::vector<ModelFunction> block(functions.begin() + from, functions.begin() + from + count);
    functions.erase(functions.begin() + from, functions.begin() + from + count);
    const auto to = functions.begin() + later.Pick(static_cast<int>(functions.size()));
    functions.insert(to, block.begin(), block.end());
  }
  later.functions_ = std::move(functions);
  later.MoveSymbols(later.variables_, amount * 0.5, 0);
  later.MoveSymbols(later.bits_, amount * 0.2, 0);
  later.MoveSymbols(later.members_, amount, 0);
  later.MoveSymbols(later.texts_, amount, 0);
  return later;
}

LinkedModel FirmwareModel::Link(std::size_t imageSize) const {
  const auto base = static_cast<std::uint32_t>(0x1000000 - imageSize);
  LinkedModel linked;
  linked.image.assign(imageSize, 0xFF);
  Offset at = 0x1000;
  for (const ModelFunction& function : functions_) {
    Offset size = 0;
    for (const ModelInstruction& made : function.body) size += made.size;
    if (at / 0x10000 != (at + size - 1) / 0x10000) at = (at / 0x10000 + 1) * 0x10000;
    linked.functions[function.id] = at;
    for (const ModelInstruction& made : function.body) {
      linked.places[made.id] = at;
      at += made.size;
    }
  }
  at = (at + 0x1003) / 4 * 4;
  for (const int text : texts_) {
    if (text >= 0) linked.texts[text] = at;
    std::mt19937 letters(static_cast<unsigned>(text + 10));
    for (int i = 8 + static_cast<int>(letters() % 20); i > 0; --i)
      linked.image[static_cast<std::size_t>(at++)] = static_cast<std::uint8_t>('a' + letters() % 26);
    linked.image[static_cast<std::size_t>(at++)] = 0;
    at += at & 1;
  }
  const auto placeOf = [](const std::vector<int>& symbols, int symbol) {
    const auto found = std::ranges::find(symbols, symbol);
    return static_cast<int>(found - symbols.begin());
  };
  std::vector<int> variableAt(600), bitAt(500), memberAt(40);
  for (int i = 0; i < 600; ++i) variableAt[static_cast<std::size_t>(i)] = 0x8100 + 2 * placeOf(variables_, i);
  for (int i = 0; i < 500; ++i) bitAt[static_cast<std::size_t>(i)] = placeOf(bits_, i);
  for (int i = 0; i < 40; ++i) memberAt[static_cast<std::size_t>(i)] = 2 * placeOf(members_, i);
  for (const int id : inTables_)
    if (const auto found = linked.functions.find(id); found != linked.functions.end()) {
      const auto address = static_cast<std::uint32_t>(found->second) + base;
      SetWord(&linked.image[static_cast<std::size_t>(at)], address & 0xFFFF);
      SetWord(&linked.image[static_cast<std::size_t>(at) + 2], address >> 16);
      at += 4;
    }
  for (const ModelFunction& function : functions_) {
    std::map<int, Offset> labels;
    for (const ModelInstruction& made : function.body) labels[made.id] = linked.places[made.id];
    for (const ModelInstruction& made : function.body) {
      auto bytes = made.bytes;
      const Offset place = linked.places[made.id];
      const auto symbol = static_cast<std::size_t>(made.symbol);
      switch (made.field) {
        case Field::None: break;

        case Field::Function: {
          auto found = linked.functions.find(made.symbol);
          if (found == linked.functions.end()) found = linked.functions.find(made.symbol % 20);
          const auto address = static_cast<std::uint32_t>(found->second) + base;
          bytes[1] = static_cast<std::uint8_t>(address >> 16);
          SetWord(&bytes[2], address & 0xFFFF);
          break;
        }
        case Field::Label: {
          const Offset distance = (labels[made.symbol] - place - made.size) / 2;
          bytes[1] = static_cast<std::uint8_t>(std::clamp<Offset>(distance, -128, 127));
          break;
        }
        case Field::Variable: SetWord(&bytes[2], static_cast<std::uint32_t>(variableAt[symbol])); break;
        case Field::Bit:
          bytes[1] = static_cast<std::uint8_t>(bitAt[symbol] / 16);
          if (made.size == 2)
            bytes[0] = static_cast<std::uint8_t>(bytes[0] | (bitAt[symbol] % 16) << 4);
          else {
            bytes[2] = 2;
            bytes[3] = static_cast<std::uint8_t>((bitAt[symbol] % 16) << 4);
          }
          break;
        case Field::Member: SetWord(&bytes[2], static_cast<std::uint32_t>(memberAt[symbol])); break;
        case Field::TextOffset:
          SetWord(&bytes[2], (static_cast<std::uint32_t>(linked.texts[made.symbol]) + base) & 0x3FFF);
          break;
        case Field::TextPage:
          SetWord(&bytes[2], (static_cast<std::uint32_t>(linked.texts[made.symbol]) + base) >> 14);
          break;
      }
      std::copy_n(bytes.begin(), made.size, linked.image.begin() + place);
    }
  }
  return linked;
}

}  // namespace tarvelo
