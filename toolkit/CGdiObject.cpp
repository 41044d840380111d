#include "toolkit/CGdiObject.h"

bool CGdiObject::Attach(void* handle) {
    m_hObject = handle;
    return handle != nullptr;
}

void* CGdiObject::Detach() {
    void* handle = m_hObject;
    m_hObject = nullptr;
    return handle;
}
