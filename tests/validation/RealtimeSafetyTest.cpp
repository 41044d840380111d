// What runs on the host's audio thread allocates nothing, frees nothing and takes no lock
// but the effect's and the engine's, as measured by the probe.
#include "tests/validation/support/PluginChecks.h"
#include "tests/validation/support/RealtimeProbe.h"

#include "dsp/CMultiEqualizer.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <mutex>
#include <vector>

namespace {

using Limits = std::numeric_limits<float>;

constexpr int32_t kBlock = 512;

const float kAutomationValues[] = {0.0f,  0.25f, 0.5f, 0.74f,    1.0f,
                                   -1.0f, 2.0f,  NAN,  INFINITY, -INFINITY};

// Block lengths a host may send, including none, a negative count and more than it
// announced.
const int32_t kFrameCounts[] = {kBlock, 1, 2, 3, 100, kBlock - 1, 0, -1, 3 * kBlock + 7};

void automateEverything(HostedPlugin& plugin) {
    for (int32_t index = 0; index < kNumParams; ++index) {
        for (const float value : kAutomationValues) {
            plugin.SetParameter(index, value);
            plugin.GetParameter(index);
        }
        plugin.SetParameter(index, 0.6f);
    }
    plugin.SetParameter(kParamOnOff, 1.0f);
}

// Runs a block of every length in both precisions, with the equaliser on and off.
void processEverything(HostedPlugin& plugin, GuardedStereo<float>& in, GuardedStereo<float>& out,
                       GuardedStereo<double>& inDouble, GuardedStereo<double>& outDouble) {
    for (const float onOff : {1.0f, 0.0f, 1.0f}) {
        plugin.SetParameter(kParamOnOff, onOff);
        for (const int32_t frames : kFrameCounts) {
            plugin.Process(in.Channels(), out.Channels(), frames);
            plugin.Process(inDouble.Channels(), outDouble.Channels(), frames);
        }
    }
}

class AudioThread : public testing::Test {
protected:
    void SetUp() override {
        plugin.Start(44100.0f, kBlock);
        Noise noise(23);
        in.Fill(noise, 1.0f);
        inDouble.Fill(noise, 1.0f);
    }

    HostedPlugin plugin;
    GuardedStereo<float> in{4 * kBlock}, out{4 * kBlock};
    GuardedStereo<double> inDouble{4 * kBlock}, outDouble{4 * kBlock};
};

// Without this the zeros below would prove nothing.
TEST(RealtimeProbe, SeesAllocationsAndLocksOfItsOwnThreadOnly) {
    std::mutex mutex;
    {
        RealtimeProbe probe;
        std::vector<float> samples(16);
        const std::lock_guard<std::mutex> hold(mutex);
        EXPECT_GE(probe->allocations, 1);
        EXPECT_GE(probe->bytes, 16 * sizeof(float));
        EXPECT_EQ(probe->lockCount, 1);
        EXPECT_TRUE(probe->Locked(mutex.native_handle()));
    }
    RealtimeProbe probe;
    EXPECT_EQ(probe->allocations, 0);
    EXPECT_EQ(probe->releases, 0);
}

// From the very first block after the host's set-up nothing is made lazily, and the only
// locks are the effect's and the engine's, each found by the one call that takes it.
TEST_F(AudioThread, ProcessingAndAutomationAllocateNothingAndLockOnlyTheEffectAndEngine) {
    const pthread_mutex_t* effectLock = nullptr;
    {
        RealtimeProbe probe;
        float meters[4];
        plugin.Effect().GetVU(&meters[0], &meters[1], &meters[2], &meters[3]);
        ASSERT_EQ(probe->lockCount, 1);
        effectLock = probe->locks[0];
    }
    const pthread_mutex_t* engineLock = nullptr;
    {
        RealtimeProbe probe;
        plugin.Effect().GetEngine()->Reset();
        ASSERT_EQ(probe->lockCount, 1);
        engineLock = probe->locks[0];
    }
    ASSERT_NE(effectLock, engineLock);

    RealtimeProbe probe;
    processEverything(plugin, in, out, inDouble, outDouble);
    automateEverything(plugin);
    EXPECT_EQ(probe->allocations, 0);
    EXPECT_EQ(probe->releases, 0);
    EXPECT_EQ(probe->otherBlocking, 0);
    EXPECT_TRUE(probe->Locked(effectLock));
    EXPECT_TRUE(probe->Locked(engineLock));
    for (int i = 0; i < probe->lockCount; ++i) {
        EXPECT_TRUE(probe->locks[i] == effectLock || probe->locks[i] == engineLock)
            << "a lock of neither the effect nor the engine";
    }
}

// Refused settings allocate nothing at all; the largest accepted block size allocates a
// bounded amount, whatever the host claims.
TEST(HostileSettings, AllocateNothingOrABoundedAmount) {
    HostedPlugin plugin;
    plugin.Start(44100.0f, kBlock);
    {
        RealtimeProbe probe;
        for (const intptr_t blockSize : {intptr_t{0}, intptr_t{-1}, intptr_t{1} << 30,
                                         intptr_t{std::numeric_limits<int32_t>::max()}}) {
            plugin.Dispatch(effSetBlockSize, 0, blockSize);
        }
        for (const float rate : {0.0f, -1.0f, Limits::quiet_NaN(), Limits::infinity(), 1e30f}) {
            plugin.Dispatch(effSetSampleRate, 0, 0, nullptr, rate);
        }
        EXPECT_EQ(probe->bytes, 0u);
    }
    RealtimeProbe probe;
    plugin.Dispatch(effSetBlockSize, 0, 1 << 20);
    EXPECT_GT(probe->bytes, 0u);
    EXPECT_LT(probe->bytes, size_t{64} << 20);
}

} // namespace
