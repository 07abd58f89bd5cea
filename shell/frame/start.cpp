#include <iostream>

#include "resources/messages.h"
#include "shell/frame/app.h"

#ifdef __WXMSW__
wxIMPLEMENT_APP(tarvelo::App);
#else
wxIMPLEMENT_APP_NO_MAIN(tarvelo::App);

// In a terminal, options are answered there, without a display.
int main(int argc, char** argv) {
  const auto answer = argc == 2 ? tarvelo::AnswerTo(argv[1], tarvelo::Messages()) : std::nullopt;
  if (!answer) return wxEntry(argc, argv);
  std::cout << *answer << '\n';
  return 0;
}
#endif
