// A window that writes down every message it receives (number and parameters), its
// creation and its paints, so that tests can check what arrived, in which order.
#pragma once

#include "toolkit/CWnd.h"

#include <vector>

struct ReceivedMessage {
    UINT message;
    WPARAM wParam;
    LPARAM lParam;
};

class RecordingWnd : public CWnd {
public:
    std::vector<ReceivedMessage> received;
    int createResult = 0;
    bool allowCreate = true;
    int postNcDestroyCalls = 0;
    std::vector<CRect> paintedAreas;
    std::vector<UINT> windowPosFlags;
    CREATESTRUCT lastCreate{};

    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;
    std::vector<UINT> Messages() const;
    std::vector<ReceivedMessage> Only(UINT message) const;
    // Of each message of the number received: its wParam; its lParam as a point.
    std::vector<WPARAM> WParams(UINT message) const;
    std::vector<CPoint> Points(UINT message) const;
    // Creates the window as a visible child of the parent at the rectangle.
    bool CreateChild(CWnd* parent, const CRect& rect, UINT id = 0);

protected:
    bool PreCreateWindow(CREATESTRUCT& create) override;
    void PostNcDestroy() override { ++postNcDestroyCalls; }

    int OnCreate(CREATESTRUCT* create);
    void OnPaint();

    DECLARE_MESSAGE_MAP()
};
