// Static message maps: each class with handlers owns one map record that points at its
// base class's record and at an array of entries; the dispatcher walks from the class to
// its bases and takes the first entry that matches.
#pragma once

#include "base/WinTypes.h"
#include "toolkit/WinMessages.h"

#include <cstdint>
#include <cstring>
#include <type_traits>

class CCmdTarget;
class CWnd;
class CPoint;
struct CREATESTRUCT;

using AFX_PMSG = void (CCmdTarget::*)();

// How the dispatcher unpacks a message for the handler; 0 ends an entry array.
enum MessageSignature : std::uintptr_t {
    SigEnd = 0,
    SigIntCreateStruct = 9,     // int (CREATESTRUCT*): lParam is the record
    SigResultWParamLParam = 10, // LRESULT (WPARAM, LPARAM): passed through
    SigVoid = 12,               // void ()
    SigVoidUInt = 13,           // void (UINT): wParam, or the id of a command range
    SigVoidIntInt = 15,         // void (int, int): the two signed halves of lParam
    SigVoidUIntUIntUInt = 16,   // void (UINT, UINT, UINT): wParam, low and high half of lParam
    SigVoidUIntIntInt = 17,     // void (UINT, int, int): wParam, low and high half of lParam
    SigVoidWnd = 23,            // void (CWnd*): wParam is a window handle
    SigVoidUIntPoint = 49,      // void (UINT, CPoint): wParam, point packed in lParam
};

struct AFX_MSGMAP_ENTRY {
    UINT nMessage;
    UINT nCode;
    UINT nID;
    UINT nLastID;
    std::uintptr_t nSig;
    AFX_PMSG pfn;
};

struct AFX_MSGMAP {
    const AFX_MSGMAP* pBaseMap;
    const AFX_MSGMAP_ENTRY* lpEntries;
};

// Every pointer to a member function of one class has the same representation (code
// pointer plus this-adjustment), so an entry keeps handlers of every shape in one field; the
// dispatcher copies the bits back into the shape that the entry's signature names.
template <typename Handler> AFX_PMSG AfxStoreHandler(Handler handler) {
    static_assert(sizeof(Handler) == sizeof(AFX_PMSG), "a handler of the target class");
    AFX_PMSG stored;
    std::memcpy(&stored, &handler, sizeof stored);
    return stored;
}

template <typename Handler> Handler AfxLoadHandler(AFX_PMSG stored) {
    static_assert(sizeof(Handler) == sizeof(AFX_PMSG), "a handler of the target class");
    Handler handler;
    std::memcpy(&handler, &stored, sizeof handler);
    return handler;
}

// First entry of the array with this message and code whose id range holds id, or null.
const AFX_MSGMAP_ENTRY* AfxFindMessageEntry(const AFX_MSGMAP_ENTRY* entries, UINT message,
                                            UINT code, UINT id);

#define DECLARE_MESSAGE_MAP()                                                                      \
public:                                                                                            \
    const AFX_MSGMAP* GetMessageMap() const override;                                              \
                                                                                                   \
protected:                                                                                         \
    static const AFX_MSGMAP* GetThisMessageMap();

#define BEGIN_MESSAGE_MAP(theClass, baseClass)                                                     \
    const AFX_MSGMAP* theClass::GetMessageMap() const {                                            \
        return GetThisMessageMap();                                                                \
    }                                                                                              \
    const AFX_MSGMAP* theClass::GetThisMessageMap() {                                              \
        using ThisClass = theClass;                                                                \
        using TheBaseClass = baseClass;                                                            \
        static_assert(std::is_base_of<TheBaseClass, ThisClass>::value,                             \
                      "a message map chains to a base class");                                     \
        static const AFX_MSGMAP_ENTRY messageEntries[] = {

#define END_MESSAGE_MAP()                                                                          \
    { 0, 0, 0, 0, SigEnd, nullptr }                                                                \
    }                                                                                              \
    ;                                                                                              \
    static const AFX_MSGMAP messageMap = {TheBaseClass::GetThisMessageMap(), &messageEntries[0]};  \
    return &messageMap;                                                                            \
    }

// The handler's own type is checked against the signature by the static_cast.
#define AFX_HANDLER(shape, function) AfxStoreHandler(static_cast<shape>(&ThisClass::function))

#define ON_MESSAGE(message, function)                                                              \
    {message,                                                                                      \
     0,                                                                                            \
     0,                                                                                            \
     0,                                                                                            \
     SigResultWParamLParam,                                                                        \
     AFX_HANDLER(LRESULT(CCmdTarget::*)(WPARAM, LPARAM), function)},
#define ON_REGISTERED_MESSAGE(number, function)                                                    \
    {WM_REGISTERED_FIRST,                                                                          \
     0,                                                                                            \
     number,                                                                                       \
     number,                                                                                       \
     SigResultWParamLParam,                                                                        \
     AFX_HANDLER(LRESULT(CCmdTarget::*)(WPARAM, LPARAM), function)},
#define ON_COMMAND(id, function)                                                                   \
    {WM_COMMAND, 0, id, id, SigVoid, AFX_HANDLER(void(CCmdTarget::*)(), function)},
#define ON_COMMAND_RANGE(id, idLast, function)                                                     \
    {WM_COMMAND, 0, id, idLast, SigVoidUInt, AFX_HANDLER(void(CCmdTarget::*)(UINT), function)},
#define ON_CONTROL(code, id, function)                                                             \
    {WM_COMMAND, code, id, id, SigVoid, AFX_HANDLER(void(CCmdTarget::*)(), function)},
#define ON_CONTROL_REFLECT(code, function)                                                         \
    {WM_REFLECT_BASE + WM_COMMAND,                                                                 \
     code,                                                                                         \
     0,                                                                                            \
     0,                                                                                            \
     SigVoid,                                                                                      \
     AFX_HANDLER(void(CCmdTarget::*)(), function)},
#define ON_BN_CLICKED(id, function) ON_CONTROL(BN_CLICKED, id, function)
#define ON_CBN_SELCHANGE(id, function) ON_CONTROL(CBN_SELCHANGE, id, function)
#define ON_EN_CHANGE(id, function) ON_CONTROL(EN_CHANGE, id, function)

#define ON_WM_CREATE()                                                                             \
    {WM_CREATE,                                                                                    \
     0,                                                                                            \
     0,                                                                                            \
     0,                                                                                            \
     SigIntCreateStruct,                                                                           \
     AFX_HANDLER(int(CCmdTarget::*)(CREATESTRUCT*), OnCreate)},
#define ON_WM_DESTROY()                                                                            \
    {WM_DESTROY, 0, 0, 0, SigVoid, AFX_HANDLER(void(CCmdTarget::*)(), OnDestroy)},
#define ON_WM_MOVE()                                                                               \
    {WM_MOVE, 0, 0, 0, SigVoidIntInt, AFX_HANDLER(void(CCmdTarget::*)(int, int), OnMove)},
#define ON_WM_SIZE()                                                                               \
    {WM_SIZE, 0, 0, 0, SigVoidUIntIntInt, AFX_HANDLER(void(CCmdTarget::*)(UINT, int, int), OnSize)},
#define ON_WM_SETFOCUS()                                                                           \
    {WM_SETFOCUS, 0, 0, 0, SigVoidWnd, AFX_HANDLER(void(CCmdTarget::*)(CWnd*), OnSetFocus)},
#define ON_WM_KILLFOCUS()                                                                          \
    {WM_KILLFOCUS, 0, 0, 0, SigVoidWnd, AFX_HANDLER(void(CCmdTarget::*)(CWnd*), OnKillFocus)},
#define ON_WM_PAINT() {WM_PAINT, 0, 0, 0, SigVoid, AFX_HANDLER(void(CCmdTarget::*)(), OnPaint)},
#define ON_WM_KEYDOWN()                                                                            \
    {WM_KEYDOWN,                                                                                   \
     0,                                                                                            \
     0,                                                                                            \
     0,                                                                                            \
     SigVoidUIntUIntUInt,                                                                          \
     AFX_HANDLER(void(CCmdTarget::*)(UINT, UINT, UINT), OnKeyDown)},
#define ON_WM_CHAR()                                                                               \
    {WM_CHAR,                                                                                      \
     0,                                                                                            \
     0,                                                                                            \
     0,                                                                                            \
     SigVoidUIntUIntUInt,                                                                          \
     AFX_HANDLER(void(CCmdTarget::*)(UINT, UINT, UINT), OnChar)},
#define ON_WM_TIMER()                                                                              \
    {WM_TIMER, 0, 0, 0, SigVoidUInt, AFX_HANDLER(void(CCmdTarget::*)(UINT), OnTimer)},
#define ON_WM_MOUSEMOVE()                                                                          \
    {WM_MOUSEMOVE,                                                                                 \
     0,                                                                                            \
     0,                                                                                            \
     0,                                                                                            \
     SigVoidUIntPoint,                                                                             \
     AFX_HANDLER(void(CCmdTarget::*)(UINT, CPoint), OnMouseMove)},
#define ON_WM_LBUTTONDOWN()                                                                        \
    {WM_LBUTTONDOWN,                                                                               \
     0,                                                                                            \
     0,                                                                                            \
     0,                                                                                            \
     SigVoidUIntPoint,                                                                             \
     AFX_HANDLER(void(CCmdTarget::*)(UINT, CPoint), OnLButtonDown)},
#define ON_WM_LBUTTONUP()                                                                          \
    {WM_LBUTTONUP,                                                                                 \
     0,                                                                                            \
     0,                                                                                            \
     0,                                                                                            \
     SigVoidUIntPoint,                                                                             \
     AFX_HANDLER(void(CCmdTarget::*)(UINT, CPoint), OnLButtonUp)},
#define ON_WM_LBUTTONDBLCLK()                                                                      \
    {WM_LBUTTONDBLCLK,                                                                             \
     0,                                                                                            \
     0,                                                                                            \
     0,                                                                                            \
     SigVoidUIntPoint,                                                                             \
     AFX_HANDLER(void(CCmdTarget::*)(UINT, CPoint), OnLButtonDblClk)},
