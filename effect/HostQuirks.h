// What the effect changes for particular hosts, decided from the strings a host gives
// for itself. The effect asks once, at effOpen, and keeps the answer.
#pragma once

// How effGetParameterProperties describes the parameters.
enum class ParameterPropertiesStyle {
    // Integer min/max in display units, integer steps, stepped parameters as switches.
    kDisplayRanges,
    // Plain 0..1 controls labelled with the parameter's name and no flags.
    kNormalised,
};

// The style for a host known by its answers to audioMasterGetProductString and
// audioMasterGetVendorString (empty when it does not answer).
ParameterPropertiesStyle ParameterPropertiesStyleFor(const char* hostProduct,
                                                     const char* hostVendor);
