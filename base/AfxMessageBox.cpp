#include "base/AfxMessageBox.h"

#include <atomic>
#include <cstdio>

namespace {

std::atomic<MessageBoxHandler> g_handler{nullptr};

} // namespace

int AfxMessageBox(const char* text) {
    if (MessageBoxHandler handler = g_handler.load()) {
        return handler(text);
    }
    std::printf("%s\n", text);
    std::fflush(stdout);
    return 1;
}

void SetMessageBoxHandler(MessageBoxHandler handler) {
    g_handler.store(handler);
}
