// Window message numbers and notification codes, as the message maps and handlers use them.
#pragma once

#include "base/WinTypes.h"

constexpr UINT WM_NULL = 0x0000;
constexpr UINT WM_CREATE = 0x0001;
constexpr UINT WM_DESTROY = 0x0002;
constexpr UINT WM_MOVE = 0x0003;
constexpr UINT WM_SIZE = 0x0005;
constexpr UINT WM_ACTIVATE = 0x0006;
constexpr UINT WM_SETFOCUS = 0x0007;
constexpr UINT WM_KILLFOCUS = 0x0008;
constexpr UINT WM_PAINT = 0x000F;
constexpr UINT WM_ERASEBKGND = 0x0014;
constexpr UINT WM_SETCURSOR = 0x0020;
constexpr UINT WM_WINDOWPOSCHANGED = 0x0047;
constexpr UINT WM_NOTIFY = 0x004E;
constexpr UINT WM_KEYDOWN = 0x0100;
constexpr UINT WM_CHAR = 0x0102;
constexpr UINT WM_COMMAND = 0x0111;
constexpr UINT WM_SYSCOMMAND = 0x0112;
constexpr UINT WM_TIMER = 0x0113;
constexpr UINT WM_INITMENUPOPUP = 0x0117;
constexpr UINT WM_MOUSEMOVE = 0x0200;
constexpr UINT WM_LBUTTONDOWN = 0x0201;
constexpr UINT WM_LBUTTONUP = 0x0202;
constexpr UINT WM_LBUTTONDBLCLK = 0x0203;
// wParam: the turn in its high half (+120 away from the user); lParam: the point in the
// window's client coordinates.
constexpr UINT WM_MOUSEWHEEL = 0x020A;
constexpr int WHEEL_DELTA = 120;
// The pointer left the window (sent whenever it does; no request needed).
constexpr UINT WM_MOUSELEAVE = 0x02A3;
constexpr UINT WM_USER = 0x0400;
// A posted record with no target and this number runs the operation carried in wParam.
constexpr UINT WM_DEFERRED_OPERATION = 0x0404;
// Messages from a control come back to it under this offset (reflection).
constexpr UINT WM_REFLECT_BASE = 0xBC00;
// Registered messages start here; the toolkit registers none of its own.
constexpr UINT WM_REGISTERED_FIRST = 0xC000;

// WM_SYSCOMMAND: the close box of a top-level window.
constexpr WPARAM SC_CLOSE = 0xF060;

// WM_WINDOWPOSCHANGED flags.
constexpr UINT SWP_NOSIZE = 0x0001;
constexpr UINT SWP_NOMOVE = 0x0002;
constexpr UINT SWP_NOZORDER = 0x0004;
constexpr UINT SWP_NOACTIVATE = 0x0010;
constexpr UINT SWP_SHOWWINDOW = 0x0040;
constexpr UINT SWP_HIDEWINDOW = 0x0080;

// WM_COMMAND notification codes of the standard controls.
constexpr UINT BN_CLICKED = 0;
constexpr UINT CBN_SELCHANGE = 1;
constexpr UINT CBN_DROPDOWN = 7;
constexpr UINT CBN_CLOSEUP = 8;
constexpr UINT EN_SETFOCUS = 0x0100;
constexpr UINT EN_KILLFOCUS = 0x0200;
constexpr UINT EN_CHANGE = 0x0300;
constexpr UINT EN_MAXTEXT = 0x0501;
