#include "toolkit/CWnd.h"
#include "toolkit/WinStyles.h"

int GetSystemMetrics(int index) {
    switch (index) {
    case SM_CXVSCROLL:
    case SM_CYHSCROLL:
        return 16;
    case SM_CXEDGE:
        return 2;
    default:
        return 0;
    }
}
