#include "PostedMessageRing.h"

#include "CWnd.h"
#include "Diagnostic.h"
#include "MainThreadQueue.h"
#include "WinMessages.h"


PostedMessageSlot g_pEventVST[kPostedMessageSlots];
std::atomic<int> g_nEventVST{0};
std::atomic<MFCView0*> hTempWnd{nullptr};

namespace {

// Claims the slot at the index and advances the index: above 254 it wraps to 0.
int ClaimSlot() {
    int slot = g_nEventVST.load(std::memory_order_relaxed);
    while (!g_nEventVST.compare_exchange_weak(slot, slot > 254 ? 0 : slot + 1,
                                              std::memory_order_relaxed)) {
    }
    return slot;
}

} // namespace

LRESULT PostMessageNS(CWnd* target, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_ACTIVATE)
        AfxDiagnostic("PostMessage(WM_ACTIVATE,%x)\r\n",
                      static_cast<unsigned>(reinterpret_cast<std::uintptr_t>(target)));
    const int slot = ClaimSlot();
    PostedMessageSlot& record = g_pEventVST[slot];
    record.target.store(target, std::memory_order_relaxed);
    record.message.store(message, std::memory_order_relaxed);
    record.wParam.store(wParam, std::memory_order_relaxed);
    record.lParam.store(lParam, std::memory_order_relaxed);
    const bool deliverable =
        (target && target->HasView()) || hTempWnd.load(std::memory_order_acquire) != nullptr;
    if (deliverable)
        TheMainThreadQueue().TryPush(
            {MainThreadTaskKind::PostedMessage, 0, static_cast<std::uint32_t>(slot)});
    return 0;
}

void DeliverPostedSlot(int slot) {
    if (slot < 0 || slot >= kPostedMessageSlots)
        return;
    const PostedMessageSlot& record = g_pEventVST[slot];
    CWnd* target = record.target.load(std::memory_order_relaxed);
    const UINT message = record.message.load(std::memory_order_relaxed);
    const WPARAM wParam = record.wParam.load(std::memory_order_relaxed);
    const LPARAM lParam = record.lParam.load(std::memory_order_relaxed);
    if (target)
        SendMessage0(target, message, wParam, lParam);
    else if (message == WM_DEFERRED_OPERATION && wParam != 0)
        reinterpret_cast<DeferredWindowOperation>(wParam)(lParam);
}

void ForgetPostsTo(const CWnd* target) {
    for (PostedMessageSlot& record : g_pEventVST) {
        CWnd* expected = const_cast<CWnd*>(target);
        if (record.target.load(std::memory_order_relaxed) == target) {
            record.message.store(WM_NULL, std::memory_order_relaxed);
            record.target.compare_exchange_strong(expected, nullptr, std::memory_order_relaxed);
        }
    }
}
