#include "DialogTemplate.h"

#include <map>

namespace {
std::map<int, DialogTemplate>& Templates() {
    static std::map<int, DialogTemplate> templates;
    return templates;
}
} // namespace

void AfxRegisterDialogTemplate(int templateId, const DialogTemplate& layout) {
    Templates()[templateId] = layout;
}

void AfxUnregisterDialogTemplate(int templateId) {
    Templates().erase(templateId);
}

const DialogTemplate* AfxFindDialogTemplate(int templateId) {
    const auto found = Templates().find(templateId);
    return found == Templates().end() ? nullptr : &found->second;
}
