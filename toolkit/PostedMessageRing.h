// Messages posted for later delivery on the main thread. A post writes its record into the
// next of 256 slots and queues the slot's number; delivery reads the slot then. There is no
// overflow check: more than 256 posts before the main thread runs overwrite slots that are
// still waiting, so the oldest messages are lost and the newest may arrive twice.
#pragma once

#include "WinTypes.h"

#include <atomic>

class CWnd;
class MFCView0;

struct PostedMessageSlot {
    std::atomic<CWnd*> target{nullptr};
    std::atomic<UINT> message{0};
    std::atomic<WPARAM> wParam{0};
    std::atomic<LPARAM> lParam{0};
};

constexpr int kPostedMessageSlots = 256;
extern PostedMessageSlot g_pEventVST[kPostedMessageSlots];
// The slot that the next post fills.
extern std::atomic<int> g_nEventVST;
// A view through which messages are delivered when their target has none; null when no
// display is open, and then such posts are dropped.
extern std::atomic<MFCView0*> hTempWnd;

// What a deferred window operation (WM_DEFERRED_OPERATION without target) runs: wParam is
// the function, lParam its argument.
using DeferredWindowOperation = void (*)(LPARAM argument);

// Any thread: never blocks and never allocates. Returns 0.
LRESULT PostMessageNS(CWnd* target, UINT message, WPARAM wParam, LPARAM lParam);
// Main thread: delivers the record in one slot.
void DeliverPostedSlot(int slot);
// Main thread: forgets every waiting post to a window that is going away.
void ForgetPostsTo(const CWnd* target);
