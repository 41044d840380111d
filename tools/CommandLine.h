// The parsed command line: a command word, its positional arguments and its options, each
// option checked against the list the command accepts.
#pragma once

#include <map>
#include <string>
#include <vector>

struct OptionDefinition {
    const char* name;      // without the leading dashes
    const char* valueName; // null for a switch
    const char* help;
};

class CommandLine {
public:
    // Reads arguments after the command word; throws UsageError for an option the command
    // does not know or a value that is missing.
    CommandLine(const std::vector<std::string>& arguments,
                const std::vector<OptionDefinition>& definitions);

    const std::vector<std::string>& positionals() const { return positionalArguments; }
    bool has(const std::string& name) const;
    std::string text(const std::string& name, const std::string& fallback = "") const;
    // Every value of a repeated option, in command-line order.
    std::vector<std::string> all(const std::string& name) const;
    long integer(const std::string& name, long fallback, long minimum, long maximum) const;
    double number(const std::string& name, double fallback, double minimum, double maximum) const;

private:
    std::vector<std::string> positionalArguments;
    std::map<std::string, std::vector<std::string>> values;
};

// Whole-string number parsing; false for empty text or trailing characters.
bool parseNumber(const std::string& text, double& result);
