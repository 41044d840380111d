#include "toolkit/platform/headless/HeadlessView.h"

#include "toolkit/platform/CopyArea.h"

#include <algorithm>

namespace native {

HeadlessView::HeadlessView(HeadlessPlatform& platform, HeadlessNode* node, bool ownsNode)
    : m_platform(platform), m_node(node), m_ownsNode(ownsNode) {
    if (m_ownsNode)
        m_node->view = this;
}

HeadlessView::~HeadlessView() {
    if (!m_ownsNode)
        return;
    if (!m_lost) {
        // Windows inside this one go with it, as on a display server.
        const std::vector<HeadlessNode*> inside = m_node->children;
        for (HeadlessNode* child : inside) {
            m_platform.Detach(*child);
            if (child->view) {
                child->view->Lose();
                if (child->events)
                    child->events->NativeDestroyed();
            }
        }
        m_platform.Detach(*m_node);
    }
    m_platform.Forget(*m_node);
    if (m_node->shown)
        cairo_surface_destroy(m_node->shown);
    delete m_node;
}

void HeadlessView::SetFrame(const RECT& frame) {
    if (HeadlessNode* node = Node())
        node->frame = frame;
}

SIZE HeadlessView::Size() const {
    const HeadlessNode* node = Node();
    if (!node)
        return SIZE{0, 0};
    return SIZE{node->frame.right - node->frame.left, node->frame.bottom - node->frame.top};
}

POINT HeadlessView::ScreenOrigin() const {
    const HeadlessNode* node = Node();
    return node ? m_platform.ScreenOriginOf(*node) : POINT{0, 0};
}

void HeadlessView::SetVisible(bool visible) {
    HeadlessNode* node = Node();
    if (node && node->visible != visible) {
        node->visible = visible;
        if (!visible)
            m_platform.Forget(*node);
    }
}

void HeadlessView::Raise() {
    if (HeadlessNode* node = Node())
        m_platform.Raise(*node);
}

void HeadlessView::SetTitle(const char* utf8Title) {
    if (HeadlessNode* node = Node())
        node->title = utf8Title;
}

void HeadlessView::Present(cairo_surface_t* pixels, const RECT& area) {
    HeadlessNode* node = Node();
    if (!node || !pixels)
        return;
    const int width = cairo_image_surface_get_width(pixels);
    const int height = cairo_image_surface_get_height(pixels);
    if (!node->shown || cairo_image_surface_get_width(node->shown) != width ||
        cairo_image_surface_get_height(node->shown) != height) {
        if (node->shown)
            cairo_surface_destroy(node->shown);
        node->shown = cairo_image_surface_create(CAIRO_FORMAT_ARGB32, width, height);
    }
    native::CopyArea(pixels, area, node->shown);
}

void HeadlessView::TakeKeyboardFocus() {
    if (HeadlessNode* node = Node())
        m_platform.SetFocus(node);
}

void HeadlessView::ReturnKeyboardFocus() {
    HeadlessNode* node = Node();
    if (node && m_platform.Focus() == node)
        m_platform.SetFocus(nullptr);
}

void HeadlessView::GrabPointer() {
    if (HeadlessNode* node = Node())
        m_platform.SetGrab(node);
}

void HeadlessView::ReleasePointer() {
    HeadlessNode* node = Node();
    if (node && m_platform.Grab() == node)
        m_platform.SetGrab(nullptr);
}

} // namespace native
