#include "toolkit/CFont.h"

#include "base/Diagnostic.h"
#include "toolkit/FontCatalog.h"

bool CFont::CreatePointFont(int pointSize, const char* faceName, CDC*) {
    const FontFace* face = FindFontFace(faceName);
    if (!face) {
        AfxDiagnostic("CGFontCreateWithFontName error(%s)\n", faceName ? faceName : "");
        return true;
    }
    m_lineHeight = static_cast<int>(face->boundingBoxHeight / face->unitsPerEm * pointSize);
    m_ascent = static_cast<int>(face->ascender / face->unitsPerEm * pointSize - 2.0);
    m_faceName = faceName;
    m_pointSize = pointSize;
    Attach(const_cast<FontFace*>(face));
    return true;
}

void CFont::CopyFrom(const CFont& other) {
    m_hObject = other.m_hObject;
    m_pointSize = other.m_pointSize;
    m_ascent = other.m_ascent;
    m_lineHeight = other.m_lineHeight;
    m_faceName = other.m_faceName;
}
