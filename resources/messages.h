// Every text that the user sees, by name and language.
//
// The tables are data files, resources/messages/*.tsv, which the build embeds. The English table gives each
// message its name (resources/texts.h). All texts are UTF-8. Several threads may call the functions at once.
#pragma once

#include <string>
#include <string_view>

#include "resources/language.h"

namespace tarvelo {

enum class Text : int;  // resources/texts.h

// The message table of one language. It is small: copy it freely.
class Messages {
 public:
  explicit Messages(const Language& language = English());

  // The message, or an empty text if the table lacks it. The text lives as long as the program.
  [[nodiscard]] std::string_view Msg(Text text) const;

  // The message with each "%s" replaced by the argument in double quotes.
  [[nodiscard]] std::string MsgS(Text text, std::string_view argument) const;

  // The message as a label, followed by a colon as the language writes it.
  [[nodiscard]] std::string Label(Text text) const;

  [[nodiscard]] const Language& Current() const { return *language_; }
  // 1000 x the language's number. Message n has the identifier LangBase() + n.
  [[nodiscard]] int LangBase() const { return 1000 * language_->number; }
  [[nodiscard]] std::string_view LangCode() const { return language_->code; }

 private:
  const Language* language_;
};

}  // namespace tarvelo
