// The application object: one static instance per module, made when the module loads, so
// that the toolkit has an application to ask for. It owns nothing.
#pragma once

#include "toolkit/CCmdTarget.h"

class CWinApp : public CCmdTarget {
public:
    explicit CWinApp(const char* appName = nullptr);
    ~CWinApp() override;

    const char* m_pszAppName;
};

// The application object, or null when the module made none.
CWinApp* AfxGetApp();
