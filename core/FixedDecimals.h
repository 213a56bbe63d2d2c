#pragma once
// Numbers with a fixed count of decimals, as the files and texts write them,
// rounded as a person rounds: the shortest decimal that reads back as the
// same double (what the number "is" to whoever wrote it, 1.005 and not
// 1.00499999999999989...) is rounded with halves away from zero: 2.5 gives
// "3", -2.5 gives "-3", 1.005 with two decimals "1.01". A point, and no sign
// on a value that rounds to zero. Not a number and infinity write as 0.
#include <string>

namespace ortelix {

// Writes at p (room for 400 characters) and returns the end. Decimals are
// taken from 0 to 60.
char* PutFixed(char* p, double value, int decimals);
void AppendFixed(std::string& out, double value, int decimals);

// The same by way of the shortest decimal digits only, without the quick
// whole-number path: the measure that the quick path is checked against.
char* PutFixedByDigits(char* p, double value, int decimals);

}  // namespace ortelix
