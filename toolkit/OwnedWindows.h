// Windows that the toolkit keeps on an owner window's behalf while they are open: pop-up
// lists and message boxes, which outlive the call that opened them and end on their own
// later. Each goes when it ends, or with its owner, so that closing an editor never leaves
// one on the screen. Main thread only.
#pragma once

#include <memory>

class CWnd;

// Keeps the window until AfxReleaseOwnedWindow or until the owner is destroyed.
void AfxKeepOwnedWindow(const CWnd* owner, std::unique_ptr<CWnd> window);
// Destroys a kept window; false when it is not kept (any more).
bool AfxReleaseOwnedWindow(const CWnd* window);
// Destroys every window kept for the owner, and the ones kept for those in turn.
void AfxDestroyWindowsOwnedBy(const CWnd* owner);
