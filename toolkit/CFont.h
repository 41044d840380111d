// A font: a face at a size in pixels (one point is one pixel here) with the metrics that
// text placement uses. The handle names a face of the font catalog, which owns it.
#pragma once

#include "base/CString.h"
#include "toolkit/CGdiObject.h"

class CDC;
struct FontFace;

class CFont : public CGdiObject {
public:
    // Size in whole points. A face that is not installed prints a diagnostic and leaves the
    // font without a handle (text then uses the default face); the result is true either way.
    bool CreatePointFont(int pointSize, const char* faceName, CDC* dc = nullptr);

    const FontFace* GetFace() const { return static_cast<const FontFace*>(m_hObject); }
    int GetPointSize() const { return m_pointSize; }
    // Deliberately two pixels less than the face's ascent at this size.
    int GetAscent() const { return m_ascent; }
    int GetLineHeight() const { return m_lineHeight; }
    const CString& GetFaceName() const { return m_faceName; }
    // Copies another font's handle and metrics (fonts share their faces).
    void CopyFrom(const CFont& other);

private:
    int m_pointSize = 0;
    int m_ascent = 0;
    int m_lineHeight = 0;
    CString m_faceName;
};
