// The sample mails in the sample company: which are filed, and under whom.
#include "tests/native/native_world.h"
#include "tests/world/people.h"

namespace addin_tests {
namespace {

using automation::Text;
using automation::TextView;
using host::outlook::Item;
using host::outlook::Items;
using native::NativeWorld;

struct SampleMail {
    const char* file;
    TextView contact;  ///< empty: it is left alone
    bool exchange_only = false;
};
constexpr SampleMail mails[] = {
    {"01-outlook-express-apostrophe", u"Siobhán O'Brien"},
    {"02-utf8-flowed-b-subject", u"Jonas Lindqvist"},
    {"03-mixed-pdf-third-address", u"Rachel Tannenbaum"},
    {"04-webmail-search-string", u""},
    {"05-exchange-sender", u"Graham Tulloch", true},
    {"06-reply-with-copies", u"Patrick O'Malley"},
    {"07-latin2-quoted-printable", u"Jiří Dvořák"},
    {"08-koi8-base64", u"Olga Petrenko"},
    {"09-mixed-alternative-png", u"François Lemaître"},
    {"10-raw-8-bit-header", u"Søren Dalgaard"},
    {"11-related-inline-image", u"Hannah Weatherby"},
    {"12-long-headers-spreadsheet", u"Uwe Baumann"},
    {"13-unknown-encoded-file-name", u""},
    {"14-shared-address", u"Morag Sinclair"},
    {"15-exchange-recipients", u"Moira Fenwick", true},
    {"16-forwarded-message", u"Deborah Whitaker"},
    {"17-private", u""},
    {"18-unknown-newsletter", u""},
    {"19-without-to-line", u""},
    {"20-other-class", u""},
    {"21-unknown-private-mark", u""},
    {"22-unknown-delivery-report", u""},
    {"23-unknown-winmail", u""},
    {"24-contact-without-account", u"Piers Hallam"},
    {"25-lead-text-attachment", u""},
};

TEST(SampleMailsFiled, GoToTheirContactsOrNowhere) {
    for (const TextView exchange : {u"0", u"1"}) {
        SCOPED_TRACE("SaveExchangeEmail " + automation::to_utf8(exchange));
        NativeWorld world({.database = "sample"});
        world.family(u"EmailAutoFile", u"1");
        world.option(u"SaveExchangeEmail", exchange);
        const Items notes = world.below(u"Email").Items();
        std::int32_t before = notes.Count();
        for (const SampleMail& one : mails) {
            SCOPED_TRACE(one.file);
            const Text path = automation::from_utf8(std::string(TARNWELL_DATA_FOLDER) + "/sample/mails/" +
                                                    one.file + ".eml");
            const Item mail(world.desk().call(u"Deliver", {path}).to_object());
            acceptance::World::read(mail);
            const bool is_filed = !one.contact.empty() && (!one.exchange_only || exchange == TextView(u"1"));
            const std::int32_t now = notes.Count();
            ASSERT_EQ(now, before + (is_filed ? 1 : 0));
            EXPECT_EQ(acceptance::is_marked(mail), is_filed);
            before = now;
            if (!is_filed) continue;
            const Item note = notes.Item(now);
            EXPECT_EQ(automation::to_utf8(world.property(note, u"Contact Name")),
                      automation::to_utf8(one.contact));
            EXPECT_EQ(note.Subject(), mail.Subject());
            EXPECT_EQ(note.Body(), u"\r\n\r\n" + mail.Body());
            const Item attached(note.Attachments().Item(1).get(u"EmbeddedItem").to_object());
            EXPECT_EQ(attached.Body(), mail.Body());
            EXPECT_EQ(attached.Attachments().Count(), mail.Attachments().Count());
        }
        EXPECT_EQ(world.memory_registry().open_keys(), 0U);
    }
}

TEST(SampleMailsFiled, OfAContactWithoutAccountBearNoAccount) {
    NativeWorld world({.database = "sample"});
    world.family(u"EmailAutoFile", u"1");
    const Item mail(world.desk()
                        .call(u"Deliver", {Text(u"" TARNWELL_DATA_FOLDER) +
                                           u"/sample/mails/24-contact-without-account.eml"})
                        .to_object());
    acceptance::World::read(mail);
    const Items notes = world.below(u"Email").Items();
    const Item note = notes.Item(notes.Count());
    EXPECT_EQ(world.property(note, u"Contact Name"), u"Piers Hallam");
    EXPECT_EQ(world.property(note, u"AccountID"), u"");
    EXPECT_NE(world.property(note, u"ContactID"), u"");
}

}  // namespace
}  // namespace addin_tests
