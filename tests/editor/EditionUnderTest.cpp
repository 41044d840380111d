#include "tests/editor/EditionUnderTest.h"

#include <cstdlib>
#include <filesystem>

namespace {

const char* Variable(const char* name) {
    const char* value = std::getenv(name);
    return value && value[0] ? value : nullptr;
}

} // namespace

const EditionUnderTest& Edition() {
    static const EditionUnderTest edition = [] {
        EditionUnderTest made;
        if (const char* windowsBuild = Variable("ZEPHYRA_WINDOWS_BUILD")) {
            made.underWine = true;
            made.moduleFile = std::string(windowsBuild) + "/Zephyra.dll";
        } else {
            made.moduleFile = ZEPHYRA_MODULE;
        }
        return made;
    }();
    return edition;
}

// Wine's drive Z: is the root of the file system.
std::string HostPath(const std::string& path) {
    return Edition().underWine ? "Z:" + path : path;
}

ToolRun RunEditionHost(const std::vector<std::string>& arguments) {
    if (!Edition().underWine)
        return runZephyra(arguments);
    std::vector<std::string> command{
        Variable("ZEPHYRA_WINE"), std::string(Variable("ZEPHYRA_WINDOWS_BUILD")) + "/zephyra.exe"};
    command.insert(command.end(), arguments.begin(), arguments.end());
    return runCommand(command);
}

// Wine gives its programs the prefix's own %APPDATA%, whatever the environment says: the
// tests of the Windows edition use that folder, emptied of the bank file before and after.
IsolatedUserBank::IsolatedUserBank() {
    if (Edition().underWine) {
        const char* user = Variable("USER");
        m_folder = std::string(Variable("WINEPREFIX")) + "/drive_c/users/" +
                   (user ? user : "root") + "/AppData/Roaming/";
        std::filesystem::remove(BankFile());
    } else {
        m_configHome = std::make_unique<ScopedEnv>("XDG_CONFIG_HOME", m_scratch.Path());
        m_folder = m_scratch.Path();
    }
}

IsolatedUserBank::~IsolatedUserBank() {
    if (Edition().underWine)
        std::filesystem::remove(BankFile());
}

std::string IsolatedUserBank::BankFile() const {
    return m_folder + "ZephyraDef.fxb";
}
