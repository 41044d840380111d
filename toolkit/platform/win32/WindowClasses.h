// The two window classes of the Windows backend: views, and the platform's hidden window.
// Their names carry this module's handle, so that two plug-in modules holding this code
// never share a class (each class runs its own module's procedures). They are registered
// while any platform of the module is open and unregistered with the last one, so that a
// module unloaded and loaded again registers its procedures afresh.
#pragma once

namespace native {

// False when Windows refuses the classes; each true answer needs one release.
bool AcquireWindowClasses();
void ReleaseWindowClasses();

// The module the classes belong to (an HINSTANCE), for CreateWindowExW.
void* WindowClassModule();
const wchar_t* ViewClassName();
const wchar_t* PumpClassName();

} // namespace native
