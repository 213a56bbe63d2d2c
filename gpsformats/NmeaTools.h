#pragma once
// File-to-file tools for logs: the sentence filter and the line-end
// changers. Each reads its source whole and writes the target through a
// temporary, so a failure never destroys a file that was there.
#include <cstdint>
#include <string>
#include <string_view>

namespace ortelix {

class Session;

// The sentences that the filter keeps, by their first six characters.
inline constexpr const char* kNmeaFilterKinds[] = {"$GPGGA", "$GPGLL", "$GPGSA", "$GPGSV", "$GPRMC", "$GPVTG"};

// The filter on text: a line beginning with "G" gets back the "$" that a
// receiver or a transfer lost, then a line is kept only when it begins with
// one of the six kinds. Kept lines end with CR LF. Returns the count kept.
int64_t NmeaFilterText(std::string_view source, std::string& target);
// Every LF as CR LF (a CR LF thus becomes CR CR LF), or every CR LF as LF.
std::string LfToCrLfText(std::string_view source);
std::string CrLfToLfText(std::string_view source);

// The same from file to file, with "Filtere: " and the count, "ändere LF zu
// CRLF" or "ändere CRLF zu LF", then "Fertig" on the status line. Throw
// FileError when the source cannot be read or the target not written.
int64_t NmeaFilter(Session& s, const std::string& source, const std::string& target);
void LfToCrLfFile(Session& s, const std::string& source, const std::string& target);
void CrLfToLfFile(Session& s, const std::string& source, const std::string& target);

// The source opened for reading under the readers' failure handler: false,
// after "Die Daten können nicht eingelesen werden." and the cause, when it
// cannot be. The tools then leave the target alone.
bool SourceReadable(Session& s, const std::string& title, const std::string& source);

// The commands of the Tools menu: the source dialog, the target dialog, the
// tool. The filter's errors pass without a message; the line-end tools say
// why the source could not be read or the target not written.
void NmeaFilterCommand(Session& s, const std::string& unused);
void LfToCrLf(Session& s, const std::string& unused);
void CrLfToLf(Session& s, const std::string& unused);

}  // namespace ortelix
