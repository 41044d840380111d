// A drawing context: where drawing goes (a window's pixels during a paint or outside it, or
// an off-screen image), the selected font and bitmap, colours and an origin offset.
// Coordinates are in the context's own pixels, origin at the top left. A DC made for one
// drawing lives on the stack for that drawing; an off-screen DC lives with its owner.
#pragma once

#include "base/CPoint.h"
#include "base/CRect.h"
#include "base/CSize.h"
#include "base/CString.h"
#include "base/WinTypes.h"
#include "toolkit/CBitmap.h"
#include "toolkit/CFont.h"
#include "toolkit/CObject.h"
#include "toolkit/TouchedArea.h"

#include <cairo.h>
#include <cstdint>

class CWnd;
struct FontFace;

// ExtTextOut options.
constexpr UINT ETO_OPAQUE = 0x0002;
constexpr UINT ETO_CLIPPED = 0x0004;
// Background modes (stored only; text never fills its background by mode).
constexpr int TRANSPARENT = 1;
constexpr int OPAQUE = 2;
// Raster operations (not applied: every blit draws the source over the destination).
constexpr DWORD SRCCOPY = 0x00CC0020;
// DrawText formats.
constexpr UINT DT_LEFT = 0x0000;
constexpr UINT DT_CENTER = 0x0001;
constexpr UINT DT_RIGHT = 0x0002;
constexpr UINT DT_VCENTER = 0x0004;
constexpr UINT DT_SINGLELINE = 0x0020;

class CDC : public CObject {
public:
    CDC();
    ~CDC() override;

    // An off-screen DC over a new transparent image of this size.
    bool CreateBitmapDC(int width, int height);
    // Copies only the other DC's text metrics; makes no context (a carrier of a selected
    // bitmap, as a blit source). Always true.
    bool CreateCompatibleDC(CDC* other);
    // A 1024 × 1024 off-screen image when a display is open, else nothing. Always true.
    bool CreateDC(const char* driver = nullptr, const char* device = nullptr,
                  const char* output = nullptr, const void* initData = nullptr);
    bool DeleteDC();

    // The value 1 stands for "nothing selected": selecting 1 (or null) deselects, and the
    // previous value is 1 when nothing was selected, so the result can always be selected
    // back.
    CBitmap* SelectObject(CBitmap* bitmap);
    CFont* SelectObject(CFont* font);
    static CBitmap* NoBitmap() { return reinterpret_cast<CBitmap*>(std::uintptr_t{1}); }
    static CFont* NoFont() { return reinterpret_cast<CFont*>(std::uintptr_t{1}); }

    COLORREF SetTextColor(COLORREF color);
    COLORREF GetTextColor() const { return m_textColor; }
    COLORREF SetBkColor(COLORREF color);
    int SetBkMode(int mode);

    // Copies a w × h part of the source's image at (sx, sy) to (x, y). The source image is
    // the source DC's selected bitmap, else a snapshot of its off-screen image. Draws nothing
    // when this DC has a bitmap selected (a selected bitmap is a source only) or no context.
    bool BitBlt(int x, int y, int width, int height, CDC* source, int sx, int sy, DWORD rop);
    // As BitBlt, scaling a sw × sh part of the source into w × h.
    bool StretchBlt(int x, int y, int width, int height, CDC* source, int sx, int sy,
                    int sourceWidth, int sourceHeight, DWORD rop);

    // y names the top of the text: the baseline lies one ascent below it. With ETO_OPAQUE
    // and a rectangle, the rectangle is first filled with the background colour.
    bool ExtTextOut(int x, int y, UINT options, const RECT* rect, const CString& text,
                    const int* spacing = nullptr);
    bool ExtTextOut(int x, int y, UINT options, const RECT* rect, const char* text, int length,
                    const int* spacing = nullptr);
    CSize GetTextExtent(const CString& text) const;
    CSize GetTextExtent(const char* text, int length) const;
    // Text placed in a rectangle by the DT_ format; returns the text's height.
    int DrawText(const CString& text, const RECT& rect, UINT format);

    // Shapes for the toolkit's own controls.
    void FillSolidRect(const RECT& rect, COLORREF color);
    void FillRoundRect(const RECT& rect, double radius, COLORREF color);
    void FrameRoundRect(const RECT& rect, double radius, COLORREF color, double lineWidth = 1.0);
    void DrawLine(double x1, double y1, double x2, double y2, COLORREF color,
                  double lineWidth = 1.0);
    void FillPolygon(const POINT* points, int count, COLORREF color);

    CSize GetSize() const { return m_size; }
    const CRect& GetClipRect() const { return m_clipRect; }
    int GetAscent() const { return m_ascent; }
    int GetLineHeight() const { return m_lineHeight; }
    CBitmap* GetSelectedBitmap() const { return m_pSelectedBitmap; }
    // Where drawing goes: the off-screen image's context, else the attached one; may be null.
    cairo_t* GetSafeContext() const { return m_bitmapContext ? m_bitmapContext : m_context; }
    // The off-screen image, or null.
    cairo_surface_t* GetBitmapSurface() const { return m_bitmapSurface; }

protected:
    // Window DCs: the window's client size as size and clip.
    void BindToWindow(CWnd* wnd);
    void Touch(const RECT& area);

    cairo_t* m_context = nullptr;
    cairo_surface_t* m_bitmapSurface = nullptr;
    cairo_t* m_bitmapContext = nullptr;
    CWnd* m_pWnd = nullptr;
    CRect m_clipRect;
    CSize m_size;
    int m_lineHeight = 0;
    int m_ascent = 0;
    COLORREF m_textColor = 0;
    COLORREF m_bkColor = 0xFFFFFF;
    int m_bkMode = OPAQUE;
    CFont* m_pSelectedFont = nullptr;
    CBitmap* m_pSelectedBitmap = nullptr;
    // What drawing touched, so that a window DC shows only that.
    TouchedArea m_touched;

private:
    bool Blit(int x, int y, int width, int height, CDC* source, int sx, int sy, int sourceWidth,
              int sourceHeight);
    const FontFace& TextFace(int* pixelSize) const;
};
