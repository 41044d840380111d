// The toolkit's application object for the plug-in: one static instance, made when the
// module is loaded. It has no name and handles no messages.
#pragma once

#include "toolkit/CWinApp.h"

class CVeZephyra : public CWinApp {
public:
    CVeZephyra() : CWinApp(nullptr) {}
};

extern CVeZephyra theApp;
