#include "desk/windows/folder_search.h"

#include <algorithm>

#include "desk/windows/shown_value.h"

namespace desk {

using automation::Text;
using automation::TextView;

void FolderSearch::want(TextView words) {
    std::vector<Text> now;
    const Text lower = automation::folded(words);
    for (std::size_t start = 0; start < lower.size();) {
        const std::size_t end = std::min(lower.find(u' ', start), lower.size());
        if (end > start) now.push_back(lower.substr(start, end - start));
        start = end + 1;
    }
    if (now == words_) return;
    words_ = std::move(now);
    known_.clear();
}

bool FolderSearch::holds_words(RowId item, std::span<const Column> columns) const {
    const std::optional<ItemRow> row = desk_.store().load(item);
    if (!row) return false;
    Text all;
    for (const Column& column : columns) all += cell_text(row->data, column) + u"\n";
    all += shown_value(row->data, u"Body");
    const Text lower = automation::folded(all);
    return std::ranges::all_of(words_, [&](const Text& word) { return lower.find(word) != Text::npos; });
}

bool FolderSearch::look_further(std::span<const RowId> items, std::span<const Column> columns,
                                std::size_t count) {
    for (const RowId item : items) {
        if (known_.contains(item)) continue;
        if (count-- == 0) return true;
        known_.emplace(item, holds_words(item, columns));
    }
    return false;
}

std::vector<RowId> FolderSearch::found(std::span<const RowId> items) const {
    std::vector<RowId> found;
    for (const RowId item : items) {
        const auto known = known_.find(item);
        if (known != known_.end() && known->second) found.push_back(item);
    }
    return found;
}

}  // namespace desk
