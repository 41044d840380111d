#include "lv2/Lv2BundleText.h"

#include "base/CString.h"
#include "base/SJIS.h"
#include "lv2/Lv2Ports.h"
#include "lv2/PortValue.h"

#include <charconv>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <vector>

namespace lv2 {
namespace {

constexpr char kPrefixes[] = "@prefix atom: <http://lv2plug.in/ns/ext/atom#> .\n"
                             "@prefix doap: <http://usefulinc.com/ns/doap#> .\n"
                             "@prefix lv2: <http://lv2plug.in/ns/lv2core#> .\n"
                             "@prefix opts: <http://lv2plug.in/ns/ext/options#> .\n"
                             "@prefix pset: <http://lv2plug.in/ns/ext/presets#> .\n"
                             "@prefix rdf: <http://www.w3.org/1999/02/22-rdf-syntax-ns#> .\n"
                             "@prefix rdfs: <http://www.w3.org/2000/01/rdf-schema#> .\n"
                             "@prefix state: <http://lv2plug.in/ns/ext/state#> .\n"
                             "@prefix ui: <http://lv2plug.in/ns/extensions/ui#> .\n"
                             "@prefix units: <http://lv2plug.in/ns/extensions/units#> .\n"
                             "@prefix urid: <http://lv2plug.in/ns/ext/urid#> .\n\n";

// The shortest plain decimal (with a point, so that Turtle reads a decimal, not an integer)
// whose float the test accepts; the float itself written in full when none is shorter.
template <typename Accept> std::string Decimal(float value, Accept accepts) {
    char text[64];
    for (int decimals = 0; decimals <= 12; ++decimals) {
        const auto end =
            std::to_chars(text, text + sizeof text, value, std::chars_format::fixed, decimals).ptr;
        std::string number(text, end);
        if (accepts(std::strtof(number.c_str(), nullptr))) {
            return number.find('.') == std::string::npos ? number + ".0" : number;
        }
    }
    return std::string(text, std::to_chars(text, text + sizeof text, value).ptr);
}

std::string Number(float value) {
    return Decimal(value, [value](float read) { return read == value; });
}

// A parameter's value as its port takes it: dB for the levels, the type code, 0 or 1;
// written as the shortest value that a port turns back into the program's own value.
std::string PortNumber(const ZephyraProgramRecord& record, int index) {
    const float normalised = record.param[index];
    return Decimal(PortValueOf(index, normalised),
                   [&](float read) { return DisplayToNormalizeValue(index, read) == normalised; });
}

std::string Quoted(const std::string& text) {
    std::string quoted = "\"";
    for (char c : text) {
        if (c == '"' || c == '\\') {
            quoted += '\\';
        }
        quoted += c;
    }
    return quoted + "\"";
}

std::string PresetUri(int program) {
    return std::string(kPluginUri) + "#program" + std::to_string(program + 1);
}

std::vector<int> NamedPrograms(const AZephyraProgram& bank) {
    std::vector<int> named;
    for (int program = 0; program < kNumPrograms; ++program) {
        char name[kProgramNameLimit];
        GetProgramRecordName(bank[program], name);
        if (name[0] != '\0' && std::strcmp(name, kEmptyProgramName) != 0) {
            named.push_back(program);
        }
    }
    return named;
}

std::string ProgramName(const AZephyraProgram& bank, int program) {
    char name[kProgramNameLimit];
    GetProgramRecordName(bank[program], name);
    CString utf8;
    CheckSJISAndToUFT8(name, utf8);
    return utf8.GetString();
}

std::string AudioPort(uint32_t index) {
    const bool input = index < kAudioOutLeft;
    return std::string("        a lv2:AudioPort , ") +
           (input ? "lv2:InputPort" : "lv2:OutputPort") + " ;\n        lv2:index " +
           std::to_string(index) + " ;\n        lv2:symbol " + Quoted(kAudioPorts[index].symbol) +
           " ;\n        lv2:name " + Quoted(kAudioPorts[index].name) + " ;\n";
}

std::string ParameterPort(int index, const std::string& defaultValue) {
    float min = 0.0f;
    float max = 0.0f;
    GetParamMinMax(index, &min, &max);
    std::string port = "        a lv2:InputPort , lv2:ControlPort ;\n        lv2:index " +
                       std::to_string(kFirstParameterPort + index) + " ;\n        lv2:symbol " +
                       Quoted(kParamTexts[index].symbol) + " ;\n        lv2:name " +
                       Quoted(kParamTexts[index].name) + " ;\n        lv2:default " + defaultValue +
                       " ;\n        lv2:minimum " + Number(min) + " ;\n        lv2:maximum " +
                       Number(max) + " ;\n";
    const std::string label = kParamTexts[index].label;
    if (label == "dB") {
        port += "        units:unit units:db ;\n";
    } else if (label == "Hz") {
        port += "        units:unit units:hz ;\n        lv2:portProperty <http://lv2plug.in/ns/ext/"
                "port-props#logarithmic> ;\n";
    }
    if (index == kParamOnOff) {
        port += "        lv2:portProperty lv2:toggled ;\n";
    } else if (index == kParamType1 || index == kParamType2) {
        port += "        lv2:portProperty lv2:integer , lv2:enumeration ;\n";
        for (int type = 0; type < kNumFilterTypes; ++type) {
            port += std::string("        lv2:scalePoint [ rdfs:label ") +
                    Quoted(kFilterTypeWords[type]) + " ; rdf:value " +
                    Number(static_cast<float>(type)) + " ] ;\n";
        }
    }
    return port;
}

std::string MeterPort(uint32_t meter) {
    return "        a lv2:OutputPort , lv2:ControlPort ;\n        lv2:index " +
           std::to_string(kFirstMeterPort + meter) + " ;\n        lv2:symbol " +
           Quoted(kMeterPorts[meter].symbol) + " ;\n        lv2:name " +
           Quoted(kMeterPorts[meter].name) +
           " ;\n        lv2:minimum 0.0 ;\n        lv2:maximum 1.0 ;\n";
}

// Ports written as "lv2:port [ ... ] , [ ... ] ." from their property lines.
std::string PortList(const std::vector<std::string>& ports) {
    std::string list = "    lv2:port [\n";
    for (size_t i = 0; i < ports.size(); ++i) {
        std::string body = ports[i];
        body.erase(body.size() - 3); // the last " ;\n"
        list += body + "\n    ]" + (i + 1 < ports.size() ? " , [\n" : " .\n");
    }
    return list;
}

} // namespace

std::string ManifestText(const AZephyraProgram& bank, const char* binaryName) {
    std::string text = kPrefixes;
    text += "<" + std::string(kPluginUri) + ">\n    a lv2:Plugin ;\n    lv2:binary <" + binaryName +
            "> ;\n    rdfs:seeAlso <" + kPluginFile + "> .\n";
    text += "\n<" + std::string(kUiUri) + ">\n    a ui:X11UI ;\n    ui:binary <" + binaryName +
            "> ;\n    rdfs:seeAlso <" + kPluginFile + "> .\n";
    for (int program : NamedPrograms(bank)) {
        text += "\n<" + PresetUri(program) + ">\n    a pset:Preset ;\n    lv2:appliesTo <" +
                kPluginUri + "> ;\n    rdfs:seeAlso <" + kPresetsFile + "> .\n";
    }
    return text;
}

std::string PluginText(const AZephyraProgram& bank) {
    std::string text = kPrefixes;
    text += "<" + std::string(kPluginUri) +
            ">\n    a lv2:Plugin , lv2:ParaEQPlugin ;\n    doap:name \"Zephyra\" ;\n"
            "    lv2:project <" +
            kPluginUri +
            "#project> ;\n    lv2:optionalFeature lv2:hardRTCapable , urid:map ;\n"
            "    lv2:extensionData state:interface ;\n    ui:ui <" +
            kUiUri + "> ;\n";
    std::vector<std::string> ports;
    for (uint32_t index = 0; index < kNumAudioPorts; ++index) {
        ports.push_back(AudioPort(index));
    }
    for (int index = 0; index < kNumParams; ++index) {
        ports.push_back(ParameterPort(index, PortNumber(bank[0], index)));
    }
    for (uint32_t meter = 0; meter < kNumMeterPorts; ++meter) {
        ports.push_back(MeterPort(meter));
    }
    text += PortList(ports);
    text += "\n<" + std::string(kPluginUri) +
            "#project>\n    a doap:Project ;\n    doap:name \"Zephyra\" .\n";
    // The panel needs the instance itself (see lv2/Lv2Ui.h) and the host's idle calls.
    text += "\n<" + std::string(kUiUri) +
            ">\n    a ui:X11UI ;\n"
            "    lv2:requiredFeature <http://lv2plug.in/ns/ext/instance-access> , ui:parent , "
            "ui:idleInterface ;\n"
            "    lv2:optionalFeature ui:resize , ui:touch , ui:noUserResize , opts:options , "
            "urid:map ;\n"
            "    opts:supportedOption ui:scaleFactor ;\n"
            "    lv2:extensionData ui:idleInterface .\n";
    return text;
}

std::string PresetsText(const AZephyraProgram& bank) {
    std::string text = kPrefixes;
    for (int program : NamedPrograms(bank)) {
        text += "<" + PresetUri(program) + ">\n    a pset:Preset ;\n    lv2:appliesTo <" +
                kPluginUri + "> ;\n    rdfs:label " + Quoted(ProgramName(bank, program)) +
                " ;\n    lv2:port";
        for (int index = 0; index < kNumParams; ++index) {
            text += std::string(index == 0 ? " [\n" : " , [\n") + "        lv2:symbol " +
                    Quoted(kParamTexts[index].symbol) + " ;\n        pset:value " +
                    PortNumber(bank[program], index) + "\n    ]";
        }
        text += " .\n\n";
    }
    return text;
}

} // namespace lv2
