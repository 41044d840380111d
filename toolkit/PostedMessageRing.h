// Messages posted for later delivery on the main thread: one ring of 256 slots, which is
// also the queue. A post writes its record into the next slot, then counts one more write
// of that slot; delivery follows the posts in order, one slot after another, round after
// round, and delivers a post once its slot has been written in that round, reading the
// record as it is then. There is no overflow check: more than 256 posts before the main
// thread runs overwrite slots that are still waiting, so the oldest messages are lost and
// the newest may arrive twice.
#pragma once

#include "base/WinTypes.h"

#include <atomic>
#include <cstdint>

class CWnd;
class MFCView0;

struct PostedMessageSlot {
    std::atomic<CWnd*> target{nullptr};
    std::atomic<UINT> message{0};
    std::atomic<WPARAM> wParam{0};
    std::atomic<LPARAM> lParam{0};
    // False when, at post time, neither the target's view nor a fallback view could take it.
    std::atomic<bool> deliverable{false};
    // How often the slot has been written: the rounds of the ring that have reached it.
    std::atomic<std::uint64_t> writes{0};
};

constexpr int kPostedMessageSlots = 256;
// Delivery stays at most this many rounds behind the posts: a poster that outruns the main
// thread leaves at most 1024 deliveries waiting, and older rounds are skipped.
constexpr int kMaxRoundsBehind = 4;
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
// Main thread: delivers the waiting posts in order, at most 1024 of them.
void DeliverPostedMessages();
// Main thread: whether a post is waiting.
bool HasPostedMessages();
// Main thread: forgets every waiting post to a window that is going away.
void ForgetPostsTo(const CWnd* target);
