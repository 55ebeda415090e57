#pragma once

#define explicit explicit_  // a field's name, and a word of the language
#include <xcb/xkb.h>
#undef explicit
