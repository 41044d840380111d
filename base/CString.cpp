#include "base/CString.h"

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <strings.h>

namespace {

int ClampCount(int count, int available) {
    return std::max(0, std::min(count, available));
}

} // namespace

CString::CString(const char* text, int length) {
    if (text && length > 0)
        m_text.assign(text, strnlen(text, static_cast<size_t>(length)));
}

char CString::GetAt(int index) const {
    if (index < 0 || index >= GetLength())
        return '\0';
    return m_text[static_cast<size_t>(index)];
}

void CString::FormatV(const char* format, va_list arguments) {
    if (!format) {
        m_text.clear();
        return;
    }
    va_list measuring;
    va_copy(measuring, arguments);
    const int length = std::vsnprintf(nullptr, 0, format, measuring);
    va_end(measuring);
    if (length < 0) {
        m_text.clear();
        return;
    }
    std::string formatted(static_cast<size_t>(length) + 1, '\0');
    std::vsnprintf(formatted.data(), formatted.size(), format, arguments);
    formatted.resize(static_cast<size_t>(length));
    m_text.swap(formatted);
}

void CString::Format(const char* format, ...) {
    va_list arguments;
    va_start(arguments, format);
    FormatV(format, arguments);
    va_end(arguments);
}

CString& CString::operator=(const char* text) {
    m_text = text ? text : "";
    return *this;
}

int CString::Compare(const char* text) const {
    return std::strcmp(m_text.c_str(), text ? text : "");
}

CString CString::Left(int count) const {
    return CString(m_text.substr(0, static_cast<size_t>(ClampCount(count, GetLength()))));
}

bool operator==(const CString& a, const CString& b) {
    return a.Compare(b) == 0;
}
bool operator==(const CString& a, const char* b) {
    return a.Compare(b) == 0;
}
bool operator==(const char* a, const CString& b) {
    return b.Compare(a) == 0;
}
bool operator!=(const CString& a, const CString& b) {
    return !(a == b);
}
bool operator!=(const CString& a, const char* b) {
    return !(a == b);
}
bool operator!=(const char* a, const CString& b) {
    return !(a == b);
}
