#include "tools/JsonWriter.h"

#include <cmath>

namespace {

// Length of the valid UTF-8 sequence starting at text[i], or 0 if it is not one.
std::size_t utf8SequenceLength(const std::string& text, std::size_t i) {
    const auto lead = static_cast<unsigned char>(text[i]);
    std::size_t length = 0;
    if (lead >= 0xC2 && lead <= 0xDF) {
        length = 2;
    } else if (lead >= 0xE0 && lead <= 0xEF) {
        length = 3;
    } else if (lead >= 0xF0 && lead <= 0xF4) {
        length = 4;
    } else {
        return 0;
    }
    if (i + length > text.size()) {
        return 0;
    }
    for (std::size_t k = 1; k < length; ++k) {
        if ((static_cast<unsigned char>(text[i + k]) & 0xC0) != 0x80) {
            return 0;
        }
    }
    return length;
}

} // namespace

std::string jsonQuoted(const std::string& text) {
    std::string quoted = "\"";
    for (std::size_t i = 0; i < text.size(); ++i) {
        const auto c = static_cast<unsigned char>(text[i]);
        if (c == '"' || c == '\\') {
            quoted += '\\';
            quoted += static_cast<char>(c);
        } else if (c < 0x20) {
            char escape[8];
            std::snprintf(escape, sizeof escape, "\\u%04x", c);
            quoted += escape;
        } else if (c < 0x80) {
            quoted += static_cast<char>(c);
        } else if (const std::size_t length = utf8SequenceLength(text, i)) {
            quoted.append(text, i, length);
            i += length - 1;
        } else {
            quoted += "\xEF\xBF\xBD";
        }
    }
    return quoted + "\"";
}

void JsonWriter::newLine() {
    std::fputc('\n', out);
    for (std::size_t level = 0; level < hasMembers.size(); ++level) {
        std::fputs("  ", out);
    }
}

void JsonWriter::beforeValue() {
    if (afterKey) {
        afterKey = false;
        return;
    }
    if (!hasMembers.empty()) {
        if (hasMembers.back()) {
            std::fputc(',', out);
        }
        hasMembers.back() = true;
        newLine();
    }
}

void JsonWriter::key(const std::string& name) {
    beforeValue();
    std::fprintf(out, "%s: ", jsonQuoted(name).c_str());
    afterKey = true;
}

void JsonWriter::beginObject() {
    beginContainer('{');
}

void JsonWriter::endObject() {
    endContainer('}');
}

void JsonWriter::beginArray() {
    beginContainer('[');
}

void JsonWriter::endArray() {
    endContainer(']');
}

void JsonWriter::beginContainer(char open) {
    beforeValue();
    std::fputc(open, out);
    hasMembers.push_back(false);
}

void JsonWriter::endContainer(char close) {
    const bool hadMembers = hasMembers.back();
    hasMembers.pop_back();
    if (hadMembers) {
        newLine();
    }
    std::fputc(close, out);
}

void JsonWriter::member(const std::string& name, const std::vector<std::string>& texts) {
    key(name);
    beginArray();
    for (const std::string& text : texts) {
        value(text);
    }
    endArray();
}

void JsonWriter::value(const std::string& text) {
    beforeValue();
    std::fputs(jsonQuoted(text).c_str(), out);
}

void JsonWriter::value(long number) {
    beforeValue();
    std::fprintf(out, "%ld", number);
}

void JsonWriter::value(double number) {
    if (!std::isfinite(number)) {
        null();
        return;
    }
    beforeValue();
    // Enough digits to bring a float back exactly.
    std::fprintf(out, "%.9g", number);
}

void JsonWriter::null() {
    beforeValue();
    std::fputs("null", out);
}

void JsonWriter::finish() {
    std::fputc('\n', out);
}
