#include "toolkit/CCmdTarget.h"

const AFX_MSGMAP_ENTRY* AfxFindMessageEntry(const AFX_MSGMAP_ENTRY* entries, UINT message,
                                            UINT code, UINT id) {
    for (const AFX_MSGMAP_ENTRY* entry = entries; entry->nSig != SigEnd; ++entry) {
        if (entry->nMessage == message && entry->nCode == code && entry->nID <= id &&
            id <= entry->nLastID)
            return entry;
    }
    return nullptr;
}

const AFX_MSGMAP* CCmdTarget::GetMessageMap() const {
    return GetThisMessageMap();
}

const AFX_MSGMAP* CCmdTarget::GetThisMessageMap() {
    static const AFX_MSGMAP_ENTRY messageEntries[] = {{0, 0, 0, 0, SigEnd, nullptr}};
    static const AFX_MSGMAP messageMap = {nullptr, &messageEntries[0]};
    return &messageMap;
}

bool CCmdTarget::OnCmdMsg(UINT id, int code) {
    for (const AFX_MSGMAP* map = GetMessageMap(); map; map = map->pBaseMap) {
        const AFX_MSGMAP_ENTRY* entry =
            AfxFindMessageEntry(map->lpEntries, WM_COMMAND, static_cast<UINT>(code), id);
        if (entry) {
            CallCommandHandler(*entry, id);
            return true;
        }
    }
    return false;
}

void CCmdTarget::CallCommandHandler(const AFX_MSGMAP_ENTRY& entry, UINT id) {
    if (entry.nSig == SigVoidUInt)
        (this->*AfxLoadHandler<void (CCmdTarget::*)(UINT)>(entry.pfn))(id);
    else
        (this->*entry.pfn)();
}
