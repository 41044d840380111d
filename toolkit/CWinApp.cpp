#include "toolkit/CWinApp.h"

namespace {
CWinApp* g_application = nullptr;
}

CWinApp::CWinApp(const char* appName) : m_pszAppName(appName) {
    if (!g_application)
        g_application = this;
}

CWinApp::~CWinApp() {
    if (g_application == this)
        g_application = nullptr;
}

CWinApp* AfxGetApp() {
    return g_application;
}
