#include "desk/store/item_codec.h"

#include "desk/store/bytes.h"

namespace desk {
namespace {

/// The first byte of an item and of an attachment. Another one stands for a form that is not known yet.
constexpr std::uint8_t version = 1;

void read_version(ByteReader& reader) {
    if (reader.byte() != version) fail_as_damaged();
}

void write(ByteWriter& writer, const UserPropertyData& property) {
    writer.text(property.name);
    writer.whole(property.type);
    writer.value(property.value);
}

UserPropertyData read_user_property(ByteReader& reader) {
    UserPropertyData property;
    property.name = reader.text();
    property.type = reader.integer();
    property.value = reader.value();
    return property;
}

void write(ByteWriter& writer, const Person& person) {
    writer.text(person.name);
    writer.text(person.address);
    writer.text(person.address_type);
    writer.text(person.smtp_address);
    writer.whole(person.kind);
    writer.byte(person.resolved ? 1 : 0);
}

Person read_person(ByteReader& reader) {
    Person person;
    person.name = reader.text();
    person.address = reader.text();
    person.address_type = reader.text();
    person.smtp_address = reader.text();
    person.kind = reader.integer();
    person.resolved = reader.flag();
    return person;
}

enum class Attachments { with, without };

void write(ByteWriter& writer, const ItemData& item, Attachments attachments, int level);
ItemData read_item(ByteReader& reader);

void write(ByteWriter& writer, const AttachmentData& attachment, int level) {
    writer.text(attachment.display_name);
    writer.text(attachment.file_name);
    writer.whole(attachment.type);
    writer.whole(attachment.position);
    writer.block(attachment.content);
    writer.byte(attachment.item ? 1 : 0);
    if (attachment.item) write(writer, *attachment.item, Attachments::with, level + 1);
}

AttachmentData read_attachment(ByteReader& reader) {
    AttachmentData attachment;
    attachment.display_name = reader.text();
    attachment.file_name = reader.text();
    attachment.type = reader.integer();
    attachment.position = reader.integer();
    attachment.content = reader.block();
    if (reader.flag()) attachment.item = std::make_shared<const ItemData>(read_item(reader));
    return attachment;
}

void write(ByteWriter& writer, const ItemData& item, Attachments attachments, int level) {
    if (level > most_nested)
        throw automation::Failure(automation::result::fail, u"Items are embedded too deeply.");
    writer.text(item.message_class);
    writer.natural(item.fields.size());
    for (const auto& [name, value] : item.fields) {
        writer.text(name);
        writer.value(value);
    }
    writer.natural(item.user_properties.size());
    for (const UserPropertyData& property : item.user_properties) write(writer, property);
    writer.natural(item.recipients.size());
    for (const Person& person : item.recipients) write(writer, person);
    if (attachments == Attachments::without) {
        writer.natural(0);
        return;
    }
    writer.natural(item.attachments.size());
    for (const AttachmentData& attachment : item.attachments) write(writer, attachment, level);
}

ItemData read_item(ByteReader& reader) {
    reader.enter();
    ItemData item;
    item.message_class = reader.text();
    for (std::size_t left = reader.count(); left > 0; --left) {
        automation::Text name = reader.text();
        item.fields.insert_or_assign(std::move(name), reader.value());
    }
    for (std::size_t left = reader.count(); left > 0; --left)
        item.user_properties.push_back(read_user_property(reader));
    for (std::size_t left = reader.count(); left > 0; --left) item.recipients.push_back(read_person(reader));
    for (std::size_t left = reader.count(); left > 0; --left)
        item.attachments.push_back(read_attachment(reader));
    reader.leave();
    return item;
}

/// Runs a reading routine over bytes and checks that it read them all.
template <typename Read>
auto read_all(std::string_view bytes, Read read) {
    ByteReader reader(bytes);
    auto result = read(reader);
    reader.end();
    return result;
}

std::string write_item(const ItemData& item, Attachments attachments) {
    ByteWriter writer;
    writer.byte(version);
    write(writer, item, attachments, 1);
    return writer.take();
}

}  // namespace

std::string write_item(const ItemData& item) { return write_item(item, Attachments::with); }

std::string write_bare_item(const ItemData& item) { return write_item(item, Attachments::without); }

ItemData read_item(std::string_view bytes) {
    return read_all(bytes, [](ByteReader& reader) {
        read_version(reader);
        return read_item(reader);
    });
}

std::string write_attachment(const AttachmentData& attachment) {
    ByteWriter writer;
    writer.byte(version);
    write(writer, attachment, 1);
    return writer.take();
}

AttachmentData read_attachment(std::string_view bytes) {
    return read_all(bytes, [](ByteReader& reader) {
        read_version(reader);
        return read_attachment(reader);
    });
}

std::string write_text(automation::TextView text) {
    ByteWriter writer;
    writer.text(text);
    return writer.take();
}

automation::Text read_text(std::string_view bytes) {
    return read_all(bytes, [](ByteReader& reader) { return reader.text(); });
}

std::string write_fields(const std::vector<FolderField>& fields) {
    ByteWriter writer;
    writer.natural(fields.size());
    for (const FolderField& field : fields) {
        writer.text(field.name);
        writer.whole(field.type);
    }
    return writer.take();
}

std::vector<FolderField> read_fields(std::string_view bytes) {
    return read_all(bytes, [](ByteReader& reader) {
        std::vector<FolderField> fields;
        for (std::size_t left = reader.count(); left > 0; --left) {
            automation::Text name = reader.text();
            fields.push_back({std::move(name), reader.integer()});
        }
        return fields;
    });
}

}  // namespace desk
