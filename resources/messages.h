// Every text that the user sees, by name and language.
//
// The tables are data files, resources/messages/*.tsv, embedded when the program is built; the English one
// gives each message its name (resources/texts.h). All texts are UTF-8. The functions may be called by
// several threads at once.
#pragma once

#include <string>
#include <string_view>

#include "resources/language.h"

namespace tarvelo {

enum class Text : int;  // resources/texts.h

// The message table in one language. A small value: copy it freely.
class Messages {
 public:
  explicit Messages(const Language& language = English());

  // The message. Empty where the table does not have it. The text lives as long as the program.
  [[nodiscard]] std::string_view Msg(Text text) const;

  // The message with every "%s" replaced by the argument in double quote characters.
  [[nodiscard]] std::string MsgS(Text text, std::string_view argument) const;

  // The message as a label in front of something: with the colon as the language writes it.
  [[nodiscard]] std::string Label(Text text) const;

  [[nodiscard]] const Language& Current() const { return *language_; }
  // 1000 x the language's number: the identifier of message n is LangBase() + n.
  [[nodiscard]] int LangBase() const { return 1000 * language_->number; }
  [[nodiscard]] std::string_view LangCode() const { return language_->code; }

 private:
  const Language* language_;
};

}  // namespace tarvelo
