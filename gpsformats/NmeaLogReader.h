#pragma once
// NMEA logs (.nmea, .pgl, .log) as tracks: every GGA, RMC and PMGNTRK line
// with a position becomes a track point.
#include <string>
#include <string_view>

namespace ortelix {

class Session;
class MappedFile;

// With `dateChoice` the log is read twice: the first pass notes the dates of
// its fixes, the user chooses among several, the second pass adds the
// points of the chosen ones (ReadTrackFile format 1). Without it one pass
// adds every fix (format 2, batch reading). The track is named after the
// file (PendingName); "Tracks anhängen" (Check(12)) appends to the last one.
void ReadNmeaLog(Session& s, const std::string& path, bool dateChoice);
// The same on bytes in memory; `map`, when the bytes are a mapped file,
// gets the pages behind the walk back.
void ReadNmeaLogText(Session& s, std::string_view bytes, bool dateChoice, const MappedFile* map = nullptr);

}  // namespace ortelix
