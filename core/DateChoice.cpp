// The date choice: readers that read a file twice note every date in the
// first pass, the user ticks the wanted ones, the second pass keeps those.
#include <string>
#include <vector>

#include "core/ModulShared.h"
#include "core/ReadFilter.h"
#include "platform/Platform.h"

namespace ortelix {

void NoteDate(Session& s, Date date) {
    if (date.empty()) return;
    DateChoice& c = s.dates;
    // Logs run in date order: the last noted date is by far the likeliest.
    if (!c.Dates.empty() && c.Dates.back() == *date) return;
    if (!c.known.insert(*date).second) return;
    c.Dates.push_back(*date);
    s.store.StatusText.set("Suche Datum ", static_cast<int64_t>(c.Dates.size()));
}

bool DateChosen(const Session& s, Date date) {
    const DateChoice& c = s.dates;
    // A point without a date cannot be judged by its date, and is kept.
    if (c.Dates.empty() || date.empty()) return true;
    if (c.Dates.back() == *date) return true;
    return c.known.count(*date) != 0;
}

void AskDates(Session& s) {
    DateChoice& c = s.dates;
    if (c.Dates.size() <= 1) return;
    s.store.StatusText.set("Warte auf Eingabe");
    std::vector<std::string> texts;
    texts.reserve(c.Dates.size());
    for (int32_t date : c.Dates) texts.push_back(IsoDate(date));
    const std::vector<bool> ticked = s.platform.chooseDates(texts);
    std::vector<int32_t> kept;
    for (size_t i = 0; i < c.Dates.size(); ++i)
        if (i < ticked.size() && ticked[i]) kept.push_back(c.Dates[i]);
    // With nothing ticked the list is empty, and an empty list lets every date pass.
    c.Dates = std::move(kept);
    c.known = std::unordered_set<int32_t>(c.Dates.begin(), c.Dates.end());
}

void ClearDates(Session& s) {
    s.dates.Dates.clear();
    s.dates.known.clear();
}

}  // namespace ortelix
