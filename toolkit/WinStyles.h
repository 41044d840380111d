// Window styles and the other Win32 flag sets that creation and showing take.
#pragma once

#include "base/WinTypes.h"

constexpr DWORD WS_OVERLAPPED = 0x00000000;
constexpr DWORD WS_TABSTOP = 0x00010000;
constexpr DWORD WS_THICKFRAME = 0x00040000;
constexpr DWORD WS_HSCROLL = 0x00100000;
constexpr DWORD WS_VSCROLL = 0x00200000;
constexpr DWORD WS_DLGFRAME = 0x00400000;
constexpr DWORD WS_BORDER = 0x00800000;
constexpr DWORD WS_CAPTION = 0x00C00000;
constexpr DWORD WS_DISABLED = 0x08000000;
constexpr DWORD WS_VISIBLE = 0x10000000;
constexpr DWORD WS_CLIPSIBLINGS = 0x04000000;
constexpr DWORD WS_CHILD = 0x40000000;
constexpr DWORD WS_POPUP = 0x80000000;

constexpr DWORD WS_EX_TOPMOST = 0x00000008;

// Edit styles.
constexpr DWORD ES_LEFT = 0x0000;
constexpr DWORD ES_CENTER = 0x0001;
constexpr DWORD ES_RIGHT = 0x0002;
constexpr DWORD ES_AUTOHSCROLL = 0x0080;

// Spin button styles.
constexpr DWORD UDS_SETBUDDYINT = 0x0002;
constexpr DWORD UDS_ALIGNRIGHT = 0x0004;
constexpr DWORD UDS_ALIGNLEFT = 0x0008;
constexpr DWORD UDS_ARROWKEYS = 0x0020;
constexpr DWORD UDS_NOTHOUSANDS = 0x0080;

// Combo box styles.
constexpr DWORD CBS_DROPDOWNLIST = 0x0003;

// Button styles.
constexpr DWORD BS_PUSHBUTTON = 0x0000;
constexpr DWORD BS_DEFPUSHBUTTON = 0x0001;

// ShowWindow commands.
constexpr int SW_HIDE = 0;
constexpr int SW_SHOWNORMAL = 1;
constexpr int SW_SHOWMAXIMIZED = 3;
constexpr int SW_SHOWNOACTIVATE = 4;
constexpr int SW_SHOW = 5;
constexpr int SW_MINIMIZE = 6;
constexpr int SW_SHOWMINNOACTIVE = 7;
constexpr int SW_SHOWNA = 8;
constexpr int SW_RESTORE = 9;

// Window class styles, cursors and stock objects named at class registration.
constexpr UINT CS_DBLCLKS = 0x0008;
constexpr int IDC_ARROW = 32512;
constexpr int NULL_BRUSH = 5;
constexpr int LTGRAY_BRUSH = 1;

// GetSystemMetrics indices.
constexpr int SM_CXVSCROLL = 2;
constexpr int SM_CYHSCROLL = 3;
constexpr int SM_CXEDGE = 45;
