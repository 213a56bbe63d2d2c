// The date choice: readers that read a file twice note every date in the
// first pass, the user ticks the wanted ones, the second pass keeps those.
#include <algorithm>
#include <string>
#include <vector>

#include "core/ModulShared.h"
#include "core/ReadFilter.h"
#include "platform/Platform.h"

namespace ortelix {

void NoteDate(Session& s, Date date) {
    if (date.empty()) return;
    auto& d = s.dates.Dates;
    // Logs run in date order: the last noted date is by far the likeliest.
    if (!d.empty() && d.back() == *date) return;
    if (std::find(d.begin(), d.end(), *date) != d.end()) return;
    d.push_back(*date);
    s.store.StatusText.set("Suche Datum ", static_cast<int64_t>(d.size()));
}

bool DateChosen(const Session& s, Date date) {
    const auto& d = s.dates.Dates;
    // A point without a date cannot be judged by its date, and is kept.
    if (d.empty() || date.empty()) return true;
    if (d.back() == *date) return true;
    return std::find(d.begin(), d.end(), *date) != d.end();
}

void AskDates(Session& s) {
    auto& d = s.dates.Dates;
    if (d.size() <= 1) return;
    s.store.StatusText.set("Warte auf Eingabe");
    std::vector<std::string> texts;
    texts.reserve(d.size());
    for (int32_t date : d) texts.push_back(IsoDate(date));
    const std::vector<bool> ticked = s.platform.chooseDates(texts);
    std::vector<int32_t> kept;
    for (size_t i = 0; i < d.size(); ++i)
        if (i < ticked.size() && ticked[i]) kept.push_back(d[i]);
    // With nothing ticked the list is empty, and an empty list lets every date pass.
    d = std::move(kept);
}

void ClearDates(Session& s) { s.dates.Dates.clear(); }

}  // namespace ortelix
