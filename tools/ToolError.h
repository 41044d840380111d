// The one kind of failure the command-line host reports: a message short enough for one
// line on stderr. Everything the user can get wrong ends up here, caught once in main().
#pragma once

#include <stdexcept>
#include <string>

class ToolError : public std::runtime_error {
public:
    explicit ToolError(const std::string& message) : std::runtime_error(message) {}
};

// A mistake in the command line itself: reported the same way, with a different exit code.
class UsageError : public ToolError {
public:
    explicit UsageError(const std::string& message) : ToolError(message) {}
};
