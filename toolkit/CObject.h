// Root of the toolkit's class tree: gives every object a virtual destructor so that owners
// may delete through a base pointer.
#pragma once

class CObject {
public:
    CObject() = default;
    virtual ~CObject() = default;
    CObject(const CObject&) = delete;
    CObject& operator=(const CObject&) = delete;
};
