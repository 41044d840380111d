#include "tests/validation/support/ValidationHost.h"

#include "tests/support/TempFolder.h"

#include <cstdio>
#include <cstdlib>
#include <filesystem>

extern "C" AEffect* VSTPluginMain(audioMasterCallback audioMaster);

HostFolders& HostFolders::Get() {
    static HostFolders folders;
    return folders;
}

HostFolders::HostFolders() {
    // Lives as long as the process and is removed with it.
    static TempFolder root;
    m_preferences = root / "config/";
    m_pluginFolder = root / "plugins/";
    std::filesystem::create_directories(m_preferences);
    std::filesystem::create_directories(m_pluginFolder);
    setenv("XDG_CONFIG_HOME", m_preferences.c_str(), 1);
}

std::string HostFolders::PreferencesBankFile() const {
    return m_preferences + kDefaultBankFileName;
}

std::string HostFolders::PluginFolderBankFile() const {
    return m_pluginFolder + kDefaultBankFileName;
}

void HostFolders::RemoveBankFiles() const {
    std::remove(PreferencesBankFile().c_str());
    std::remove(PluginFolderBankFile().c_str());
}

HostedPlugin::HostedPlugin() {
    m_host.directory = HostFolders::Get().PluginFolder();
    m_record = VSTPluginMain(hostCallback);
    if (!m_record) {
        std::fprintf(stderr, "validation host: the entry point gave no effect\n");
        std::abort();
    }
    registerHostState(m_record, &m_host);
}

HostedPlugin::~HostedPlugin() {
    if (m_record) {
        Close();
    }
}

AZephyra& HostedPlugin::Effect() const {
    return *static_cast<AZephyra*>(static_cast<AudioEffect*>(m_record->object));
}

intptr_t HostedPlugin::Dispatch(int32_t opcode, int32_t index, intptr_t value, void* ptr,
                                float opt) {
    return m_record->dispatcher(m_record, opcode, index, value, ptr, opt);
}

void HostedPlugin::SetParameter(int32_t index, float value) {
    m_record->setParameter(m_record, index, value);
}

float HostedPlugin::GetParameter(int32_t index) {
    return m_record->getParameter(m_record, index);
}

void HostedPlugin::Process(float** inputs, float** outputs, int32_t frames) {
    m_record->processReplacing(m_record, inputs, outputs, frames);
}

void HostedPlugin::Process(double** inputs, double** outputs, int32_t frames) {
    m_record->processDoubleReplacing(m_record, inputs, outputs, frames);
}

void HostedPlugin::Start(float sampleRate, int32_t blockSize) {
    Dispatch(effOpen);
    Dispatch(effSetSampleRate, 0, 0, nullptr, sampleRate);
    Dispatch(effSetBlockSize, 0, blockSize);
    Dispatch(effMainsChanged, 0, 1);
}

void HostedPlugin::Close() {
    Dispatch(effClose);
    unregisterHostState(m_record);
    m_record = nullptr;
}
