#include "desk/outlook/quoted_mail.h"

#include <algorithm>

#include "desk/outlook/item_kinds.h"

namespace desk {

using automation::Text;
using automation::TextView;
using automation::Value;

namespace {

struct QuotedLine {
    TextView title, field;
};
constexpr QuotedLine quoted_lines[] = {
    {u"From", u"SenderName"}, {u"Sent", u"SentOn"}, {u"To", u"To"}, {u"Cc", u"CC"}, {u"Subject", u"Subject"}};

Text quoted_field(const ItemData& item, TextView field) {
    const std::optional<Value> value = field_value(item, field);
    if (!value || *value == Value(no_date)) return {};
    constexpr std::size_t without_seconds = 16;
    const Text text = value->to_text();
    return value->is(Value::Type::date) ? text.substr(0, without_seconds) : text;
}

}  // namespace

bool is_same_person(const Person& one, const Person& other) {
    return automation::same_ignoring_case(one.address, other.address) &&
           (!one.address.empty() || automation::same_ignoring_case(one.name, other.name));
}

Text marked_subject(TextView mark, TextView subject) {
    if (automation::same_ignoring_case(subject.substr(0, mark.size()), mark)) return Text(subject);
    return Text(mark) + Text(subject);
}

Text quoted(const ItemData& original) {
    Text all = u"\r\n\r\n-----Original Message-----\r\n";
    for (const QuotedLine& line : quoted_lines) {
        Text text = quoted_field(original, line.field);
        if (line.field == u"SenderName") {
            const Text address = quoted_field(original, u"SenderEmailAddress");
            if (address.find(u'@') != Text::npos && address != text) text += u" <" + address + u">";
        }
        if (!text.empty()) all += Text(line.title) + u": " + text + u"\r\n";
    }
    return all + u"\r\n" + quoted_field(original, u"Body");
}

bool is_user(const Person& person, TextView own_address) {
    return automation::same_ignoring_case(person.smtp_address, own_address) ||
           automation::same_ignoring_case(person.address, own_address);
}

std::vector<Person> others_of(const ItemData& original, const Person& sender, TextView own_address) {
    std::vector<Person> others;
    for (const Person& person : original.recipients) {
        const auto is_same = [&](const Person& other) { return is_same_person(other, person); };
        if (is_user(person, own_address) || is_same(sender) || std::ranges::any_of(others, is_same)) continue;
        others.push_back(person);
    }
    return others;
}

}  // namespace desk
