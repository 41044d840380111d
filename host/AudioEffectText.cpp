// The base effect's value-to-text operations. Each writes at most maxLen characters and
// a terminating zero at text[maxLen], so the buffer holds maxLen + 1 bytes.
#include "host/AudioEffect.h"

#include <cmath>
#include <cstdio>
#include <cstring>

namespace {

constexpr int kFloatTextLength = 8; // sign, digits and point together
const char kTooLarge[] = "Huge!";

void copyBounded(char* text, const char* source, int32_t maxLen) {
    if (maxLen < 0) {
        return;
    }
    std::strncpy(text, source, static_cast<size_t>(maxLen));
    text[maxLen] = 0;
}

} // namespace

void AudioEffect::dB2string(float value, char* text, int32_t maxLen) {
    if (value <= 0.0f) {
        copyBounded(text, "-oo", maxLen);
    } else {
        float2string(static_cast<float>(20.0 * std::log10(value)), text, maxLen);
    }
}

void AudioEffect::Hz2string(float samples, char* text, int32_t maxLen) {
    const float hertz = samples != 0.0f ? getSampleRate() / samples : 0.0f;
    float2string(hertz, text, maxLen);
}

void AudioEffect::ms2string(float samples, char* text, int32_t maxLen) {
    float2string(samples * 1000.0f / getSampleRate(), text, maxLen);
}

void AudioEffect::float2string(float value, char* text, int32_t maxLen) {
    char scratch[kFloatTextLength + 8];
    if (value < -1e7f || value > 1e8f) {
        // Kept as it always was: the warning never reaches the caller's text.
        std::strcpy(scratch, kTooLarge);
        return;
    }
    const bool negative = value < 0.0f;
    const double magnitude = std::fabs(static_cast<double>(value));
    int count = negative ? 1 : 0;

    // Integer digits, produced from the lowest upwards into the end of a small buffer.
    char integerDigits[kFloatTextLength + 1];
    int first = kFloatTextLength;
    double integerPart = std::floor(magnitude);
    do {
        integerDigits[--first] =
            static_cast<char>('0' + static_cast<int>(std::fmod(integerPart, 10.0)));
        integerPart = std::floor(integerPart / 10.0);
        ++count;
    } while (integerPart >= 1.0 && count < kFloatTextLength && first > 0);

    int length = 0;
    if (negative) {
        scratch[length++] = '-';
    }
    for (int i = first; i < kFloatTextLength; ++i) {
        scratch[length++] = integerDigits[i];
    }
    scratch[length++] = '.';
    ++count;

    if (count < kFloatTextLength) {
        const int fractionDigits = kFloatTextLength - count;
        double mantissa = std::fmod(magnitude, 1.0) * std::pow(10.0, fractionDigits);
        for (int i = fractionDigits - 1; i >= 0; --i) {
            int digit = 0;
            if (mantissa > 0.0) {
                digit = static_cast<int>(std::fmod(mantissa, 10.0));
                mantissa = std::floor(mantissa / 10.0);
            }
            scratch[length + i] = static_cast<char>('0' + digit);
        }
        length += fractionDigits;
    }
    scratch[length] = 0;
    copyBounded(text, scratch, maxLen);
}

void AudioEffect::int2string(int32_t value, char* text, int32_t maxLen) {
    if (value >= 100000000) {
        copyBounded(text, kTooLarge, maxLen);
        return;
    }
    char scratch[16];
    int length = 0;
    int64_t remaining = value;
    if (remaining < 0) {
        scratch[length++] = '-';
        remaining = -remaining;
    }
    // Kept: leading zeros are dropped and nothing is written for zero itself, so 0 gives
    // an empty text. The first quotient may exceed 9 (negative values of ten digits) and is
    // written whole.
    bool started = false;
    for (int64_t divisor = 100000000; divisor >= 1; divisor /= 10) {
        const int64_t quotient = remaining / divisor;
        remaining -= quotient * divisor;
        if (quotient != 0) {
            started = true;
        }
        if (started) {
            length += std::snprintf(scratch + length, sizeof(scratch) - length, "%d",
                                    static_cast<int>(quotient));
        }
    }
    scratch[length] = 0;
    copyBounded(text, scratch, maxLen);
}
