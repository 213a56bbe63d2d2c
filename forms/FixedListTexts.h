#pragma once
// The entries of a drop-down list whose texts are fixed, from the one table
// that the range check of the settings counts too (core/OptionBounds.h).
#include <QStringList>

#include "core/OptionBounds.h"

namespace ortelix {

inline QStringList FixedListTexts(size_t list) {
    QStringList texts;
    for (std::string_view e : FixedListEntries(list))
        texts << QString::fromUtf8(e.data(), static_cast<qsizetype>(e.size()));
    return texts;
}

}  // namespace ortelix
