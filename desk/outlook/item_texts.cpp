#include "desk/outlook/item_texts.h"

#include <algorithm>

#include "automation/failure.h"

namespace desk {

using automation::Text;
using automation::TextView;
using automation::Value;

namespace {

constexpr TextView body_field = u"Body", page_field = u"HTMLBody", format_field = u"BodyFormat";
constexpr std::int32_t plain_format = 1, page_format = 2, rich_format = 3;  // OlBodyFormat

Text body_text(const ItemData& item, TextView field) {
    const auto found = item.fields.find(field);
    return found == item.fields.end() ? Text() : found->second.to_text();
}

/// A page that shows a text line by line.
Text page_of(const Text& text) {
    Text shown = automation::replaced(text, u"&", u"&amp;");
    shown = automation::replaced(shown, u"<", u"&lt;");
    shown = automation::replaced(shown, u">", u"&gt;");
    shown = automation::replaced(shown, u"\r\n", u"\n");
    return u"<html><body>" + automation::replaced(shown, u"\n", u"<br>\r\n") + u"</body></html>";
}

void change_format(ItemData& item) {
    const std::int32_t format = item.fields[Text(format_field)].to_integer();
    item.fields.erase(Text(format_field));
    if (format == page_format) {
        if (!item.fields.contains(page_field))
            item.fields[Text(page_field)] = page_of(body_text(item, body_field));
        return;
    }
    item.fields.erase(Text(page_field));
    if (format == rich_format) item.fields[Text(format_field)] = format;
}

}  // namespace

void check_format(TextView field, const Value& value) {
    if (field != format_field) return;
    const std::int32_t format = value.to_integer();
    if (format < plain_format || format > rich_format)
        throw automation::Failure(automation::result::invalid_argument,
                                  u"A body is plain text (1), a page (2) or rich text (3).");
}

void follow_body(ItemData& item, TextView changed, Surroundings& surroundings) {
    if (changed == page_field) {
        const Text page = body_text(item, page_field);
        item.fields[Text(body_field)] = page.empty() ? Text() : surroundings.page_text(page);
        item.fields.erase(Text(format_field));
    } else if (changed == body_field) {
        item.fields.erase(Text(page_field));
        item.fields.erase(Text(format_field));
    } else if (changed == format_field) {
        change_format(item);
    }
}

std::optional<Value> composed_body(const ItemData& item, TextView field) {
    if (automation::same_ignoring_case(field, format_field))
        return Value(item.fields.contains(page_field) ? page_format : plain_format);
    if (!automation::same_ignoring_case(field, page_field)) return std::nullopt;
    const Text text = body_text(item, body_field);
    return Value(text.empty() ? Text() : page_of(text));
}

Text normalized_categories(TextView written, TextView separator) {
    std::vector<Text> categories;
    while (!written.empty()) {
        const std::size_t end = std::min(written.find_first_of(u",;"), written.size());
        Text one = automation::trimmed(written.substr(0, end));
        const bool known = std::ranges::any_of(
            categories, [&](const Text& each) { return automation::same_ignoring_case(each, one); });
        if (!one.empty() && !known) categories.push_back(std::move(one));
        written.remove_prefix(std::min(end + 1, written.size()));
    }
    Text all;
    for (const Text& category : categories) {
        if (!all.empty()) all += Text(separator) + u" ";
        all += category;
    }
    return all;
}

}  // namespace desk
