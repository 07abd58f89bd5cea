#include "shell/text_search.h"

#include "shell/main.h"
#include "shell/strings.h"

namespace tarvelo {

void TextSearch::Find() {
  const auto text = main_.Ask(34, text_);
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
  if (!seek_(text_, behindCurrent)) main_.Complain(Wx(main_.Texts().MsgS(35, text_)));
}

}  // namespace tarvelo
