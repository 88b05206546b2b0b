// Taking a text apart at a sign.
#pragma once

#include <vector>

#include "automation/text.h"

namespace addin::createnote {

/// The parts between the separators, empty ones too; one empty part of an empty text.
inline std::vector<automation::Text> split(automation::TextView text, char16_t separator) {
    std::vector<automation::Text> parts;
    for (std::size_t begin = 0;;) {
        const std::size_t end = text.find(separator, begin);
        parts.emplace_back(text.substr(begin, end - begin));
        if (end == automation::TextView::npos) return parts;
        begin = end + 1;
    }
}

}  // namespace addin::createnote
