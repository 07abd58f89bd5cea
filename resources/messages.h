// Every text that the user sees, by number and language.
//
// Numbers 1 to 187 are fixed (6 is always "Fullflash: ", whatever the language); texts that came
// later have numbers from 200 up. The tables are data files, resources/messages/*.tsv, embedded
// when the program is built. All texts are UTF-8.
#pragma once

#include <string>
#include <string_view>

#include "resources/language.h"

namespace tarvelo {

// The message table in one language. A small value: copy it freely.
class Messages {
 public:
  explicit Messages(const Language& language = English());

  // Message n. Empty where the table has no such number. The text lives as long as the program.
  [[nodiscard]] std::string_view Msg(int n) const;

  // Message n with every "%s" replaced by the argument in double quote characters.
  [[nodiscard]] std::string MsgS(int n, std::string_view argument) const;

  // Message n as a label in front of something: with the colon as the language writes it.
  [[nodiscard]] std::string Label(int n) const;

  [[nodiscard]] const Language& Current() const { return *language_; }
  // 1000 x the language's number: the identifier of message n is LangBase() + n.
  [[nodiscard]] int LangBase() const { return 1000 * language_->number; }
  [[nodiscard]] std::string_view LangCode() const { return language_->code; }

 private:
  const Language* language_;
};

}  // namespace tarvelo
