#include "toolkit/PostedMessageRing.h"

#include "base/Diagnostic.h"
#include "toolkit/CWnd.h"
#include "toolkit/WinMessages.h"

PostedMessageSlot g_pEventVST[kPostedMessageSlots];
std::atomic<int> g_nEventVST{0};
std::atomic<MFCView0*> hTempWnd{nullptr};

namespace {

// The post that delivery reaches next, counted from the first (main thread only): its slot
// is the count modulo 256, its round the count divided by 256.
std::uint64_t g_nextPostToDeliver = 0;

// Claims the slot at the index and advances the index: above 254 it wraps to 0.
int ClaimSlot() {
    int slot = g_nEventVST.load(std::memory_order_relaxed);
    while (!g_nEventVST.compare_exchange_weak(slot, slot > 254 ? 0 : slot + 1,
                                              std::memory_order_relaxed)) {
    }
    return slot;
}

void Deliver(const PostedMessageSlot& record) {
    CWnd* target = record.target.load(std::memory_order_relaxed);
    const UINT message = record.message.load(std::memory_order_relaxed);
    const WPARAM wParam = record.wParam.load(std::memory_order_relaxed);
    const LPARAM lParam = record.lParam.load(std::memory_order_relaxed);
    if (!record.deliverable.load(std::memory_order_relaxed))
        return;
    if (target)
        SendMessage0(target, message, wParam, lParam);
    else if (message == WM_DEFERRED_OPERATION && wParam != 0)
        reinterpret_cast<DeferredWindowOperation>(wParam)(lParam);
}

} // namespace

LRESULT PostMessageNS(CWnd* target, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_ACTIVATE)
        AfxDiagnostic("PostMessage(WM_ACTIVATE,%x)\r\n",
                      static_cast<unsigned>(reinterpret_cast<std::uintptr_t>(target)));
    PostedMessageSlot& record = g_pEventVST[ClaimSlot()];
    record.target.store(target, std::memory_order_relaxed);
    record.message.store(message, std::memory_order_relaxed);
    record.wParam.store(wParam, std::memory_order_relaxed);
    record.lParam.store(lParam, std::memory_order_relaxed);
    record.deliverable.store((target && target->HasView()) ||
                                 hTempWnd.load(std::memory_order_acquire) != nullptr,
                             std::memory_order_relaxed);
    // The release pairs with delivery's acquire, so the record written before is seen whole.
    record.writes.fetch_add(1, std::memory_order_release);
    return 0;
}

// Bounded, so that a poster that keeps posting cannot trap the loop.
void DeliverPostedMessages() {
    for (int delivered = 0; delivered < kPostedMessageSlots * kMaxRoundsBehind; ++delivered) {
        const int slot = static_cast<int>(g_nextPostToDeliver % kPostedMessageSlots);
        std::uint64_t round = g_nextPostToDeliver / kPostedMessageSlots;
        const PostedMessageSlot& record = g_pEventVST[slot];
        const std::uint64_t writes = record.writes.load(std::memory_order_acquire);
        if (writes <= round)
            return;
        // Skipping whole rounds keeps delivery in step with the slots' counts.
        if (writes - round > kMaxRoundsBehind) {
            round = writes - kMaxRoundsBehind;
            g_nextPostToDeliver = round * kPostedMessageSlots + slot;
        }
        ++g_nextPostToDeliver;
        Deliver(record);
    }
}

bool HasPostedMessages() {
    const PostedMessageSlot& next = g_pEventVST[g_nextPostToDeliver % kPostedMessageSlots];
    return next.writes.load(std::memory_order_relaxed) > g_nextPostToDeliver / kPostedMessageSlots;
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
