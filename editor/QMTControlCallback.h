// How the bitmap controls report a value change to whoever owns them: a plain function
// with the control's id, its new value and the pointer the owner gave at Make. The result
// is ignored. A null call-back means that nobody listens.
#pragma once

using QMTControlCallback = bool (*)(int id, float value, void* user);

// A control's id with whom it tells of a change: calling it reports a value.
struct QMTControlNotifier {
    unsigned int id = 0;
    QMTControlCallback callback = nullptr;
    void* user = nullptr;

    void operator()(float value) const {
        if (callback)
            callback(static_cast<int>(id), value, user);
    }
};
