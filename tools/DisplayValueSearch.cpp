#include "tools/DisplayValueSearch.h"

#include "tools/CommandLine.h"

#include <cctype>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <strings.h>
#include <vector>

namespace {

// Fine enough to land inside any step of a switch or list; the edges are then refined.
constexpr int kGridSteps = 1000;
constexpr int kBisections = 40;

std::string trimmed(const std::string& text) {
    const std::size_t first = text.find_first_not_of(" \t");
    if (first == std::string::npos) {
        return "";
    }
    return text.substr(first, text.find_last_not_of(" \t") - first + 1);
}

bool endsWithIgnoringCase(const std::string& text, const std::string& suffix) {
    return !suffix.empty() && text.size() >= suffix.size() &&
           strcasecmp(text.c_str() + text.size() - suffix.size(), suffix.c_str()) == 0;
}

// A number at the start of a display text, followed by nothing or by a unit.
struct DisplayedNumber {
    double value;
    int decimals;
};

std::optional<DisplayedNumber> readDisplayedNumber(const std::string& text) {
    const char* start = text.c_str();
    char* end = nullptr;
    const double value = std::strtod(start, &end);
    if (end == start || !std::isfinite(value)) {
        return std::nullopt;
    }
    for (const char* rest = end; *rest != '\0'; ++rest) {
        const auto c = static_cast<unsigned char>(*rest);
        if (!(std::isspace(c) || std::isalpha(c) || c == '%' || c >= 0x80)) {
            return std::nullopt;
        }
    }
    int decimals = 0;
    if (const char* point = static_cast<const char*>(std::memchr(start, '.', end - start))) {
        decimals = static_cast<int>(end - point - 1);
    }
    return DisplayedNumber{value, decimals};
}

class DisplayMatcher {
public:
    DisplayMatcher(const std::string& wanted, const std::string& unitLabel)
        : wantedText(trimmed(wanted)) {
        std::string numberText = wantedText;
        if (endsWithIgnoringCase(numberText, unitLabel)) {
            numberText = trimmed(numberText.substr(0, numberText.size() - unitLabel.size()));
        }
        if (!numberText.empty() && numberText[0] == '+') {
            numberText.erase(0, 1);
        }
        double value = 0.0;
        if (parseNumber(numberText, value)) {
            wantedNumber = value;
        }
    }

    bool isNumeric() const { return wantedNumber.has_value(); }

    bool matches(const std::string& display) const {
        const std::string shown = trimmed(display);
        if (strcasecmp(shown.c_str(), wantedText.c_str()) == 0) {
            return true;
        }
        const auto displayed = readDisplayedNumber(shown);
        if (!wantedNumber || !displayed) {
            return false;
        }
        const double halfStep = 0.5 * std::pow(10.0, -displayed->decimals);
        return std::fabs(displayed->value - *wantedNumber) <= halfStep * (1.0 + 1e-9);
    }

    // How the display compares with the wanted number: -1 below, +1 above, 0 not numeric.
    int side(const std::string& display) const {
        const auto displayed = readDisplayedNumber(trimmed(display));
        if (!wantedNumber || !displayed) {
            return 0;
        }
        return displayed->value < *wantedNumber ? -1 : 1;
    }

private:
    std::string wantedText;
    std::optional<double> wantedNumber;
};

// The boundary between `outside` (not matching) and `inside` (matching).
double refineEdge(const DisplayFunction& display, const DisplayMatcher& matcher, double outside,
                  double inside) {
    for (int i = 0; i < kBisections; ++i) {
        const double middle = 0.5 * (outside + inside);
        if (matcher.matches(display(static_cast<float>(middle)))) {
            inside = middle;
        } else {
            outside = middle;
        }
    }
    return inside;
}

// Within a grid cell whose ends show numbers on either side of the wanted one, finds a
// point that shows it: a display step narrower than the grid.
std::optional<double> findInsideCell(const DisplayFunction& display, const DisplayMatcher& matcher,
                                     double low, double high) {
    const int lowSide = matcher.side(display(static_cast<float>(low)));
    for (int i = 0; i < kBisections; ++i) {
        const double middle = 0.5 * (low + high);
        const std::string shown = display(static_cast<float>(middle));
        if (matcher.matches(shown)) {
            return middle;
        }
        const int side = matcher.side(shown);
        if (side == 0) {
            return std::nullopt;
        }
        (side == lowSide ? low : high) = middle;
    }
    return std::nullopt;
}

double gridPoint(int i) {
    return static_cast<double>(i) / kGridSteps;
}

// The middle of a range of values that all show the wanted text. Bisection leaves its
// edges a hair off, so the middle of a switch's step comes out as 0.49999997; the middle is
// therefore rounded to the fewest decimals that keep it within a millionth of the range's
// width, which gives 0.5 there and leaves a narrow range's middle as it is.
float middleOf(double low, double high) {
    const double middle = 0.5 * (low + high);
    const double allowance = 1e-6 * (high - low);
    for (double scale = 10.0; scale <= 1e9; scale *= 10.0) {
        const double rounded = std::round(middle * scale) / scale;
        if (std::fabs(rounded - middle) <= allowance) {
            return static_cast<float>(rounded);
        }
    }
    return static_cast<float>(middle);
}

} // namespace

std::optional<float> findNormalisedValue(const DisplayFunction& display, const std::string& wanted,
                                         const std::string& unitLabel) {
    const DisplayMatcher matcher(wanted, unitLabel);
    std::vector<std::string> shown(kGridSteps + 1);
    for (int i = 0; i <= kGridSteps; ++i) {
        shown[i] = display(static_cast<float>(gridPoint(i)));
    }

    for (int first = 0; first <= kGridSteps; ++first) {
        if (!matcher.matches(shown[first])) {
            continue;
        }
        int last = first;
        while (last < kGridSteps && matcher.matches(shown[last + 1])) {
            ++last;
        }
        if (first == 0) {
            return 0.0f;
        }
        if (last == kGridSteps) {
            return 1.0f;
        }
        const double low = refineEdge(display, matcher, gridPoint(first - 1), gridPoint(first));
        const double high = refineEdge(display, matcher, gridPoint(last + 1), gridPoint(last));
        return middleOf(low, high);
    }

    if (!matcher.isNumeric()) {
        return std::nullopt;
    }
    for (int i = 0; i < kGridSteps; ++i) {
        const int lowSide = matcher.side(shown[i]);
        const int highSide = matcher.side(shown[i + 1]);
        if (lowSide == 0 || highSide == 0 || lowSide == highSide) {
            continue;
        }
        const auto inside = findInsideCell(display, matcher, gridPoint(i), gridPoint(i + 1));
        if (inside) {
            const double low = refineEdge(display, matcher, gridPoint(i), *inside);
            const double high = refineEdge(display, matcher, gridPoint(i + 1), *inside);
            return middleOf(low, high);
        }
    }
    return std::nullopt;
}
