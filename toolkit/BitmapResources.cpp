#include "toolkit/BitmapResources.h"

#include "base/Diagnostic.h"
#include "toolkit/DisplayScale.h"

#include <algorithm>
#include <cstring>
#include <string>
#include <vector>

namespace {

struct RegisteredTable {
    std::string bundleIdentifier;
    const EmbeddedResource* table;
    std::size_t count;
};

std::vector<RegisteredTable>& Tables() {
    static std::vector<RegisteredTable> tables;
    return tables;
}

// Drawn for the scale or more, as close as can be: a picture shrunk by Cairo keeps its
// detail, one enlarged turns blurred.
bool Better(const EmbeddedResource& candidate, const EmbeddedResource* chosen, double scale) {
    if (!chosen)
        return true;
    const bool candidateCovers = candidate.scale >= scale;
    const bool chosenCovers = chosen->scale >= scale;
    if (candidateCovers != chosenCovers)
        return candidateCovers;
    return candidateCovers ? candidate.scale < chosen->scale : candidate.scale > chosen->scale;
}

const EmbeddedResource* FindIn(const RegisteredTable& registered, int id) {
    const double scale = DeviceScale();
    const EmbeddedResource* chosen = nullptr;
    for (std::size_t i = 0; i < registered.count; ++i) {
        const EmbeddedResource& candidate = registered.table[i];
        if (candidate.id == id && Better(candidate, chosen, scale))
            chosen = &candidate;
    }
    return chosen;
}

const EmbeddedResource* Find(int id, const char* bundleIdentifier) {
    for (const RegisteredTable& registered : Tables()) {
        if (bundleIdentifier && registered.bundleIdentifier != bundleIdentifier)
            continue;
        if (const EmbeddedResource* found = FindIn(registered, id))
            return found;
    }
    return nullptr;
}

struct ByteReader {
    const unsigned char* bytes;
    std::size_t size;
    std::size_t position;
};

cairo_status_t ReadBytes(void* closure, unsigned char* data, unsigned int length) {
    auto* reader = static_cast<ByteReader*>(closure);
    if (reader->size - reader->position < length)
        return CAIRO_STATUS_READ_ERROR;
    std::memcpy(data, reader->bytes + reader->position, length);
    reader->position += length;
    return CAIRO_STATUS_SUCCESS;
}

// Every image is ARGB32, whatever the PNG held, so that blits treat them alike.
ImageRef Decode(const EmbeddedResource& resource) {
    ByteReader reader{resource.bytes, resource.size, 0};
    cairo_surface_t* decoded = cairo_image_surface_create_from_png_stream(ReadBytes, &reader);
    if (cairo_surface_status(decoded) != CAIRO_STATUS_SUCCESS) {
        cairo_surface_destroy(decoded);
        return nullptr;
    }
    cairo_surface_set_device_scale(decoded, resource.scale, resource.scale);
    if (cairo_image_surface_get_format(decoded) == CAIRO_FORMAT_ARGB32)
        return decoded;
    cairo_surface_t* image = CopyAsImage(decoded);
    cairo_surface_destroy(decoded);
    return image;
}

} // namespace

void AfxRegisterResources(const char* bundleIdentifier, const EmbeddedResource* table,
                          std::size_t count) {
    if (!bundleIdentifier || !table)
        return;
    auto& tables = Tables();
    const bool known = std::any_of(tables.begin(), tables.end(), [&](const RegisteredTable& t) {
        return t.table == table && t.bundleIdentifier == bundleIdentifier;
    });
    if (!known)
        tables.push_back({bundleIdentifier, table, count});
}

void AfxUnregisterResources(const char* bundleIdentifier) {
    if (!bundleIdentifier)
        return;
    auto& tables = Tables();
    tables.erase(std::remove_if(tables.begin(), tables.end(),
                                [&](const RegisteredTable& t) {
                                    return t.bundleIdentifier == bundleIdentifier;
                                }),
                 tables.end());
}

ImageRef LoadBitmap0(int id, const char* bundleIdentifier) {
    if (!bundleIdentifier)
        return nullptr;
    const EmbeddedResource* resource = Find(id, bundleIdentifier);
    return resource ? Decode(*resource) : nullptr;
}

void GetBitmapSize0(ImageRef image, int* width, int* height, int* bytesPerRow) {
    const SIZE size = image ? ImageLayoutSize(image) : SIZE{0, 0};
    const int w = static_cast<int>(size.cx);
    const int h = static_cast<int>(size.cy);
    if (width)
        *width = w;
    if (height)
        *height = h;
    if (bytesPerRow)
        *bytesPerRow = w * 4;
}

ImageRef LoadBitmap(int id) {
    const EmbeddedResource* resource = Find(id, nullptr);
    if (!resource) {
        AfxDiagnostic("%d.png\n", id);
        return nullptr;
    }
    ImageRef image = Decode(*resource);
    if (!image)
        AfxDiagnostic("Can't load bitmap %d;G\n", id);
    return image;
}

ImageRef LoadImageRef(int id) {
    const EmbeddedResource* resource = Find(id, nullptr);
    return resource ? Decode(*resource) : nullptr;
}
