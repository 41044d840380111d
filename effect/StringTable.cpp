#include "effect/StringTable.h"

const char* LoadStringResource(int id) {
    switch (id) {
    case kStringBankSaveFailed:
        return "The default bank file could not be written.";
    default:
        return "";
    }
}
