// A small host for the validation suite. It creates the effect through the module's entry
// point and talks to it through the record, as a host does; the C++ object behind the
// record is reachable for what only the editor calls (meters, typed values, programs).
// Every effect of the process sees private folders, so nothing the user keeps is read
// or written.
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

    // Both end in "/".
    const std::string& Preferences() const { return m_preferences; }
    const std::string& PluginFolder() const { return m_pluginFolder; }
    // Where the effect looks for its default bank file in each folder.
    std::string PreferencesBankFile() const;
    std::string PluginFolderBankFile() const;
    // Removes both default bank files.
    void RemoveBankFiles() const;

private:
    HostFolders();

    std::string m_root;
    std::string m_preferences;
    std::string m_pluginFolder;
};

// Answered by the command-line host's call-back, which gives it the private plug-in folder;
// the call-back allocates nothing once the effect is created, so it may be reached from the
// audio thread.
class HostedPlugin {
public:
    // Creates the effect through VSTPluginMain; aborts when the entry point refuses.
    HostedPlugin();
    // Closes the effect unless a test closed it already.
    ~HostedPlugin();
    HostedPlugin(const HostedPlugin&) = delete;
    HostedPlugin& operator=(const HostedPlugin&) = delete;

    AEffect* Record() const { return m_record; }
    AZephyra& Effect() const;
    bool IsAlive() const { return m_record != nullptr; }

    intptr_t Dispatch(int32_t opcode, int32_t index = 0, intptr_t value = 0, void* ptr = nullptr,
                      float opt = 0.0f);
    void SetParameter(int32_t index, float value);
    float GetParameter(int32_t index);
    void Process(float** inputs, float** outputs, int32_t frames);
    void ProcessDouble(double** inputs, double** outputs, int32_t frames);

    // What every host does first: effOpen, the sample rate, the block size, mains on.
    void Start(float sampleRate, int32_t blockSize);
    // effClose: the effect deletes itself and the record is gone.
    void Close();

private:
    HostState m_host;
    AEffect* m_record;
};
