#include "HeadlessView.h"

#include <algorithm>

namespace native {

HeadlessView::HeadlessView(HeadlessPlatform& platform, HeadlessNode* node, bool ownsNode)
    : m_platform(platform), m_node(node), m_ownsNode(ownsNode) {
    if (m_ownsNode)
        m_node->view = this;
}

HeadlessView::~HeadlessView() {
    if (!m_node || !m_ownsNode)
        return;
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
    m_platform.Forget(*m_node);
    if (m_node->shown)
        cairo_surface_destroy(m_node->shown);
    delete m_node;
}

void HeadlessView::SetFrame(const RECT& frame) {
    if (m_node)
        m_node->frame = frame;
}

SIZE HeadlessView::Size() const {
    if (!m_node)
        return SIZE{0, 0};
    return SIZE{m_node->frame.right - m_node->frame.left, m_node->frame.bottom - m_node->frame.top};
}

POINT HeadlessView::ScreenOrigin() const {
    return m_node ? m_platform.ScreenOriginOf(*m_node) : POINT{0, 0};
}

void HeadlessView::SetVisible(bool visible) {
    if (m_node && m_node->visible != visible) {
        m_node->visible = visible;
        if (!visible)
            m_platform.Forget(*m_node);
    }
}

void HeadlessView::Raise() {
    if (m_node)
        m_platform.Raise(*m_node);
}

void HeadlessView::SetTitle(const char* utf8Title) {
    if (m_node)
        m_node->title = utf8Title;
}

void HeadlessView::Present(cairo_surface_t* pixels, const RECT& area) {
    if (!m_node || !pixels)
        return;
    const int width = cairo_image_surface_get_width(pixels);
    const int height = cairo_image_surface_get_height(pixels);
    if (!m_node->shown || cairo_image_surface_get_width(m_node->shown) != width ||
        cairo_image_surface_get_height(m_node->shown) != height) {
        if (m_node->shown)
            cairo_surface_destroy(m_node->shown);
        m_node->shown = cairo_image_surface_create(CAIRO_FORMAT_ARGB32, width, height);
    }
    cairo_t* cr = cairo_create(m_node->shown);
    cairo_set_operator(cr, CAIRO_OPERATOR_SOURCE);
    cairo_rectangle(cr, area.left, area.top, area.right - area.left, area.bottom - area.top);
    cairo_clip(cr);
    cairo_set_source_surface(cr, pixels, 0, 0);
    cairo_paint(cr);
    cairo_destroy(cr);
}

void HeadlessView::TakeKeyboardFocus() {
    if (m_node)
        m_platform.SetFocus(m_node);
}

void HeadlessView::ReturnKeyboardFocus() {
    if (m_node && m_platform.Focus() == m_node)
        m_platform.SetFocus(nullptr);
}

void HeadlessView::GrabPointer() {
    if (m_node)
        m_platform.SetGrab(m_node);
}

void HeadlessView::ReleasePointer() {
    if (m_node && m_platform.Grab() == m_node)
        m_platform.SetGrab(nullptr);
}

} // namespace native
