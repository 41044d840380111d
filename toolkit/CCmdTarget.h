// An object that receives commands through its class's message map. Windows and the
// application object derive from it.
#pragma once

#include "toolkit/CObject.h"
#include "toolkit/MessageMap.h"

class CCmdTarget : public CObject {
public:
    // Routes a command (a menu item, a control's notification) to the first handler in the
    // map chain whose code matches and whose id range holds id; false when there is none.
    virtual bool OnCmdMsg(UINT id, int code);
    virtual const AFX_MSGMAP* GetMessageMap() const;

protected:
    static const AFX_MSGMAP* GetThisMessageMap();
    // Calls a command entry's handler as its signature says (no arguments, or the id).
    void CallCommandHandler(const AFX_MSGMAP_ENTRY& entry, UINT id);
};
