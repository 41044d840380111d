// Speaker arrangements are records of variable length: a header, then one 112-byte
// speaker record per channel, possibly more than the declared array holds.
#include "tests/host/ProbeEffect.h"

#include <gtest/gtest.h>

#include <cstring>

namespace {

TEST(SpeakerArrangement, AllocatesZeroedSpeakersAndMatchesCopiesThemAll) {
    ProbeEffect effect;
    VstSpeakerArrangement* source = nullptr;
    VstSpeakerArrangement* copy = nullptr;
    ASSERT_TRUE(effect.allocateArrangement(&source, 10));
    ASSERT_TRUE(effect.allocateArrangement(&copy, 2));
    ASSERT_EQ(source->numChannels, 10);
    VstSpeakerProperties* speakers = source->speakers;
    const VstSpeakerProperties zero{};
    EXPECT_EQ(std::memcmp(&speakers[9], &zero, sizeof(zero)), 0);
    source->type = 13;
    for (int32_t i = 0; i < 10; ++i) {
        speakers[i].azimuth = 0.1f * static_cast<float>(i);
        speakers[i].type = i + 100;
        std::memset(speakers[i].name, 'a' + i, sizeof(speakers[i].name) - 1);
        speakers[i].future[27] = static_cast<char>(i);
    }

    ASSERT_TRUE(effect.matchArrangement(&copy, source)); // frees the two-speaker record
    EXPECT_EQ(copy->type, 13);
    ASSERT_EQ(copy->numChannels, 10);
    EXPECT_EQ(std::memcmp(copy->speakers, speakers, 10 * sizeof(VstSpeakerProperties)), 0);

    EXPECT_TRUE(effect.deallocateArrangement(&source));
    EXPECT_EQ(source, nullptr);
    EXPECT_TRUE(effect.deallocateArrangement(&source));
    effect.deallocateArrangement(&copy);
}

} // namespace
