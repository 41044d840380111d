// A fresh folder under the system's temporary directory, removed with its contents when
// the test ends; whole-file helpers; and an environment variable set for a scope.
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
        m_path = std::string(mkdtemp(pattern.data())) + "/";
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
        setenv(name, value.c_str(), 1);
    }
    ~ScopedEnv() { m_hadOld ? setenv(m_name, m_old.c_str(), 1) : unsetenv(m_name); }
    ScopedEnv(const ScopedEnv&) = delete;
    ScopedEnv& operator=(const ScopedEnv&) = delete;

private:
    const char* m_name;
    std::string m_old;
    bool m_hadOld;
};
