// A reader over text in memory: words (runs of non-blank bytes) and single characters.
#pragma once

#include <cstddef>

class Myistrstream {
public:
    Myistrstream(const char* buffer, size_t length) : m_text(buffer), m_length(length) {}

    // The next word, cut to fit the array; an empty word at the end of the text.
    template <size_t N> Myistrstream& operator>>(char (&word)[N]) {
        readWord(word, N);
        return *this;
    }
    // The next character, blanks included; 0 at the end of the text.
    Myistrstream& operator>>(char& character);

    bool eof() const { return m_position >= m_length; }

private:
    void readWord(char* word, size_t capacity);

    const char* m_text;
    size_t m_length;
    size_t m_position = 0;
};
