// A fresh folder under the system's temporary directory, removed with its contents when
// the test ends; whole-file helpers; an environment variable set for a scope; and a
// preferences folder of the test's own.
#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>

class TempFolder {
public:
    // A name no other folder has: create_directory refuses one that exists.
    TempFolder() {
        const std::filesystem::path parent = std::filesystem::temp_directory_path();
        std::random_device random;
        std::filesystem::path folder;
        do {
            folder = parent / ("zephyra-" + std::to_string(random()));
        } while (!std::filesystem::create_directory(folder));
        m_path = folder.generic_string() + "/";
    }
    ~TempFolder() { std::filesystem::remove_all(m_path); }
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;

    const std::string& Path() const { return m_path; } // ends in "/"
    std::string operator/(const std::string& name) const { return m_path + name; }

private:
    std::string m_path;
};

inline void WriteWholeFile(const std::string& path, const std::string& bytes) {
    std::ofstream(path, std::ios::binary | std::ios::trunc) << bytes;
}

inline std::string ReadWholeFile(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

class ScopedEnv {
public:
    ScopedEnv(const char* name, const std::string& value) : m_name(name) {
        const char* old = std::getenv(name);
        m_old = old ? old : "";
        m_hadOld = old != nullptr;
        Set(name, value.c_str());
    }
    ~ScopedEnv() { Set(m_name, m_hadOld ? m_old.c_str() : nullptr); }
    ScopedEnv(const ScopedEnv&) = delete;
    ScopedEnv& operator=(const ScopedEnv&) = delete;

private:
    // Windows has no unsetenv: an empty value removes the variable there.
    static void Set(const char* name, const char* value) {
#ifdef _WIN32
        _putenv_s(name, value ? value : "");
#else
        value ? setenv(name, value, 1) : unsetenv(name);
#endif
    }

    const char* m_name;
    std::string m_old;
    bool m_hadOld;
};

// A preferences folder of the test's own, so that no user's default bank file takes part.
struct IsolatedPreferences {
#ifdef _WIN32
    static constexpr const char* kVariable = "APPDATA";
#else
    static constexpr const char* kVariable = "XDG_CONFIG_HOME";
#endif
    TempFolder folder;
    ScopedEnv config{kVariable, folder.Path()};
};
