#include "tests/toolkit/RecordingWnd.h"

#include "toolkit/WinMessages.h"
#include "toolkit/WinStyles.h"

BEGIN_MESSAGE_MAP(RecordingWnd, CWnd)
ON_WM_CREATE()
ON_WM_PAINT()
END_MESSAGE_MAP()

LRESULT RecordingWnd::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    received.push_back({message, wParam, lParam});
    if (message == WM_WINDOWPOSCHANGED)
        windowPosFlags.push_back(reinterpret_cast<const WINDOWPOS*>(lParam)->flags);
    return CWnd::WindowProc(message, wParam, lParam);
}

std::vector<UINT> RecordingWnd::Messages() const {
    std::vector<UINT> messages;
    for (const ReceivedMessage& m : received)
        messages.push_back(m.message);
    return messages;
}

std::vector<ReceivedMessage> RecordingWnd::Only(UINT message) const {
    std::vector<ReceivedMessage> matching;
    for (const ReceivedMessage& m : received) {
        if (m.message == message)
            matching.push_back(m);
    }
    return matching;
}

std::vector<WPARAM> RecordingWnd::WParams(UINT message) const {
    std::vector<WPARAM> values;
    for (const ReceivedMessage& m : Only(message))
        values.push_back(m.wParam);
    return values;
}

std::vector<CPoint> RecordingWnd::Points(UINT message) const {
    std::vector<CPoint> points;
    for (const ReceivedMessage& m : Only(message))
        points.push_back(CPoint::FromLParam(m.lParam));
    return points;
}

bool RecordingWnd::CreateChild(CWnd* parent, const CRect& rect, UINT id) {
    return Create(nullptr, "recording", WS_CHILD | WS_VISIBLE, rect, parent, id);
}

bool RecordingWnd::PreCreateWindow(CREATESTRUCT&) {
    return allowCreate;
}

int RecordingWnd::OnCreate(CREATESTRUCT* create) {
    lastCreate = *create;
    if (CWnd::OnCreate(create) == -1)
        return -1;
    return createResult;
}

void RecordingWnd::OnPaint() {
    paintedAreas.push_back(GetUpdateRect());
}
