// The speaker-arrangement helpers allocate records of a variable length: header, then one
// 112-byte speaker record per channel, possibly more than the declared array holds.
#include "ProbeEffect.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <cstring>

namespace {

TEST(SpeakerArrangement, AllocatesZeroedRecordsForEveryChannel) {
    ProbeEffect effect;
    VstSpeakerArrangement* arrangement = nullptr;
    ASSERT_TRUE(effect.allocateArrangement(&arrangement, 12));
    ASSERT_NE(arrangement, nullptr);
    EXPECT_EQ(arrangement->numChannels, 12);
    EXPECT_EQ(arrangement->type, 0);
    const auto* bytes = reinterpret_cast<const unsigned char*>(arrangement->speakers);
    for (size_t i = 0; i < 12 * sizeof(VstSpeakerProperties); ++i) {
        ASSERT_EQ(bytes[i], 0) << "byte " << i;
    }
    // Allocating again frees the first record (a leak checker would say otherwise).
    ASSERT_TRUE(effect.allocateArrangement(&arrangement, 1));
    EXPECT_EQ(arrangement->numChannels, 1);
    EXPECT_TRUE(effect.deallocateArrangement(&arrangement));
    EXPECT_EQ(arrangement, nullptr);
    EXPECT_TRUE(effect.deallocateArrangement(&arrangement));
}

TEST(SpeakerArrangement, MatchCopiesTypeAndEverySpeaker) {
    ProbeEffect effect;
    VstSpeakerArrangement* source = nullptr;
    VstSpeakerArrangement* copy = nullptr;
    effect.allocateArrangement(&source, 10);
    effect.allocateArrangement(&copy, 2);
    source->type = 13;
    VstSpeakerProperties* speakers = source->speakers;
    for (int32_t i = 0; i < 10; ++i) {
        VstSpeakerProperties& speaker = speakers[i];
        speaker.azimuth = 0.1f * static_cast<float>(i);
        speaker.elevation = -1.0f;
        speaker.radius = 2.0f;
        speaker.type = i + 100;
        std::snprintf(speaker.name, sizeof(speaker.name), "speaker %d", i);
        speaker.future[27] = static_cast<char>(i);
    }

    ASSERT_TRUE(effect.matchArrangement(&copy, source));
    EXPECT_EQ(copy->type, 13);
    ASSERT_EQ(copy->numChannels, 10);
    EXPECT_EQ(std::memcmp(copy->speakers, source->speakers, 10 * sizeof(VstSpeakerProperties)), 0);

    effect.deallocateArrangement(&source);
    effect.deallocateArrangement(&copy);
}

} // namespace
