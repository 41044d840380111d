// Code page 932 through iconv.
#include "base/CodePage932.h"

#include <cstring>
#include <iconv.h>

namespace {

// Converts between two encodings with iconv; false when any byte cannot be converted.
bool convert(const char* to, const char* from, const char* text, std::string& result) {
    iconv_t converter = iconv_open(to, from);
    if (converter == reinterpret_cast<iconv_t>(-1)) {
        return false;
    }
    size_t inLeft = std::strlen(text);
    std::string input(text, inLeft);
    char* in = input.data();
    std::string output(inLeft * 4 + 8, '\0');
    char* out = output.data();
    size_t outLeft = output.size();
    const size_t status = iconv(converter, &in, &inLeft, &out, &outLeft);
    iconv_close(converter);
    if (status == static_cast<size_t>(-1) || inLeft != 0) {
        return false;
    }
    output.resize(output.size() - outLeft);
    result = output;
    return true;
}

} // namespace

bool Cp932ToUtf8(const char* text, std::string& result) {
    return convert("UTF-8", "CP932", text, result);
}

bool Utf8ToCp932(const char* text, std::string& result) {
    return convert("CP932", "UTF-8", text, result);
}
