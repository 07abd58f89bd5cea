// The clipboard of shell-tests, in place of the display's own, which tests that run at the same time share.
#include "shell/services/clipboard.h"

namespace tarvelo {
namespace {

std::string copied;

}  // namespace

void Copy(const std::string& text) { copied = text; }

std::string CopiedText() { return copied; }

}  // namespace tarvelo
