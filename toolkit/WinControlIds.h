// Command ids shared by dialogs and message boxes.
#pragma once

constexpr int IDOK = 1;
constexpr int IDCANCEL = 2;
