// Threads of the toolkit (window timers, the fallback idle driver) alive in the process.
#pragma once

#include <dirent.h>
#include <fstream>
#include <string>

inline int ToolkitThreadCount() {
    int count = 0;
    if (DIR* tasks = opendir("/proc/self/task")) {
        while (const dirent* entry = readdir(tasks)) {
            std::ifstream comm(std::string("/proc/self/task/") + entry->d_name + "/comm");
            std::string name;
            count += entry->d_name[0] != '.' && std::getline(comm, name) &&
                     name.rfind("zephyra-", 0) == 0;
        }
        closedir(tasks);
    }
    return count;
}
