// The stream format handed to the equaliser engine, laid out like the classic wave-format
// record: seven fields packed into 18 bytes, so it can be copied whole.
#pragma once

#include <cstdint>

#pragma pack(push, 1)
struct tWAVEFORMATEX {
    uint16_t wFormatTag; // 3: IEEE float samples
    uint16_t nChannels;
    uint32_t nSamplesPerSec;
    uint32_t nAvgBytesPerSec; // nSamplesPerSec * nBlockAlign
    uint16_t nBlockAlign;     // bytes per frame over all channels
    uint16_t wBitsPerSample;
    uint16_t cbSize; // bytes of format-specific data that follow; always 0 here
};
#pragma pack(pop)

static_assert(sizeof(tWAVEFORMATEX) == 18, "the format record is copied as 18 bytes");

constexpr uint16_t kWaveFormatIeeeFloat = 3;
