// Code page 932 through Windows' converters, by way of UTF-16.
#include "base/CodePage932.h"

#include "base/windows/WideText.h"

#include <windows.h>

namespace {

constexpr UINT kCodePage932 = 932;

// Strict in both directions: an invalid byte, or a character the code page lacks (no
// best-fit look-alike), fails the conversion.
bool toWide(UINT codePage, const char* text, std::wstring& wide) {
    const int length = MultiByteToWideChar(codePage, MB_ERR_INVALID_CHARS, text, -1, nullptr, 0);
    if (length <= 0) {
        return false;
    }
    wide.assign(static_cast<size_t>(length), L'\0');
    MultiByteToWideChar(codePage, MB_ERR_INVALID_CHARS, text, -1, wide.data(), length);
    return true;
}

} // namespace

bool Cp932ToUtf8(const char* text, std::string& result) {
    std::wstring wide;
    if (!toWide(kCodePage932, text, wide)) {
        return false;
    }
    result = Utf8FromWide(wide.c_str());
    return true;
}

bool Utf8ToCp932(const char* text, std::string& result) {
    std::wstring wide;
    if (!toWide(CP_UTF8, text, wide)) {
        return false;
    }
    BOOL replaced = FALSE;
    const int length = WideCharToMultiByte(kCodePage932, WC_NO_BEST_FIT_CHARS, wide.c_str(), -1,
                                           nullptr, 0, nullptr, &replaced);
    if (length <= 0 || replaced) {
        return false;
    }
    std::string converted(static_cast<size_t>(length), '\0');
    WideCharToMultiByte(kCodePage932, WC_NO_BEST_FIT_CHARS, wide.c_str(), -1, converted.data(),
                        length, nullptr, nullptr);
    converted.pop_back();
    result = converted;
    return true;
}
