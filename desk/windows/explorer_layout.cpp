#include "desk/windows/explorer_layout.h"

#include <algorithm>
#include <optional>

namespace desk {

using automation::Text;
using automation::TextView;

namespace {

/// "Name=1,2,3;" for each.
constexpr char16_t end_of_entry = u';', sign_of_entry = u'=', between_numbers = u',';
constexpr TextView columns_mark = u"columns:";

struct NumberRow {
    TextView name;
    int ExplorerLayout::*member;
};
constexpr NumberRow number_rows[] = {
    {u"left", &ExplorerLayout::left},       {u"top", &ExplorerLayout::top},
    {u"width", &ExplorerLayout::width},     {u"height", &ExplorerLayout::height},
    {u"tree", &ExplorerLayout::tree_width}, {u"pane height", &ExplorerLayout::pane_height}};
struct FlagOfLayout {
    TextView name;
    bool ExplorerLayout::*member;
};
constexpr FlagOfLayout flag_rows[] = {{u"maximized", &ExplorerLayout::maximized},
                                      {u"pane", &ExplorerLayout::pane},
                                      {u"leaving reads", &ExplorerLayout::leaving_reads}};

/// A number of the screen, which has at most five digits; nothing for anything else.
std::optional<int> screen_number(TextView text) {
    const bool negative = text.starts_with(u'-');
    const TextView digits = text.substr(negative ? 1 : 0);
    constexpr std::size_t most_digits = 5;
    if (digits.empty() || digits.size() > most_digits) return {};
    int number = 0;
    for (const char16_t digit : digits) {
        if (digit < u'0' || digit > u'9') return {};
        number = number * 10 + (digit - u'0');
    }
    return negative ? -number : number;
}

std::vector<int> screen_numbers(TextView text) {
    std::vector<int> numbers;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find(between_numbers), text.size());
        const std::optional<int> number = screen_number(text.substr(0, end));
        if (!number) return {};
        numbers.push_back(*number);
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return numbers;
}

void take_entry(ExplorerLayout& layout, TextView name, TextView value) {
    const std::vector<int> numbers = screen_numbers(value);
    if (numbers.empty()) return;
    if (name.starts_with(columns_mark)) {
        layout.columns[Text(name.substr(columns_mark.size()))] = numbers;
    } else if (const auto* const row = std::ranges::find(number_rows, name, &NumberRow::name);
               row != std::end(number_rows)) {
        layout.*row->member = numbers.front();
    } else if (const auto* const flag = std::ranges::find(flag_rows, name, &FlagOfLayout::name);
               flag != std::end(flag_rows)) {
        layout.*flag->member = numbers.front() != 0;
    }
}

}  // namespace

Text layout_text(const ExplorerLayout& layout) {
    Text text;
    const auto add = [&](const Text& name, const std::vector<int>& numbers) {
        text += name + sign_of_entry;
        for (std::size_t i = 0; i < numbers.size(); ++i) {
            if (i != 0) text += between_numbers;
            text += automation::to_text(static_cast<long long>(numbers[i]));
        }
        text += end_of_entry;
    };
    for (const NumberRow& row : number_rows) add(Text(row.name), {layout.*row.member});
    for (const FlagOfLayout& row : flag_rows) add(Text(row.name), {layout.*row.member ? 1 : 0});
    for (const auto& [fields, widths] : layout.columns) add(Text(columns_mark) + fields, widths);
    return text;
}

ExplorerLayout layout_of_text(TextView text) {
    ExplorerLayout layout;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find(end_of_entry), text.size());
        const TextView entry = text.substr(0, end);
        const std::size_t sign = entry.find(sign_of_entry);
        if (sign != TextView::npos) take_entry(layout, entry.substr(0, sign), entry.substr(sign + 1));
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return layout;
}

}  // namespace desk
