// A host call-back that records every call and answers each opcode from a table (the
// version with 2400), copying a text where one is set. One recorder is live at a time.
#pragma once

#include "host/Vst2Interface.h"

#include <algorithm>
#include <cstring>
#include <map>
#include <string>
#include <vector>

struct HostCall {
    AEffect* effect;
    int32_t opcode;
    int32_t index;
    intptr_t value;
    void* ptr;
    float opt;
};

class RecordingHost {
public:
    RecordingHost() { live() = this; }
    ~RecordingHost() { live() = nullptr; }
    RecordingHost(const RecordingHost&) = delete;
    RecordingHost& operator=(const RecordingHost&) = delete;

    size_t Count(int32_t opcode) const {
        return std::count_if(calls.begin(), calls.end(),
                             [opcode](const HostCall& call) { return call.opcode == opcode; });
    }

    static intptr_t Callback(AEffect* effect, int32_t opcode, int32_t index, intptr_t value,
                             void* ptr, float opt) {
        RecordingHost* host = live();
        if (!host) {
            return 0;
        }
        host->calls.push_back({effect, opcode, index, value, ptr, opt});
        const auto text = host->texts.find(opcode);
        if (text != host->texts.end() && ptr) {
            std::memcpy(ptr, text->second.c_str(), text->second.size() + 1);
        }
        const auto answer = host->answers.find(opcode);
        return answer == host->answers.end() ? 0 : answer->second;
    }

    std::map<int32_t, intptr_t> answers{{1, 2400}};
    std::map<int32_t, std::string> texts;
    std::vector<HostCall> calls;

private:
    static RecordingHost*& live() {
        static RecordingHost* host = nullptr;
        return host;
    }
};
