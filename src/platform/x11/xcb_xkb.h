// SPDX-License-Identifier: MIT
// xcb's header of the keyboard extension is C that calls a member "explicit".
#pragma once

#include <xcb/xcb.h>

#define explicit explicit_member // NOLINT: undone below
#include <xcb/xkb.h>
#undef explicit
