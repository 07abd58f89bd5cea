#include "shell/frame/app.h"

wxIMPLEMENT_APP(tarvelo::App);
