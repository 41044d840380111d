// A message with an OK button, shown over the editor that is open; with no editor open
// (or no display) the message is printed as a line on standard output.
#pragma once

// Shows the text and returns IDOK (1). The box stays up after the call has returned, kept
// for the window it was shown over, until the user has read it or that window goes.
int AfxMessageBox(const char* text);
