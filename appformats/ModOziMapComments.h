#pragma once
// The map features (MF) and map comments (MC) of a .map file as waypoints.
#include <string>
#include <string_view>

namespace ortelix {

class Session;

void OziKommentareLesen(Session& s, const std::string& file);
void OziKommentareLesenText(Session& s, std::string_view bytes);

}  // namespace ortelix
