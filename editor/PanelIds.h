// The panel's control ids, entry targets, window messages, menu commands and timer, as the
// controls, the entry window and the panel's message map share them.
#pragma once

#include "toolkit/WinMessages.h"

// Call-back ids of the controls.
constexpr unsigned int kIdGain1Knob = 100;
constexpr unsigned int kIdFreq1Knob = 101;
constexpr unsigned int kIdQ1Knob = 102;
constexpr unsigned int kIdGain2Knob = 103;
constexpr unsigned int kIdFreq2Knob = 104;
constexpr unsigned int kIdQ2Knob = 105;
constexpr unsigned int kIdInputSlider = 106;
constexpr unsigned int kIdOutputSlider = 107;
constexpr unsigned int kIdOnOffSwitch = 108;
constexpr unsigned int kIdBand1LowSwitch = 109;
constexpr unsigned int kIdBand1PeakSwitch = 110;
constexpr unsigned int kIdBand1HiSwitch = 111;
constexpr unsigned int kIdBand2LowSwitch = 112;
constexpr unsigned int kIdBand2PeakSwitch = 113;
constexpr unsigned int kIdBand2HiSwitch = 114;
constexpr unsigned int kIdCopyProgramButton = 128;

// What the entry window is editing: one target per read-out, -1 when it is closed.
constexpr int kEntryGain1 = 120;
constexpr int kEntryFreq1 = 121;
constexpr int kEntryQ1 = 122;
constexpr int kEntryGain2 = 123;
constexpr int kEntryFreq2 = 124;
constexpr int kEntryQ2 = 125;
constexpr int kEntryInput = 126;
constexpr int kEntryOutput = 127;
constexpr int kNoEntry = -1;

// From the entry field to its window, and from the window to the panel.
constexpr UINT WM_ENTRY_ESCAPE = 0xA00;
constexpr UINT WM_ENTRY_RETURN = 0xA01;

// The copy-program menu: one command per program from the first id on; the panel's map
// takes the whole range.
constexpr UINT kCopyProgramFirstCommand = 1010;
constexpr UINT kCopyProgramLastCommand = 1110;

// The meters' timer.
constexpr UINT kMeterTimerId = 1024;
constexpr UINT kMeterTimerPeriodMs = 75;
