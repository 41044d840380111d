// The plug-in's user-visible strings, by resource number.
#pragma once

constexpr int kStringBankSaveFailed = 20135;

// The text of a string resource; empty for an unknown number.
const char* LoadStringResource(int id);
