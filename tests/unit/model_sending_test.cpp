// What becomes of a mail that is sent, and who is told of it.
#include "desk/base/host_event_tables.h"
#include "tests/unit/support/model_support.h"

namespace model_tests {
namespace {

class MailsOnTheirWay : public ModelTest {
  protected:
    Item written() {
        Item mail = create(item_type::mail);
        mail.Subject(u"Offer");
        mail.put(u"To", u"ann@northmill.example");
        return mail;
    }
    Items drafts() { return default_folder(folder_number::drafts).Items(); }
    Items sent() { return default_folder(folder_number::sent).Items(); }
};

TEST_F(MailsOnTheirWay, AreToldOfWhereTheyLie) {
    const Item draft = written();
    draft.Save();
    const Items from = drafts(), to = sent();
    const std::vector<TextView> events{u"ItemAdd", u"ItemChange", u"ItemRemove"};
    Listener left(host::events::items, from, events), arrived(host::events::items, to, events);
    draft.call(u"Send");
    world.settle();
    EXPECT_EQ(left.told, (std::vector<std::string>{"ItemChange Offer", "ItemRemove"}));
    EXPECT_EQ(arrived.told, std::vector<std::string>{"ItemAdd Offer"});
    written().call(u"Send");
    world.settle();
    EXPECT_EQ(left.told.size(), 2U) << "a mail that was never saved lies in no folder before";
    EXPECT_EQ(arrived.told, (std::vector<std::string>{"ItemAdd Offer", "ItemAdd Offer"}));
}

TEST_F(MailsOnTheirWay, AreNotKeptWhereTheyAreNotToBe) {
    for (const bool saved_before : {false, true}) {
        SCOPED_TRACE(saved_before);
        const Item mail = written();
        mail.put(u"DeleteAfterSubmit", true);
        if (saved_before) mail.Save();
        mail.call(u"Send");
        EXPECT_EQ(failure_of([&] { mail.Subject(); }), result::object_deleted);
        EXPECT_EQ(drafts().Count(), 0);
        EXPECT_EQ(sent().Count(), 0);
    }
}

TEST_F(MailsOnTheirWay, AreStoredOnceThoughTheyAreSavedAsTheirWindowCloses) {
    for (const bool saved_before : {false, true}) {
        SCOPED_TRACE(saved_before);
        const Item mail = written();
        mail.Attachments().call(u"Add", {Value(world.write_file("offer.txt", "twelve"))});
        if (saved_before) {
            mail.Save();
            mail.Attachments().call(u"Add", {Value(world.write_file("second.txt", "thirteen"))});
        }
        mail.call(u"Display");
        Told told;
        const auto note = [&](TextView event) {
            return automation::Handler{
                event, [&told, event](std::span<Value>) { told.push_back(automation::to_utf8(event)); }};
        };
        automation::Sink sink, of_window;
        sink.connect(desk::events::item_10, mail, {note(u"Write"), note(u"BeforeAttachmentSave")});
        of_window.connect(desk::events::inspector_10, mail.get(u"GetInspector").to_object(),
                          {{u"Close", [&](std::span<Value>) {
                                told.emplace_back("Close");
                                mail.Save();
                            }}});
        mail.call(u"Send");
        EXPECT_EQ(told, (Told{"Write", "BeforeAttachmentSave", "Close"}));
    }
    EXPECT_EQ(sent().Count(), 2);
}

TEST_F(MailsOnTheirWay, AreDeletedByWhoeverIsToldThatTheirWindowCloses) {
    for (const bool saved_before : {false, true}) {
        SCOPED_TRACE(saved_before);
        const Item mail = written();
        if (saved_before) mail.Save();
        mail.call(u"Display");
        automation::Sink sink;
        sink.connect(desk::events::inspector_10, mail.get(u"GetInspector").to_object(),
                     {{u"Close", [&](std::span<Value>) { mail.call(u"Delete"); }}});
        mail.call(u"Send");
        EXPECT_EQ(sent().Count(), 0);
        EXPECT_EQ(drafts().Count(), 0);
    }
    EXPECT_EQ(default_folder(folder_number::deleted).Items().Count(), 2);
}

// The attachments of a forwarded mail are saved for the first time when it is sent.
TEST_F(MailsOnTheirWay, AreAskedForTheAttachmentsThatTheyWereMadeWith) {
    const Item mail = add_mail(u"Offer");
    mail.Attachments().call(u"Add", {Value(world.write_file("offer.txt", "twelve"))});
    mail.Save();
    const Item answer(mail.call(u"Forward").to_object());
    answer.put(u"To", u"ann@northmill.example");
    ASSERT_EQ(answer.Attachments().Count(), 1);
    Listener listener(desk::events::item_10, answer, {u"BeforeAttachmentSave"});
    answer.call(u"Send");
    EXPECT_EQ(listener.told.size(), 1U);
    EXPECT_EQ(sent().Item(1).Attachments().Count(), 1);
}

}  // namespace
}  // namespace model_tests
