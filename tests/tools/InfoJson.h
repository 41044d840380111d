// Single fields of `zephyra info --json`, one member per line, found by text search.
#pragma once

#include <cstdlib>
#include <string>

// The text after `"key": ` at or after `from`, up to the end of its line, without a
// trailing comma and quotes.
inline std::string jsonField(const std::string& json, const std::string& key,
                             std::size_t from = 0) {
    const std::string marker = "\"" + key + "\": ";
    const std::size_t start = json.find(marker, from);
    if (start == std::string::npos) {
        return "";
    }
    const std::size_t valueStart = start + marker.size();
    std::string value = json.substr(valueStart, json.find('\n', valueStart) - valueStart);
    if (!value.empty() && value.back() == ',') {
        value.pop_back();
    }
    if (value.size() >= 2 && value.front() == '"' && value.back() == '"') {
        value = value.substr(1, value.size() - 2);
    }
    return value;
}

// Where the parameter with this index is described.
inline std::size_t parameterPosition(const std::string& json, int index) {
    return json.find("\"index\": " + std::to_string(index) + ",");
}

inline double parameterValue(const std::string& json, int index) {
    return std::strtod(jsonField(json, "value", parameterPosition(json, index)).c_str(), nullptr);
}

inline std::string parameterDisplay(const std::string& json, int index) {
    return jsonField(json, "display", parameterPosition(json, index));
}
