// The capability strings of the interface: what a plug-in may ask of its host
// (canHostDo) and what a host may ask of a plug-in (effCanDo).
#pragma once

namespace HostCanDos {
inline constexpr const char* canDoSendVstEvents = "sendVstEvents";
inline constexpr const char* canDoSendVstMidiEvent = "sendVstMidiEvent";
inline constexpr const char* canDoSendVstTimeInfo = "sendVstTimeInfo";
inline constexpr const char* canDoReceiveVstEvents = "receiveVstEvents";
inline constexpr const char* canDoReceiveVstMidiEvent = "receiveVstMidiEvent";
inline constexpr const char* canDoReportConnectionChanges = "reportConnectionChanges";
inline constexpr const char* canDoAcceptIOChanges = "acceptIOChanges";
inline constexpr const char* canDoSizeWindow = "sizeWindow";
inline constexpr const char* canDoOffline = "offline";
inline constexpr const char* canDoOpenFileSelector = "openFileSelector";
inline constexpr const char* canDoCloseFileSelector = "closeFileSelector";
inline constexpr const char* canDoStartStopProcess = "startStopProcess";
inline constexpr const char* canDoShellCategory = "shellCategory";
inline constexpr const char* canDoSendVstMidiEventFlagIsRealtime = "sendVstMidiEventFlagIsRealtime";
} // namespace HostCanDos

namespace PlugCanDos {
inline constexpr const char* canDoSendVstEvents = "sendVstEvents";
inline constexpr const char* canDoSendVstMidiEvent = "sendVstMidiEvent";
inline constexpr const char* canDoReceiveVstEvents = "receiveVstEvents";
inline constexpr const char* canDoReceiveVstMidiEvent = "receiveVstMidiEvent";
inline constexpr const char* canDoReceiveVstTimeInfo = "receiveVstTimeInfo";
inline constexpr const char* canDoOffline = "offline";
inline constexpr const char* canDoMidiProgramNames = "midiProgramNames";
inline constexpr const char* canDoBypass = "bypass";
} // namespace PlugCanDos
