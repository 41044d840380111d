// A host call-back for tests: it records every call the plug-in makes and answers each
// opcode from a table the test fills. Only one recorder is live at a time; the plug-in
// reaches it through the plain function pointer Callback.
#pragma once

#include "Vst2Interface.h"

#include <map>
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
    static constexpr int32_t kVersionOpcode = 1;

    RecordingHost() {
        Answer(kVersionOpcode, 2400);
        live() = this;
    }
    ~RecordingHost() { live() = nullptr; }
    RecordingHost(const RecordingHost&) = delete;
    RecordingHost& operator=(const RecordingHost&) = delete;

    void Answer(int32_t opcode, intptr_t answer) { answers[opcode] = answer; }

    std::vector<HostCall> CallsWith(int32_t opcode) const {
        std::vector<HostCall> matching;
        for (const HostCall& call : calls) {
            if (call.opcode == opcode) {
                matching.push_back(call);
            }
        }
        return matching;
    }

    static intptr_t Callback(AEffect* effect, int32_t opcode, int32_t index, intptr_t value,
                             void* ptr, float opt) {
        RecordingHost* host = live();
        if (!host) {
            return 0;
        }
        host->calls.push_back({effect, opcode, index, value, ptr, opt});
        const auto answer = host->answers.find(opcode);
        return answer == host->answers.end() ? 0 : answer->second;
    }

    std::vector<HostCall> calls;

private:
    static RecordingHost*& live() {
        static RecordingHost* host = nullptr;
        return host;
    }

    std::map<int32_t, intptr_t> answers;
};
