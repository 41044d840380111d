// A message with an OK button. The windowing toolkit installs the handler that shows it
// as a dialog; until one is installed (or where there is no display) the message is
// printed as a line on standard output.
#pragma once

using MessageBoxHandler = int (*)(const char* text);

// Shows the text and returns IDOK (1). A box that the toolkit shows stays up after the
// call has returned, until the user has read it.
int AfxMessageBox(const char* text);
// Installs the dialog that shows messages; null restores the printed line.
void SetMessageBoxHandler(MessageBoxHandler handler);
