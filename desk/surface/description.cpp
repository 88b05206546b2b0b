#include "desk/surface/description.h"

#include <algorithm>

#include "desk/outlook/item.h"

namespace desk {

using automation::Failure;
using automation::Text;
using automation::TextView;

namespace {

/// What the store notes by itself.
constexpr TextView own_notes[] = {u"CreationTime", u"LastModificationTime"};

void add_line(Text& all, const Text& name, const Text& value) {
    all += name + u": " + automation::replaced(automation::replaced(value, u"\r", u"\\r"), u"\n", u"\\n") +
           u"\n";
}

Text number(std::size_t value) { return automation::to_text(static_cast<long long>(value)); }

Text in_words(const ItemData& item) {
    Text all;
    add_line(all, u"MessageClass", item.message_class);
    for (const auto& [name, value] : item.fields) {
        if (std::ranges::find(own_notes, TextView(name)) == std::end(own_notes)) {
            add_line(all, name, value.to_text());
        }
    }
    for (const UserPropertyData& property : item.user_properties) {
        const Text type = automation::to_text(static_cast<long long>(property.type));
        add_line(all, u"[" + property.name + u", " + type + u"]", property.value.to_text());
    }
    for (const Person& person : item.recipients) {
        add_line(
            all, u"recipient of kind " + automation::to_text(static_cast<long long>(person.kind)),
            person.name + u" " + person.address_type + u" " + person.address + u" " + person.smtp_address);
    }
    for (const AttachmentData& attachment : item.attachments) {
        const Text content = attachment.item ? u"\n" + in_words(*attachment.item)
                                             : number(attachment.content.size()) + u" bytes";
        add_line(all, u"attachment " + attachment.display_name, attachment.file_name + u" " + content);
    }
    return all;
}

}  // namespace

Text description(const automation::Object& object) {
    const auto item = std::dynamic_pointer_cast<Item>(object.target());
    if (!item) throw Failure(automation::result::type_mismatch, u"An item is expected.");
    item->check_there();
    return in_words(item->whole());
}

}  // namespace desk
