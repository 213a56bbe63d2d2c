#pragma once
// Numbers with a fixed count of decimals, as the files write them: the exact
// binary value rounded half to even (what std::to_chars gives), with a point,
// and no sign on a value that rounds to zero.
#include <string>

namespace ortelix {

// Writes at p (room for 400 characters) and returns the end.
char* PutFixed(char* p, double value, int decimals);
void AppendFixed(std::string& out, double value, int decimals);

}  // namespace ortelix
