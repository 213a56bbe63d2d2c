#pragma once
// GPX 1.0, and the short element vocabulary that the same scan reads.
#include <cstddef>
#include <string>
#include <string_view>

namespace ortelix {

class Session;

// Reads the file into the store: tracks, short tracks, routes, short routes,
// waypoints, short waypoints. Throws FileError when the file cannot be read.
void ReadGPXFile(Session& s, const std::string& path);
// The same on a text already in memory (any charset its declaration names).
void ReadGPXText(Session& s, std::string_view bytes);
// The same, with a text of `pipelineFrom` bytes or more surveyed and its
// track points read with a second thread (large files are; the store is the
// same either way).
void ReadGPXText(Session& s, std::string_view bytes, size_t pipelineFrom);
// Writes the whole store; an existing file stays untouched on failure.
void WriteGPXFile(Session& s, const std::string& path);
// The file's bytes as the writer makes them (ISO-8859-1, CR LF).
std::string GPXFileText(const Session& s);

}  // namespace ortelix
