#include "toolkit/CDataExchange.h"
#include "toolkit/CWnd.h"
#include "toolkit/MessageCache.h"
#include "toolkit/MessagePump.h"

AFX_MSG_CACHE MessageCache::_afxMsgCache[MessageCache::kSlotMask + 1];

void AfxResetMsgCache() {
    for (AFX_MSG_CACHE& slot : MessageCache::_afxMsgCache)
        slot = AFX_MSG_CACHE{0, nullptr, nullptr};
}

namespace {

// The entry for a window message (code and ids 0; registered messages by their number in
// the id field), searched from the class to its bases and remembered in the cache.
const AFX_MSGMAP_ENTRY* FindWindowMessageEntry(const AFX_MSGMAP* map, UINT message) {
    AFX_MSG_CACHE& slot = MessageCache::SlotFor(map, message);
    if (slot.nMsg == message && slot.pMessageMap == map)
        return slot.lpEntry;
    slot.nMsg = message;
    slot.pMessageMap = map;
    const bool registered = message >= WM_REGISTERED_FIRST;
    const AFX_MSGMAP_ENTRY* found = nullptr;
    for (const AFX_MSGMAP* level = map; level && !found; level = level->pBaseMap) {
        found = registered ? AfxFindMessageEntry(level->lpEntries, WM_REGISTERED_FIRST, 0, message)
                           : AfxFindMessageEntry(level->lpEntries, message, 0, 0);
    }
    slot.lpEntry = found;
    return found;
}

template <typename Handler> Handler As(AFX_PMSG pfn) {
    return AfxLoadHandler<Handler>(pfn);
}

int SignedLow(LPARAM value) {
    return static_cast<std::int16_t>(LOWORD(static_cast<WPARAM>(value)));
}
int SignedHigh(LPARAM value) {
    return static_cast<std::int16_t>(HIWORD(static_cast<WPARAM>(value)));
}

} // namespace

LRESULT SendMessage0(CWnd* target, UINT message, WPARAM wParam, LPARAM lParam) {
    return target ? target->SendMessage(message, wParam, lParam) : 0;
}

LRESULT CWnd::SendMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    return WindowProc(message, wParam, lParam);
}

LRESULT CWnd::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    LRESULT result = 0;
    if (!OnWndMsg(message, wParam, lParam, &result))
        result = DefWindowProc(message, wParam, lParam);
    return result;
}

// An unhandled message has no default behaviour in this toolkit.
LRESULT CWnd::DefWindowProc(UINT, WPARAM, LPARAM) {
    return -1;
}

bool CWnd::OnWndMsg(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result) {
    if (message == WM_NOTIFY) {
        if (lParam == 0)
            return false;
        LRESULT notifyResult = 0;
        const bool handled = OnNotify(wParam, lParam, &notifyResult);
        if (result)
            *result = notifyResult;
        return handled;
    }
    if (message == WM_COMMAND)
        return OnCommand(wParam, lParam);
    return DispatchToMap(message, wParam, lParam, result);
}

bool CWnd::DispatchToMap(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result) {
    const AFX_MSGMAP_ENTRY* entry = FindWindowMessageEntry(GetMessageMap(), message);
    if (!entry)
        return false;
    LRESULT value = 0;
    const UINT low = LOWORD(static_cast<WPARAM>(lParam));
    const UINT high = HIWORD(static_cast<WPARAM>(lParam));
    switch (entry->nSig) {
    case SigIntCreateStruct:
        value = (this->*As<int (CCmdTarget::*)(CREATESTRUCT*)>(entry->pfn))(
            reinterpret_cast<CREATESTRUCT*>(lParam));
        break;
    case SigResultWParamLParam:
        value = (this->*As<LRESULT (CCmdTarget::*)(WPARAM, LPARAM)>(entry->pfn))(wParam, lParam);
        break;
    case SigVoid:
        (this->*entry->pfn)();
        break;
    case SigVoidUInt:
        (this->*As<void (CCmdTarget::*)(UINT)>(entry->pfn))(static_cast<UINT>(wParam));
        break;
    case SigVoidIntInt:
        (this->*As<void (CCmdTarget::*)(int, int)>(entry->pfn))(SignedLow(lParam),
                                                                SignedHigh(lParam));
        break;
    case SigVoidUIntUIntUInt:
        (this->*As<void (CCmdTarget::*)(UINT, UINT, UINT)>(entry->pfn))(static_cast<UINT>(wParam),
                                                                        low, high);
        break;
    case SigVoidUIntIntInt:
        (this->*As<void (CCmdTarget::*)(UINT, int, int)>(entry->pfn))(
            static_cast<UINT>(wParam), static_cast<int>(low), static_cast<int>(high));
        break;
    case SigVoidWnd:
        (this->*As<void (CCmdTarget::*)(CWnd*)>(entry->pfn))(
            FromHandle(reinterpret_cast<HWND>(wParam)));
        break;
    case SigVoidUIntPoint:
        (this->*As<void (CCmdTarget::*)(UINT, CPoint)>(entry->pfn))(static_cast<UINT>(wParam),
                                                                    CPoint::FromLParam(lParam));
        break;
    default:
        return false;
    }
    if (result)
        *result = value;
    return true;
}

bool CWnd::OnCommand(WPARAM wParam, LPARAM lParam) {
    const UINT id = LOWORD(wParam);
    const int code = HIWORD(wParam);
    if (lParam != 0) {
        CWnd* control = FromHandle(reinterpret_cast<HWND>(lParam));
        if (control && control->OnChildNotify(WM_COMMAND, wParam, lParam, nullptr))
            return true;
    } else if (id == 0) {
        return false;
    }
    return OnCmdMsg(id, code);
}

bool CWnd::OnNotify(WPARAM, LPARAM, LRESULT*) {
    return false;
}

bool CWnd::OnChildNotify(UINT message, WPARAM wParam, LPARAM, LRESULT*) {
    if (message != WM_COMMAND)
        return false;
    const UINT code = HIWORD(wParam);
    for (const AFX_MSGMAP* map = GetMessageMap(); map; map = map->pBaseMap) {
        const AFX_MSGMAP_ENTRY* entry =
            AfxFindMessageEntry(map->lpEntries, WM_REFLECT_BASE + WM_COMMAND, code, 0);
        if (entry) {
            CallCommandHandler(*entry, 0);
            return true;
        }
    }
    return false;
}

bool CWnd::PreTranslateMessage(MSG*) {
    return false;
}

bool CWnd::OnInitDialog() {
    return true;
}

void CWnd::DoDataExchange(CDataExchange*) {}

bool CWnd::UpdateData(bool saveAndValidate) {
    CDataExchange exchange(this, saveAndValidate);
    DoDataExchange(&exchange);
    return !exchange.Failed();
}
