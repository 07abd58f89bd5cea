#include "shell/desk.h"
