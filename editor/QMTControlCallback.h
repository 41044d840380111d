// How the bitmap controls report a value change to whoever owns them: a plain function
// with the control's id, its new value and the pointer the owner gave at Make. The result
// is ignored. A null call-back means that nobody listens.
#pragma once

using QMTControlCallback = bool (*)(int id, float value, void* user);
