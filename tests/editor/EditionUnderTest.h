// Which edition the desktop tests drive: this build's command-line host and module, or the
// Windows edition's zephyra.exe and Zephyra.dll under wine on the same X display, when
// ZEPHYRA_WINDOWS_BUILD names a Windows build folder (its test run sets it, with WINEPREFIX
// and ZEPHYRA_WINE). Either way the user's work and what it must leave are the same.
#pragma once

#include "tests/support/TempFolder.h"
#include "tests/tools/ToolRunner.h"

#include <memory>
#include <string>
#include <vector>

struct EditionUnderTest {
    bool underWine = false;
    std::string moduleFile;
};

const EditionUnderTest& Edition();

// A file's path as the edition's host is told it.
std::string HostPath(const std::string& path);
// Runs the edition's command-line host with the arguments.
ToolRun RunEditionHost(const std::vector<std::string>& arguments);

// A folder of the user's preferences that no other test sees, for as long as this lives:
// where the plug-in saves the user's bank file.
class IsolatedUserBank {
public:
    IsolatedUserBank();
    ~IsolatedUserBank();
    IsolatedUserBank(const IsolatedUserBank&) = delete;
    IsolatedUserBank& operator=(const IsolatedUserBank&) = delete;

    // The user's bank file, as the plug-in writes it.
    std::string BankFile() const;

private:
    TempFolder m_scratch;
    std::unique_ptr<ScopedEnv> m_configHome; // this build's edition only
    std::string m_folder;
};
