// <windows.h> beside the toolkit's own Win32-shaped types (base/WinTypes.h). Both name RECT,
// POINT, SIZE, DWORD and COLORREF, as different types: while <windows.h> is read its names
// are spelled Win32RECT, Win32POINT... so that the plain names stay the toolkit's. Windows'
// structures keep their tag names (tagRECT, tagPOINT) for the calls that take them. Include
// this before any other header that brings in <windows.h> (cairo-win32.h among them).
#pragma once

#include "base/WinTypes.h"

#define RECT Win32RECT
#define LPRECT Win32LPRECT
#define LPCRECT Win32LPCRECT
#define POINT Win32POINT
#define SIZE Win32SIZE
#define DWORD Win32DWORD
#define COLORREF Win32COLORREF
#include <windows.h>
#include <windowsx.h>
#undef RECT
#undef LPRECT
#undef LPCRECT
#undef POINT
#undef SIZE
#undef DWORD
#undef COLORREF
