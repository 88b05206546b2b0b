#include "tests/world/notes.h"

namespace acceptance {

using automation::Object;
using automation::TextView;
using host::outlook::Attachments;
using host::outlook::Item;

namespace {

constexpr const char* no_date = "4501-01-01";  // of a date that was never set

void expect_same_people(World& world, const Item& mail, const Item& copy) {
    const Object people = copy.get(u"Recipients").to_object();
    const Object expected = mail.get(u"Recipients").to_object();
    const std::int32_t count = expected.get(u"Count").to_integer();
    ASSERT_EQ(people.get(u"Count").to_integer(), count);
    for (std::int32_t i = 1; i <= count; ++i) {
        for (const TextView member : {u"Name", u"Address", u"Type"}) {
            EXPECT_EQ(world.text(people.call(u"Item", {i}).to_object(), member),
                      world.text(expected.call(u"Item", {i}).to_object(), member))
                << i << shown(member);
        }
    }
}

void expect_same_files(World& world, const Item& mail, const Item& copy) {
    const Attachments files = copy.Attachments();
    const Attachments expected = mail.Attachments();
    const std::int32_t count = expected.Count();
    ASSERT_EQ(files.Count(), count);
    for (std::int32_t i = 1; i <= count; ++i) {
        for (const TextView member : {u"FileName", u"Size"}) {
            EXPECT_EQ(world.text(files.Item(i), member), world.text(expected.Item(i), member))
                << i << shown(member);
        }
    }
}

}  // namespace

Lines told_note(const Item& note) {
    Lines told{"Subject: " + shown(note.Subject())};
    const host::outlook::UserProperties properties = note.UserProperties();
    const std::int32_t count = properties.Count();
    for (std::int32_t i = 1; i <= count; ++i) {
        const host::outlook::UserProperty property = properties.Item(i);
        const std::string value = shown(property.get(u"Value").to_text());
        const bool unset = value.empty() || value.starts_with(no_date);
        if (!unset) told.push_back(shown(property.get(u"Name").to_text()) + ": " + value);
    }
    return told;
}

void expect_same_mail(World& world, const Item& mail, const Item& copy) {
    EXPECT_EQ(copy.MessageClass(), mail.MessageClass());
    for (const TextView member : {u"Subject", u"Body", u"To", u"CC", u"SenderName", u"SentOn", u"UnRead"}) {
        EXPECT_EQ(world.text(copy, member), world.text(mail, member)) << shown(member);
    }
    expect_same_people(world, mail, copy);
    expect_same_files(world, mail, copy);
}

void expect_note(World& world, const Item& note, const Item& mail, const Lines& told) {
    ASSERT_TRUE(note);
    EXPECT_EQ(note.MessageClass(), u"IPM.Post.Note");
    EXPECT_EQ(told_note(note), told);
    EXPECT_EQ(note.Body(), u"\r\n\r\n" + mail.Body());
    ASSERT_EQ(note.Attachments().Count(), 1);
    const Object attachment = note.Attachments().Item(1);
    constexpr std::int32_t embedded_item = 5;  // OlAttachmentType
    EXPECT_EQ(attachment.get(u"Type").to_integer(), embedded_item);
    EXPECT_EQ(attachment.get(u"Position").to_integer(), 1);
    EXPECT_EQ(attachment.get(u"DisplayName").to_text(), mail.Subject());
    const Item attached(attachment.get(u"EmbeddedItem").to_object());
    expect_same_mail(world, mail, attached);
    EXPECT_EQ(attached.BillingInformation(), u"") << "it was attached before it was marked";
}

std::string told_date(World& world, const Item& mail) {
    return "Activity Date: " + shown(world.text(mail, u"SentOn"));
}

}  // namespace acceptance
