// The toolkit's diagnostics: plain lines on standard output, with no log file and no
// levels. Kept: the texts are the ones the toolkit has always printed, odd ones included
// ("BitBlt null \x80r\x80n", "\r\n" endings), since people compare logs against them.
#pragma once

void AfxDiagnostic(const char* format, ...) __attribute__((format(printf, 1, 2)));
