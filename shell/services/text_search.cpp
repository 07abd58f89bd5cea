#include "shell/services/text_search.h"

#include "resources/texts.h"
#include "shell/base/strings.h"
#include "shell/services/talk.h"
#include "shell/services/workbench.h"

namespace tarvelo {

void TextSearch::Find() {
  const auto text = bench_.talk.Ask(Text::AskSearchString, text_);
  if (!text) return;
  text_ = *text;
  SeekFrom(SearchFrom::Top);
}

void TextSearch::FindMore() {
  if (text_.empty())
    Find();
  else
    SeekFrom(SearchFrom::Behind);
}

void TextSearch::FindPrevious() {
  if (text_.empty())
    Find();
  else
    SeekFrom(SearchFrom::Before);
}

void TextSearch::SeekFrom(SearchFrom from) {
  if (!seek_(text_, from)) bench_.talk.Complain(Wx(bench_.texts.MsgS(Text::StringNotFound, text_)));
}

}  // namespace tarvelo
