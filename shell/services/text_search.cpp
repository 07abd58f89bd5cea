#include "shell/services/text_search.h"

#include "shell/frame/main.h"
#include "shell/base/strings.h"

namespace tarvelo {

void TextSearch::Find() {
  const auto text = main_.Ask(Text::AskSearchString, text_);
  if (!text) return;
  text_ = *text;
  SeekFrom(false);
}

void TextSearch::FindMore() {
  if (text_.empty())
    Find();
  else
    SeekFrom(true);
}

void TextSearch::SeekFrom(bool behindCurrent) {
  if (!seek_(text_, behindCurrent)) main_.Complain(Wx(main_.Texts().MsgS(Text::StringNotFound, text_)));
}

}  // namespace tarvelo
