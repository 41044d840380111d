// How a key press reaches a window: PreTranslateMessage of the window and of its parents up
// to the top-level window may take it; otherwise the window gets WM_KEYDOWN with the key
// code and then, when the key types something, WM_CHAR with the character.
#pragma once

#include "toolkit/platform/NativePlatform.h"

class CWnd;

void RouteKeyPress(CWnd* receiver, const native::KeyInput& key);
