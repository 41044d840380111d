// A graphics object that holds one platform handle (a bitmap's image, a font's face).
#pragma once

#include "toolkit/CObject.h"

class CGdiObject : public CObject {
public:
    void* GetSafeHandle() const { return m_hObject; }
    bool Attach(void* handle);
    void* Detach();

protected:
    void* m_hObject = nullptr;
};
