#pragma once
// OziExplorer track files (.plt): one track a file.
#include <string>
#include <string_view>

namespace ortelix {

class Session;
struct Track;

// Writes track trackIndex (from 1) of the store; nothing for an empty name or an index below 1.
void OziTrackSchreiben(Session& s, const std::string& file, int trackIndex);
// The file's bytes for one track, named as the file's base name is.
std::string OziTrackText(const Track& t, std::string_view name);
// The command's writer: one track goes to the file itself; several go to
// numbered files beside it (base name, number, ".plt"), as the batch export does.
void OziTrackDateienSchreiben(Session& s, const std::string& file);

// Reads a .plt file as one new track named after the file.
void OziTrackLesen(Session& s, const std::string& file);
// The same on bytes in memory.
void OziTrackLesenText(Session& s, std::string_view bytes, std::string_view name);

}  // namespace ortelix
