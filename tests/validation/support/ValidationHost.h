// A small host: the effect made through the module's entry point and driven through its record;
// every effect of the process sees private folders, never the user's.
#pragma once

#include "effect/AZephyra.h"
#include "tools/HostState.h"

#include <string>

// The folders every hosted effect of this process sees: XDG_CONFIG_HOME points into a
// private temporary folder, and the host names a second one as the plug-in's folder.
// Set up on first use, which must come before any thread starts.
class HostFolders {
public:
    static HostFolders& Get();

    const std::string& PluginFolder() const { return m_pluginFolder; } // ends in "/"
    // The default bank file in each folder.
    std::string PreferencesBankFile() const;
    std::string PluginFolderBankFile() const;
    void RemoveBankFiles() const;

private:
    HostFolders();

    std::string m_preferences;
    std::string m_pluginFolder;
};

// A dispatcher request with a name for messages.
struct HostRequest {
    const char* name;
    int32_t opcode;
    intptr_t value;
    float opt;
};

// Answered by the command-line host's call-back, which allocates nothing once the effect is
// made, so the audio thread may reach it.
class HostedPlugin {
public:
    HostedPlugin();  // aborts when the entry point gives no effect
    ~HostedPlugin(); // closes the effect unless a test did
    HostedPlugin(const HostedPlugin&) = delete;
    HostedPlugin& operator=(const HostedPlugin&) = delete;

    AEffect* Record() const { return m_record; }
    AZephyra& Effect() const;

    intptr_t Dispatch(int32_t opcode, int32_t index = 0, intptr_t value = 0, void* ptr = nullptr,
                      float opt = 0.0f);
    intptr_t Dispatch(const HostRequest& r) {
        return Dispatch(r.opcode, 0, r.value, nullptr, r.opt);
    }
    void SetParameter(int32_t index, float value);
    float GetParameter(int32_t index);
    void Process(float** inputs, float** outputs, int32_t frames);
    void Process(double** inputs, double** outputs, int32_t frames); // the double path

    // What every host does first: effOpen, the sample rate, the block size, mains on.
    void Start(float sampleRate, int32_t blockSize);
    void Close(); // effClose: the effect deletes itself

private:
    HostState m_host;
    AEffect* m_record;
};
