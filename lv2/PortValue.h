// The value a parameter's port shows for a normalised value, in display units. Where the
// display value's float does not convert back to the very same normalised value, a
// neighbouring float that does is taken, so that a value the panel sets and the host hands
// back through the port leaves the effect as it is.
#pragma once

namespace lv2 {

float PortValueOf(int index, float normalised);

} // namespace lv2
