// A small streaming JSON writer for `info --json`: objects, arrays and scalars, with commas
// and indentation handled, and texts from plug-ins made valid UTF-8.
#pragma once

#include <cstdio>
#include <string>
#include <vector>

class JsonWriter {
public:
    explicit JsonWriter(std::FILE* out) : out(out) {}

    void beginObject();
    void endObject();
    void beginArray();
    void endArray();
    // The name of the next member of the enclosing object.
    void key(const std::string& name);
    void value(const std::string& text);
    void value(const char* text) { value(std::string(text)); }
    void value(long number);
    void value(int number) { value(static_cast<long>(number)); }
    void value(double number);
    void null();
    // A member of the enclosing object: its name and a scalar, or an array of texts.
    template <typename T> void member(const std::string& name, const T& scalar) {
        key(name);
        value(scalar);
    }
    void member(const std::string& name, const std::vector<std::string>& texts);
    // Finishes the document with a newline.
    void finish();

private:
    void beforeValue();
    void beginContainer(char open);
    void endContainer(char close);
    void newLine();

    std::FILE* out;
    // One entry per open container: whether it already holds a member.
    std::vector<bool> hasMembers;
    bool afterKey = false;
};

// Quotes and escapes a text; bytes that are not valid UTF-8 (a plug-in's legacy encoding)
// become U+FFFD.
std::string jsonQuoted(const std::string& text);
