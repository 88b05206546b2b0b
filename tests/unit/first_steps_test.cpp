// What a newcomer is told to try: that the sample company has what each step names, and when it counts as
// done.
#include "desk/outlook/first_steps.h"
#include "tests/native/native_world.h"
#include "tests/world/people.h"

namespace addin_tests {
namespace {

using automation::Text;
using automation::TextView;
using host::outlook::Item;

constexpr std::size_t private_mail = 3;  // the place of its step

class ThingsToTry : public ::testing::Test {
  protected:
    ThingsToTry() { world.family(u"EmailAutoFile", u"1"); }

    native::NativeWorld world{{.database = "sample"}};
    desk::FirstStepsDone steps{world.model(), u""};

    Item deliver(const char* file) {
        const Text path =
            automation::from_utf8(std::string(TARNWELL_DATA_FOLDER) + "/sample/mails/" + file + ".eml");
        return Item(world.desk().call(u"Deliver", {path}).to_object());
    }
    std::string done() {
        steps.look();
        return automation::to_utf8(steps.as_text());
    }
    Item in_database(TextView folder, TextView filter) {
        return Item(world.below(folder).Items().call(u"Find", {automation::Value(filter)}).to_object());
    }
    /// A record of the database as somebody else might have left it there.
    Item add(TextView folder, TextView subject) {
        const Item item = world.below(folder).Items().Add(u"");
        item.Subject(subject);
        return item;
    }
};

TEST_F(ThingsToTry, AreAllOpenAtFirst) {
    EXPECT_EQ(done(), "0000000000");
    for (const char* const file :
         {"01-outlook-express-apostrophe", "23-unknown-winmail", "25-lead-text-attachment", "17-private",
          "07-latin2-quoted-printable", "03-mixed-pdf-third-address", "11-related-inline-image",
          "14-shared-address"}) {
        deliver(file);
    }
    EXPECT_EQ(done(), "0000000000") << "a mail that has only arrived is no step";
}

TEST_F(ThingsToTry, CountByWhatReadingTheMailsDoes) {
    acceptance::World::read(deliver("01-outlook-express-apostrophe"));
    EXPECT_EQ(done(), "1000000000");
    acceptance::World::read(deliver("25-lead-text-attachment"));
    EXPECT_EQ(done(), "1010000000");
    acceptance::World::read(deliver("17-private"));
    EXPECT_EQ(done(), "1011000000");
    acceptance::World::read(deliver("07-latin2-quoted-printable"));
    EXPECT_EQ(done(), "1011000000") << "its own note belongs to no opportunity";
}

TEST_F(ThingsToTry, CountByTheRecordsThatAreMade) {
    const Item note = add(u"Email", u"Etikety na ležák – změna");
    note.UserProperties().Add(u"OppID", 1, false).put(u"Value", u"");
    note.Save();
    EXPECT_FALSE(steps.look());
    note.UserProperties().Find(u"OppID").put(u"Value", u"17");
    note.Save();
    EXPECT_EQ(done(), "0000010000");
    const Item contact = add(u"Account Contacts", u"Dora Oldham");
    contact.put(u"Email1Address", u"dora.oldham@oldmill.example");
    contact.Save();
    EXPECT_EQ(done(), "0100010000");
    add(u"Drop Downs", u"Langoustine boxes").Save();
    EXPECT_EQ(done(), "0100010001");
}

TEST_F(ThingsToTry, CountAContactThatWasDraggedAndACopyThatIsNew) {
    const host::outlook::Items own_contacts = world.name_space().GetDefaultFolder(10).Items();
    const Item own_one(own_contacts.call(u"Find", {u"[FullName] = \"Bridget O'Keeffe\""}).to_object());
    ASSERT_TRUE(own_one);
    world.desk().call(u"Select", {automation::Value(own_one)});  // as who drags her does
    world.settle();
    own_one.call(u"Copy").to_object().call(u"Move", {world.below(u"Account Contacts")});
    world.settle();
    EXPECT_EQ(done(), "0000000010");
    const automation::Object root = world.account_profiles().get(u"Parent").to_object();
    const automation::Object calendar =
        root.get(u"Folders").to_object().call(u"Item", {u"Global Calendar"}).to_object();
    const Item copy(calendar.get(u"Items").to_object().call(u"Add").to_object());
    copy.Subject(u"Visit at Bellweather");
    copy.Save();
    EXPECT_EQ(done(), "0000000110");
}

TEST_F(ThingsToTry, HaveTemplatesOfWhichAMailCanBeMade) {
    const Item mail(world.application().call(u"CreateItem", {0}).to_object());
    mail.call(u"Display");
    const automation::Object bars =
        world.application().call(u"ActiveInspector").to_object().get(u"CommandBars").to_object();
    const automation::Object bar = bars.call(u"Item", {u"TarnwellCreateNote"}).to_object();
    const automation::Object button =
        bar.get(u"Controls").to_object().call(u"Item", {u"Tarnwell Email Templates"}).to_object();
    world.desk().call(u"Press", {button});
    native::MemoryWindow* const list = world.engine().find(u"Email Templates");
    ASSERT_TRUE(list);
    ASSERT_TRUE(list->control(u"lstTemplates").list().count() > 1);
    const std::int32_t before = world.displayed();
    ASSERT_TRUE(list->control(u"cmdMail").click());
    const std::vector<Item> made = world.displayed_since(before);
    ASSERT_EQ(made.size(), 1U);
    EXPECT_EQ(made.front().Subject(), u"Price list of the spring");
    EXPECT_TRUE(made.front().Body().starts_with(u"Dear customer,\r\n\r\nhere is our price list"))
        << "not empty";
}

TEST_F(ThingsToTry, StayDoneAndAreRemembered) {
    const Item mail = deliver("17-private");
    acceptance::World::read(mail);
    EXPECT_EQ(done(), "0001000000");
    mail.call(u"Delete");
    EXPECT_EQ(done(), "0001000000");
    const desk::FirstStepsDone later(world.model(), u"0001000000");
    EXPECT_TRUE(later.done(private_mail));
    const desk::FirstStepsDone unknown(world.model(), u"0001");
    EXPECT_FALSE(unknown.done(private_mail));
}

}  // namespace
}  // namespace addin_tests
