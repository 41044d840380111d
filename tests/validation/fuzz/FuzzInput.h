// Typed values taken off the front of a fuzzer's input. Once the input runs dry every
// value reads as zero, so a short input is still a complete, well-formed case.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <type_traits>
#include <vector>

class FuzzInput {
public:
    FuzzInput(const uint8_t* data, size_t size) : m_data(data), m_size(size) {}

    template <typename T> T Take() {
        static_assert(std::is_trivially_copyable_v<T>);
        T value{};
        const size_t count = sizeof(T) < Remaining() ? sizeof(T) : Remaining();
        std::memcpy(&value, m_data + m_position, count);
        m_position += count;
        return value;
    }

    // A whole number in [0, bound), bound at most 256.
    int Small(int bound) { return bound > 0 ? Take<uint8_t>() % bound : 0; }

    // Up to count bytes, fewer when the input ends first.
    std::vector<uint8_t> Bytes(size_t count) {
        const size_t taken = count < Remaining() ? count : Remaining();
        std::vector<uint8_t> bytes(m_data + m_position, m_data + m_position + taken);
        m_position += taken;
        return bytes;
    }
    std::string Text(size_t count) {
        const std::vector<uint8_t> bytes = Bytes(count);
        return std::string(bytes.begin(), bytes.end());
    }

    size_t Remaining() const { return m_size - m_position; }
    bool Empty() const { return Remaining() == 0; }

private:
    const uint8_t* m_data;
    size_t m_size;
    size_t m_position = 0;
};

// The entry point every fuzz target defines; libFuzzer or the replay driver calls it.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size);
