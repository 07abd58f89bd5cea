#include "shell/app.h"

wxIMPLEMENT_APP(tarvelo::App);
