#include "made_firmware.h"

#include <algorithm>
#include <iterator>

namespace tarvelo {
namespace {

constexpr std::size_t firmwareSize = 0x100000;
constexpr std::size_t firmwareBase = 0x1000000 - firmwareSize;
constexpr std::size_t constants = 0xE0000;  // offset of the data; two pages of it are for switches
constexpr std::size_t functionCount = 1500;
constexpr unsigned uc = 0x0, z = 0x2, ugt = 0xE;  // conditions

using Kind = MadeReference::Kind;

class Random {
 public:
  explicit Random(std::uint32_t seed) : state_(seed) {}
  std::uint32_t Below(std::size_t limit) {
    state_ = state_ * 6364136223846793005u + 1442695040888963407u;
    return static_cast<std::uint32_t>((state_ >> 32) * limit >> 32);
  }
  bool OneIn(std::size_t n) { return Below(n) == 0; }
  bool Percent(unsigned n) { return Below(100) < n; }

 private:
  std::uint64_t state_;
};

// The commonest forms: the opcode, its size, and the fixed bits of byte 1.
struct Form {
  std::uint8_t op, size, reg;
};
constexpr Form forms[] = {
    {0xF2, 4, 0xF0}, {0xF2, 4, 0xF0}, {0xF6, 4, 0xF0}, {0xF3, 4, 0xF0}, {0xF7, 4, 0xF0}, {0xC2, 4, 0xF0},
    {0xE6, 4, 0xF0}, {0xE7, 4, 0xF0}, {0x46, 4, 0xF0}, {0x66, 4, 0xF0}, {0x43, 4, 0xF0}, {0xD4, 4, 0},
    {0xC4, 4, 0},    {0x4A, 4, 0},    {0xF0, 2, 0},    {0xF0, 2, 0},    {0xE0, 2, 0},    {0xE1, 2, 0},
    {0x5C, 2, 0},    {0xA8, 2, 0},    {0xB8, 2, 0},    {0x00, 2, 0x10}, {0x08, 2, 0},    {0x48, 2, 0},
    {0x49, 2, 0},    {0xC0, 2, 0},    {0x3E, 2, 0},    {0x7F, 2, 0},    {0x68, 2, 0},    {0x98, 2, 0},
};

// A reference of a function, to be resolved when all places are known.
struct Fix {
  Kind kind = Kind::Near;
  std::size_t at = 0;  // in the function
  std::size_t target =
      0;  // Call: the function; Near, Case: a place in the function; else: offset in the image
  std::size_t place = 0;  // Case: offset of the table's word in the image
};

struct Body {
  ByteBuffer code;
  std::vector<Fix> fixes;
};

class Maker {
 public:
  explicit Maker(std::uint32_t seed) : random_(seed) {
    made_.bytes.assign(firmwareSize, 0xFF);
    functions_.resize(functionCount);
  }

  MadeFirmware Make() {
    for (std::size_t i = 0; i < functionCount; ++i) bodies_.push_back(MakeBody(i));
    for (std::size_t i = 0; i < functionCount; ++i) Place(i);
    for (std::size_t i = 0; i < functionCount; ++i) Resolve(i);
    Tables();
    made_.functions = functions_;
    return std::move(made_);
  }

 private:
  // The first half of every ten functions is called, then four are named by tables.
  static bool IsCalled(std::size_t i) { return i % 20 < 11; }
  static bool IsNamed(std::size_t i) { return i % 20 >= 11 && i % 20 < 19; }

  Body MakeBody(std::size_t i) {
    body_ = {};
    if (i == 0) Reset();
    pushed_ = 0;
    if (i % 17 == 5) return Ret(), body_;
    if (i > 20 && i % 23 == 7 && !HasCases(bodies_[i - 19])) return Twin(bodies_[i - 19]);
    if (i % 200 == 9)
      for (std::size_t n = 20 + random_.Below(130); n > 0; --n) Call();
    pushed_ = random_.Percent(31) ? 1 + random_.Below(5) : 0;
    for (std::size_t n = 0; n < pushed_; ++n) Two(0x88, (9 - n) << 4);
    // The size doubles with each step of a chance of about one half: 5 .. 6000 instructions.
    std::size_t size = 4 + random_.Below(8);
    for (int n = 0; n < 9 && random_.Percent(56); ++n) size = size * 2 + random_.Below(4);
    Block(size, false);
    Ret(i % 67 == 33);
    return std::move(body_);
  }

  void Reset() {
    Four(0xE6, 0, (firmwareBase + constants) >> 14);
    Four(0xE6, 1, ((firmwareBase + constants) >> 14) + 1);
    Four(0xE6, 2, 4);
  }

  // The same instructions with calls of its own.
  Body Twin(Body twin) {
    for (Fix& fix : twin.fixes)
      if (fix.kind == Kind::Call) fix.target = Callee();
    return twin;
  }
  static bool HasCases(const Body& body) {
    return std::ranges::any_of(body.fixes, [](const Fix& fix) { return fix.kind == Kind::Case; });
  }

  void Two(unsigned op, std::size_t operand) {
    AppendBytes(body_.code, {static_cast<std::uint8_t>(op), static_cast<std::uint8_t>(operand)});
  }
  void Four(unsigned op, std::size_t operand, std::size_t word) {
    Two(op, operand);
    AppendWord(body_.code, word);
  }
  [[nodiscard]] std::size_t Here() const { return body_.code.size(); }

  void Ret(bool isInterrupt = false) {
    for (std::size_t n = pushed_; n-- > 0;) Two(0x98, (9 - n) << 4);
    if (isInterrupt)
      Two(0xFB, 0x88);
    else
      Two(0xDB, 0);
  }

  void Block(std::size_t size, bool isInner) {
    for (std::size_t n = 0; n < size; ++n) {
      const std::uint32_t what = random_.Below(1000);
      if (what < 23)
        Call();
      else if (what < 42)
        Access();
      else if (what < 47)
        Pair();
      else if (what < 150 && !isInner)
        n += If(size - n);
      else if (what < 156 && !isInner)
        Loop();
      else if (what == 156 && !isInner)
        Switch();
      else
        Plain();
    }
  }

  void Plain() {
    const Form form = forms[random_.Below(std::size(forms))];
    const std::size_t operand = form.reg | random_.Below(form.reg == 0xF0 ? 16 : 224);
    if (form.size == 2) return Two(form.op, operand);
    // Now and then the operand and what follows look like a call.
    Four(form.op, operand, random_.OneIn(3000) ? 0xF0DA | random_.Below(16) << 8 : random_.Below(0x10000));
  }

  void Call() {
    if (random_.Percent(26)) return Four(0xDA, 0, 0x4000 + 2 * random_.Below(0x800));
    body_.fixes.push_back({Kind::Call, Here(), Callee()});
    Four(0xDA, 0, 0);
  }

  // Each called function in turn; in between, some that many call.
  std::size_t Callee() {
    const bool isInTurn = random_.Percent(40);
    std::size_t callee = isInTurn ? next_ : random_.Below(1 + random_.Below(functionCount));
    while (!IsCalled(callee)) callee = (callee + 1) % functionCount;
    if (isInTurn) next_ = (callee + 1) % functionCount;
    return callee;
  }

  void Access() {
    const std::size_t target = constants + 0x8000 + random_.Below(0x10000);
    body_.fixes.push_back({Kind::Access, Here(), target});
    Four(0xD7, 0x40, (firmwareBase + target) >> 14);
    Four(0xF2, 0xF4, target % 0x4000);
  }

  void Pair() {
    const std::size_t target = constants + 0x8000 + random_.Below(0x10000);
    body_.fixes.push_back({Kind::Pair, Here(), target});
    Four(0xE6, 0xFC, target % 0x4000);
    Four(0xE6, 0xFD, (firmwareBase + target) >> 14);
  }

  // Returns the number of instructions inside, about.
  std::size_t If(std::size_t most) {
    const std::size_t inside = std::min<std::size_t>(most, 1 + random_.Below(20));
    const std::size_t jump = Here();
    const bool isBit = random_.Percent(35);
    if (isBit)
      Four(0x9A, random_.Below(0x80), random_.Below(16) << 12);
    else
      Two(random_.OneIn(2) ? 0x2D : 0x3D, 0);
    Block(inside, true);
    const bool returns = random_.OneIn(60);
    if (returns) Ret();
    const bool hasElse = !returns && random_.Percent(30);
    const std::size_t over = Here();
    if (hasElse) Two(0x0D, 0);
    body_.code[jump + (isBit ? 2 : 1)] = static_cast<std::uint8_t>((Here() - jump - (isBit ? 4 : 2)) / 2);
    if (!hasElse) return inside;
    Block(inside / 2 + 1, true);
    body_.code[over + 1] = static_cast<std::uint8_t>((Here() - over - 2) / 2);
    return inside;
  }

  // The condition is at the end, and the loop begins there.
  void Loop() {
    const std::size_t jump = Here();
    Two(0x0D, 0);
    Block(1 + random_.Below(8), true);
    body_.code[jump + 1] = static_cast<std::uint8_t>((Here() - jump - 2) / 2);
    Two(0x48, 0x41);
    Two(z << 4 | 0xD, 0x100 - (Here() - jump) / 2);
  }

  void Near(unsigned condition) {
    body_.fixes.push_back({Kind::Near, Here()});
    Four(0xEA, condition << 4, 0);
  }

  void Switch() {
    const std::size_t cases = 3 + random_.Below(14);
    const std::size_t table = switches_;
    switches_ += 2 * cases;
    Four(0x46, 0xF4, cases - 1);
    Near(ugt);
    std::vector<std::size_t> leave{body_.fixes.size() - 1};
    Two(0x5C, 0x14);
    Four(0x06, 0xF4, table % 0x8000);
    Two(0xA8, 0x44);
    Two(0x9C, 0x04);
    for (std::size_t n = 0; n < cases; ++n) {
      body_.fixes.push_back({Kind::Case, 0, Here(), table + 2 * n});
      Block(1 + random_.Below(6), true);
      leave.push_back(body_.fixes.size());
      Near(uc);
    }
    for (const std::size_t fix : leave) body_.fixes[fix].target = Here();
  }

  void Place(std::size_t i) {
    MadeFunction& function = functions_[i];
    function.size = bodies_[i].code.size();
    constexpr std::size_t segment = 0x10000;
    if (end_ % segment + function.size > segment) end_ = (end_ / segment + 1) * segment;
    function.offset = end_;
    end_ = PutBytes(made_.bytes, end_, bodies_[i].code);
    if (i % 40 == 20 && end_ % segment < segment - 0x200)
      for (std::size_t n = 2 + random_.Below(50); n > 0; --n)
        end_ = PutWord(made_.bytes, end_, random_.Below(0x10000));
  }

  void Resolve(std::size_t i) {
    const std::size_t begin = functions_[i].offset;
    for (const Fix& fix : bodies_[i].fixes) {
      MadeReference made{fix.kind, begin + fix.at, begin + fix.target};
      if (fix.kind == Kind::Call) {
        MadeFunction& callee = functions_[fix.target];
        ++callee.calls;
        made.target = callee.offset;
        PutByte(made_.bytes, made.place + 1, static_cast<std::uint8_t>((firmwareBase + made.target) >> 16));
        PutWord(made_.bytes, made.place + 2, firmwareBase + made.target);
      } else if (fix.kind == Kind::Near) {
        PutWord(made_.bytes, made.place + 2, firmwareBase + made.target);
      } else if (fix.kind == Kind::Case) {
        made.place = fix.place;
        PutWord(made_.bytes, made.place, firmwareBase + made.target);
      } else {
        made.target = fix.target;
      }
      made_.references.push_back(made);
    }
  }

  // Data with the tables of pointers in it; most runs have one pointer.
  void Tables() {
    std::size_t at = constants + 0x8000, run = 0;
    for (std::size_t i = 0; i < functionCount; ++i) {
      MadeFunction& function = functions_[i];
      if (!IsNamed(i) && (function.calls > 0 || !IsCalled(i))) {
        function.isUnknown = function.calls == 0;
        continue;
      }
      if (run == 0) {
        at = Noise(at);
        run = random_.Percent(60) ? 1 : 2 + random_.Below(30);
      }
      --run;
      function.isNamed = true;
      made_.references.push_back({Kind::Pointer, at, function.offset});
      at = PutWord(made_.bytes, PutWord(made_.bytes, at, firmwareBase + function.offset),
                   (firmwareBase + function.offset) >> 16);
    }
    while (at + 0x400 < firmwareSize) at = Noise(at);
  }

  // Words of any kind, and the bytes of a call of any place.
  std::size_t Noise(std::size_t at) {
    for (std::size_t n = 20 + random_.Below(200); n > 0; --n)
      at = PutWord(made_.bytes, at, random_.Below(random_.OneIn(2) ? 0x100 : 0x10000));
    return PutWord(made_.bytes, PutWord(made_.bytes, at, 0xF0DA | random_.Below(16) << 8),
                   2 * random_.Below(0x8000));
  }

  Random random_;
  MadeFirmware made_;
  std::vector<MadeFunction> functions_;
  std::vector<Body> bodies_;
  Body body_;
  std::size_t pushed_ = 0, next_ = 0, end_ = 0, switches_ = constants;
};

}  // namespace

MadeFirmware MakeFirmware(std::uint32_t seed) { return Maker(seed).Make(); }

}  // namespace tarvelo
