#pragma once
// OziExplorer CE route files (.rt2): one route a file.
#include <string>
#include <string_view>

namespace ortelix {

class Session;
struct Route;

// Writes route routeIndex (from 1) of the store.
void OziCERouteSchreiben(Session& s, const std::string& file, int routeIndex);
std::string OziCERouteText(const Route& r, std::string_view name);
// The command's writer: one route to the file itself, several to numbered
// files beside it (base name, number, ".rt2").
void OziCERouteDateienSchreiben(Session& s, const std::string& file);

// Reads a .rt2 file as one route named after the file.
void OziCERouteLesen(Session& s, const std::string& file);
void OziCERouteLesenText(Session& s, std::string_view bytes, std::string_view name);

}  // namespace ortelix
