#include "effect/Myistrstream.h"

namespace {

bool isBlank(char c) {
    return c == ' ' || c == '\t' || c == '\r' || c == '\n';
}

} // namespace

Myistrstream& Myistrstream::operator>>(char& character) {
    character = eof() ? 0 : m_text[m_position++];
    return *this;
}

void Myistrstream::readWord(char* word, size_t capacity) {
    while (!eof() && isBlank(m_text[m_position])) {
        ++m_position;
    }
    size_t length = 0;
    while (!eof() && !isBlank(m_text[m_position]) && m_text[m_position] != 0) {
        if (length + 1 < capacity) {
            word[length++] = m_text[m_position];
        }
        ++m_position;
    }
    word[length] = 0;
}
