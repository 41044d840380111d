// Installed fonts through GDI. The metrics come from the font's own 'head' and 'hhea'
// tables, read with GetFontData, so that a face measures the same as FreeType reads it on
// Linux (units per em, the bounding box's height, the ascender).
#include "toolkit/InstalledFonts.h"

#include "base/windows/WideText.h"

#include <windows.h>

#include <cstdint>
#include <vector>

namespace {

constexpr DWORD TableTag(char a, char b, char c, char d) {
    // GetFontData takes the tag with its first character in the lowest byte.
    return static_cast<DWORD>(static_cast<unsigned char>(a)) |
           static_cast<DWORD>(static_cast<unsigned char>(b)) << 8 |
           static_cast<DWORD>(static_cast<unsigned char>(c)) << 16 |
           static_cast<DWORD>(static_cast<unsigned char>(d)) << 24;
}

// A font table of the face selected into the context; empty when the face has none.
std::vector<unsigned char> ReadTable(HDC dc, DWORD tag) {
    const DWORD size = GetFontData(dc, tag, 0, nullptr, 0);
    if (size == GDI_ERROR || size == 0)
        return {};
    std::vector<unsigned char> table(size);
    if (GetFontData(dc, tag, 0, table.data(), size) != size)
        return {};
    return table;
}

// Font tables store big-endian numbers.
int BigEndian16(const std::vector<unsigned char>& table, std::size_t offset, bool isSigned) {
    const unsigned value = static_cast<unsigned>(table[offset]) << 8 | table[offset + 1];
    return isSigned ? static_cast<int16_t>(value) : static_cast<int>(value);
}

// The full name of the face selected into the context; empty for a face without outlines.
std::wstring FullName(HDC dc) {
    const UINT size = GetOutlineTextMetricsW(dc, 0, nullptr);
    if (size < sizeof(OUTLINETEXTMETRICW))
        return {};
    std::vector<unsigned char> metrics(size);
    auto* outline = reinterpret_cast<OUTLINETEXTMETRICW*>(metrics.data());
    if (GetOutlineTextMetricsW(dc, size, outline) == 0)
        return {};
    // The name's pointer field holds its offset from the structure's start.
    const auto offset = reinterpret_cast<uintptr_t>(outline->otmpFullName);
    if (offset < sizeof(OUTLINETEXTMETRICW) || offset >= size)
        return {};
    const auto* name = reinterpret_cast<const wchar_t*>(metrics.data() + offset);
    return std::wstring(name, wcsnlen(name, (size - offset) / sizeof(wchar_t)));
}

// The family and metrics of the face GDI picks for the name, if it picked one the caller
// accepts.
template <typename Accept> std::unique_ptr<FontFace> ReadFace(const char* name, Accept accept) {
    const std::wstring wideName = WideFromUtf8(name);
    LOGFONTW request = {};
    if (wideName.empty() || wideName.size() >= LF_FACESIZE)
        return nullptr;
    wideName.copy(request.lfFaceName, wideName.size());
    request.lfCharSet = DEFAULT_CHARSET;
    request.lfQuality = ANTIALIASED_QUALITY;
    request.lfOutPrecision = OUT_TT_ONLY_PRECIS;

    HDC dc = CreateCompatibleDC(nullptr);
    HFONT font = CreateFontIndirectW(&request);
    std::unique_ptr<FontFace> face;
    if (dc && font) {
        HGDIOBJ previous = SelectObject(dc, font);
        wchar_t family[LF_FACESIZE] = {};
        GetTextFaceW(dc, LF_FACESIZE, family);
        const std::wstring fullName = FullName(dc);
        const auto head = ReadTable(dc, TableTag('h', 'e', 'a', 'd'));
        const auto hhea = ReadTable(dc, TableTag('h', 'h', 'e', 'a'));
        if (!fullName.empty() && head.size() >= 54 && hhea.size() >= 36 &&
            accept(family, fullName)) {
            const int unitsPerEm = BigEndian16(head, 18, false);
            const int yMin = BigEndian16(head, 38, true);
            const int yMax = BigEndian16(head, 42, true);
            const int ascender = BigEndian16(hhea, 4, true);
            if (unitsPerEm > 0)
                face = std::make_unique<FontFace>(
                    FontFace{Utf8FromWide(family), static_cast<double>(unitsPerEm),
                             static_cast<double>(yMax - yMin), static_cast<double>(ascender)});
        }
        SelectObject(dc, previous);
    }
    if (font)
        DeleteObject(font);
    if (dc)
        DeleteDC(dc);
    return face;
}

bool SameName(const std::wstring& a, const std::wstring& b) {
    return CompareStringOrdinal(a.c_str(), -1, b.c_str(), -1, TRUE) == CSTR_EQUAL;
}

} // namespace

namespace installed_fonts {

// GDI looks faces up by family or full name, never by PostScript name: a name counts as
// found when the face chosen carries it as one or the other.
std::unique_ptr<FontFace> FindByName(const char* name) {
    const std::wstring wanted = WideFromUtf8(name);
    return ReadFace(name, [&](const std::wstring& family, const std::wstring& fullName) {
        return SameName(family, wanted) || SameName(fullName, wanted);
    });
}

std::unique_ptr<FontFace> FindFamily(const char* family) {
    const std::wstring wanted = WideFromUtf8(family);
    return ReadFace(family, [&](const std::wstring& found, const std::wstring&) {
        return SameName(found, wanted);
    });
}

// GDI always picks some face, through the system's font substitutes when the family is
// not installed.
std::unique_ptr<FontFace> BestMatch(const char* family) {
    return ReadFace(family, [](const std::wstring&, const std::wstring&) { return true; });
}

} // namespace installed_fonts
