#pragma once
// The coordinate calculator of `ortelix coord`: one conversion by name over
// a list of values, the result as one line of shortest round-trip numbers in
// fixed notation. Values off the earth are refused with a German message.
#include <string>
#include <string_view>
#include <vector>

namespace ortelix {

class Session;

struct CoordFlags {
    std::string meridian;  // --meridian, empty when not given
    std::string system;    // --system
    std::string datum;     // --datum
};

// The names of the conversions, in the order of the help text.
const std::vector<std::string_view>& CoordOperations();

// How many values the conversion takes; 0 for those that take one text
// (UTM, o2), -1 for an unknown name.
int CoordValueCount(std::string_view op);

// Runs one conversion. On success returns true with the line in out; on a
// wrong input returns false with a German message in error. The datum
// conversions read helmert.dat into the session on first use.
bool CoordLine(Session& s, std::string_view op, const std::vector<std::string>& values, const CoordFlags& flags,
               std::string& out, std::string& error);

}  // namespace ortelix
