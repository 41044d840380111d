// The dispatcher's memory of where it found the handler of a window message: 512 slots
// shared by all classes, indexed by a hash of map record and message and simply overwritten
// on collision. A slot may remember that there is no handler.
#pragma once

#include "toolkit/MessageMap.h"

struct AFX_MSG_CACHE {
    UINT nMsg;
    const AFX_MSGMAP_ENTRY* lpEntry;
    const AFX_MSGMAP* pMessageMap;
};

class MessageCache {
public:
    static constexpr std::uintptr_t kSlotMask = 0x1FF;
    static AFX_MSG_CACHE _afxMsgCache[kSlotMask + 1];

    static AFX_MSG_CACHE& SlotFor(const AFX_MSGMAP* map, UINT message) {
        return _afxMsgCache[(reinterpret_cast<std::uintptr_t>(map) ^ message) & kSlotMask];
    }
};

void AfxResetMsgCache();
