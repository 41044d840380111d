#include "toolkit/platform/headless/HeadlessPlatform.h"

#include "toolkit/platform/headless/HeadlessView.h"

#include <algorithm>
#include <chrono>
#include <thread>

namespace native {

namespace {

bool Contains(const RECT& rect, int x, int y) {
    return x >= rect.left && x < rect.right && y >= rect.top && y < rect.bottom;
}

void EraseFrom(std::vector<HeadlessNode*>& nodes, HeadlessNode* node) {
    nodes.erase(std::remove(nodes.begin(), nodes.end(), node), nodes.end());
}

} // namespace

HeadlessPlatform::HeadlessPlatform() = default;

HeadlessPlatform::~HeadlessPlatform() {
    for (auto& host : m_hostWindows) {
        if (host->shown)
            cairo_surface_destroy(host->shown);
    }
}

std::shared_ptr<HeadlessPlatform> HeadlessPlatform::Shared() {
    static const std::shared_ptr<HeadlessPlatform> platform = std::make_shared<HeadlessPlatform>();
    return platform;
}

std::unique_ptr<NativeView> HeadlessPlatform::CreateChildView(NativeView& parent, const RECT& frame,
                                                              ViewEvents& events) {
    HeadlessNode* parentNode = static_cast<HeadlessView&>(parent).Node();
    if (!parentNode)
        return nullptr;
    auto* node = new HeadlessNode;
    node->frame = frame;
    node->events = &events;
    AttachChild(*parentNode, *node);
    return std::make_unique<HeadlessView>(*this, node, true);
}

std::unique_ptr<NativeView> HeadlessPlatform::CreateTopLevelView(TopLevelKind kind, NativeView*,
                                                                 const RECT& screenFrame,
                                                                 ViewEvents& events) {
    auto* node = new HeadlessNode;
    node->frame = screenFrame;
    node->events = &events;
    node->topLevel = true;
    node->kind = kind;
    m_topLevels.push_back(node);
    return std::make_unique<HeadlessView>(*this, node, true);
}

std::unique_ptr<NativeView> HeadlessPlatform::WrapHostView(void* handle, ViewEvents&) {
    const auto found = std::find_if(m_hostWindows.begin(), m_hostWindows.end(),
                                    [handle](const auto& host) { return host.get() == handle; });
    if (found == m_hostWindows.end() || (*found)->destroyed)
        return nullptr;
    return std::make_unique<HeadlessView>(*this, found->get(), false);
}

// Input is delivered as the driver injects it: nothing is ever pending.
void HeadlessPlatform::ProcessEvents() {}

void HeadlessPlatform::WaitForEvents(int timeoutMs) {
    std::this_thread::sleep_for(std::chrono::milliseconds(timeoutMs));
}

void* HeadlessPlatform::CreateHostWindow(const RECT& screenFrame) {
    auto host = std::make_unique<HeadlessNode>();
    host->frame = screenFrame;
    host->visible = true;
    host->topLevel = true;
    host->hostWindow = true;
    m_topLevels.push_back(host.get());
    m_hostWindows.push_back(std::move(host));
    return m_hostWindows.back().get();
}

void HeadlessPlatform::DestroyHostWindow(void* handle) {
    const auto found = std::find_if(m_hostWindows.begin(), m_hostWindows.end(),
                                    [handle](const auto& host) { return host.get() == handle; });
    if (found == m_hostWindows.end() || (*found)->destroyed)
        return;
    HeadlessNode* host = found->get();
    const std::vector<HeadlessNode*> inside = host->children;
    for (HeadlessNode* child : inside) {
        Detach(*child);
        if (child->view) {
            child->view->Lose();
            if (child->events)
                child->events->NativeDestroyed();
        }
    }
    EraseFrom(m_topLevels, host);
    Forget(*host);
    host->destroyed = true;
    host->visible = false;
}

void HeadlessPlatform::SetHostWindowVisible(void* handle, bool visible) {
    for (const auto& host : m_hostWindows) {
        if (host.get() == handle && !host->destroyed && host->visible != visible) {
            host->visible = visible;
            NotifyViewable(*host, visible);
        }
    }
}

void HeadlessPlatform::NotifyViewable(HeadlessNode& node, bool viewable) {
    for (HeadlessNode* child : node.children) {
        if (child->events)
            child->events->NativeViewable(viewable);
        NotifyViewable(*child, viewable);
    }
}

void HeadlessPlatform::AttachChild(HeadlessNode& parent, HeadlessNode& child) {
    child.parent = &parent;
    parent.children.push_back(&child);
}

void HeadlessPlatform::Detach(HeadlessNode& node) {
    if (node.parent)
        EraseFrom(node.parent->children, &node);
    else
        EraseFrom(m_topLevels, &node);
    node.parent = nullptr;
}

void HeadlessPlatform::Raise(HeadlessNode& node) {
    std::vector<HeadlessNode*>& siblings = node.parent ? node.parent->children : m_topLevels;
    EraseFrom(siblings, &node);
    siblings.push_back(&node);
}

void HeadlessPlatform::SetFocus(HeadlessNode* node) {
    HeadlessNode* previous = m_focus;
    if (previous == node)
        return;
    m_focus = node;
    if (previous && previous->events)
        previous->events->NativeFocusLost();
}

void HeadlessPlatform::FocusElsewhere() {
    SetFocus(nullptr);
}

void HeadlessPlatform::Forget(HeadlessNode& node) {
    if (m_focus == &node)
        m_focus = nullptr;
    if (m_grab == &node)
        m_grab = nullptr;
    if (m_pressed == &node)
        m_pressed = nullptr;
    if (m_hovered == &node)
        m_hovered = nullptr;
}

POINT HeadlessPlatform::ScreenOriginOf(const HeadlessNode& node) const {
    POINT origin{0, 0};
    for (const HeadlessNode* at = &node; at; at = at->parent) {
        origin.x += at->frame.left;
        origin.y += at->frame.top;
    }
    return origin;
}

HeadlessNode* HeadlessPlatform::DeepestAt(HeadlessNode& node, int x, int y) const {
    for (auto child = node.children.rbegin(); child != node.children.rend(); ++child) {
        if ((*child)->visible && Contains((*child)->frame, x, y))
            return DeepestAt(**child, x - (*child)->frame.left, y - (*child)->frame.top);
    }
    return &node;
}

HeadlessNode* HeadlessPlatform::NodeAt(int screenX, int screenY) const {
    for (auto top = m_topLevels.rbegin(); top != m_topLevels.rend(); ++top) {
        if ((*top)->visible && Contains((*top)->frame, screenX, screenY))
            return DeepestAt(**top, screenX - (*top)->frame.left, screenY - (*top)->frame.top);
    }
    return nullptr;
}

void HeadlessPlatform::DeliverMouse(MouseAction action, int x, int y) {
    HeadlessNode* target = m_grab ? m_grab : m_pressed ? m_pressed : NodeAt(x, y);
    if (action == MouseAction::Down && !m_grab)
        m_pressed = target;
    if (action == MouseAction::Up)
        m_pressed = nullptr;
    // Leaving a window is seen when the pointer moves over another one.
    if (action == MouseAction::Move && !m_grab && !m_pressed && target != m_hovered) {
        HeadlessNode* left = m_hovered;
        m_hovered = target;
        if (left && left->events)
            left->events->NativeMouse(MouseAction::Leave, 0, 0, m_clockMs);
    }
    if (!target || !target->events)
        return;
    const POINT origin = ScreenOriginOf(*target);
    target->events->NativeMouse(action, x - origin.x, y - origin.y, m_clockMs);
}

void HeadlessPlatform::MouseDown(int x, int y) {
    DeliverMouse(MouseAction::Down, x, y);
}

void HeadlessPlatform::MouseUp(int x, int y) {
    DeliverMouse(MouseAction::Up, x, y);
}

void HeadlessPlatform::MouseMove(int x, int y) {
    DeliverMouse(MouseAction::Move, x, y);
}

void HeadlessPlatform::MouseWheel(int x, int y, bool up) {
    DeliverMouse(up ? MouseAction::WheelUp : MouseAction::WheelDown, x, y);
}

void HeadlessPlatform::Key(unsigned keyCode, unsigned character) {
    HeadlessNode* target = m_grab ? m_grab : m_focus;
    if (target && target->events)
        target->events->NativeKey(KeyInput{keyCode, character, m_clockMs});
}

void HeadlessPlatform::ComposeInto(cairo_t* cr, const HeadlessNode& node, double x,
                                   double y) const {
    if (node.shown) {
        cairo_set_source_surface(cr, node.shown, x, y);
        cairo_paint(cr);
    }
    for (const HeadlessNode* child : node.children) {
        if (child->visible)
            ComposeInto(cr, *child, x + child->frame.left, y + child->frame.top);
    }
}

cairo_surface_t* HeadlessPlatform::Compose(const HeadlessNode& node) const {
    const int width = std::max(1, static_cast<int>(node.frame.right - node.frame.left));
    const int height = std::max(1, static_cast<int>(node.frame.bottom - node.frame.top));
    cairo_surface_t* surface = cairo_image_surface_create(CAIRO_FORMAT_ARGB32, width, height);
    cairo_t* cr = cairo_create(surface);
    ComposeInto(cr, node, 0, 0);
    cairo_destroy(cr);
    cairo_surface_flush(surface);
    return surface;
}

} // namespace native
