// A fresh folder under the system's temporary directory, removed with everything in it
// when the test ends, plus small whole-file helpers.
#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

class TempFolder {
public:
    TempFolder() {
        std::string pattern = (std::filesystem::temp_directory_path() / "zephyra-XXXXXX").string();
        if (!mkdtemp(pattern.data())) {
            std::abort();
        }
        m_path = pattern + "/";
    }
    ~TempFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(m_path, ignored);
    }
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;

    // The folder, ending in "/".
    const std::string& Path() const { return m_path; }
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

// Sets an environment variable for the lifetime of the object, then restores it.
class ScopedEnv {
public:
    ScopedEnv(const char* name, const std::string& value) : m_name(name) {
        if (const char* old = std::getenv(name)) {
            m_old = old;
            m_hadOld = true;
        }
        setenv(name, value.c_str(), 1);
    }
    ~ScopedEnv() {
        if (m_hadOld) {
            setenv(m_name, m_old.c_str(), 1);
        } else {
            unsetenv(m_name);
        }
    }
    ScopedEnv(const ScopedEnv&) = delete;
    ScopedEnv& operator=(const ScopedEnv&) = delete;

private:
    const char* m_name;
    std::string m_old;
    bool m_hadOld = false;
};
