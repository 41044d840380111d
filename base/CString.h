// The toolkit's narrow string: bytes as the program stores them (UTF-8 or Shift-JIS text),
// always NUL-terminated, with printf-style formatting.
#pragma once

#include <cstdarg>
#include <string>

class CString {
public:
    CString() = default;
    CString(const char* text) : m_text(text ? text : "") {}
    CString(const char* text, int length);
    CString(const std::string& text) : m_text(text) {}

    int GetLength() const { return static_cast<int>(m_text.size()); }
    bool IsEmpty() const { return m_text.empty(); }
    void Empty() { m_text.clear(); }
    const char* GetString() const { return m_text.c_str(); }
    operator const char*() const { return m_text.c_str(); }
    // Out-of-range indices read as the terminating NUL rather than past the text.
    char GetAt(int index) const;
    char operator[](int index) const { return GetAt(index); }

    // Formatting into a temporary first makes it safe to pass the string itself as an argument.
    void Format(const char* format, ...) __attribute__((format(printf, 2, 3)));
    void FormatV(const char* format, va_list arguments);

    CString& operator=(const char* text);

    int Compare(const char* text) const;
    CString Left(int count) const;

private:
    std::string m_text;
};

bool operator==(const CString& a, const CString& b);
bool operator==(const CString& a, const char* b);
bool operator==(const char* a, const CString& b);
bool operator!=(const CString& a, const CString& b);
bool operator!=(const CString& a, const char* b);
bool operator!=(const char* a, const CString& b);
