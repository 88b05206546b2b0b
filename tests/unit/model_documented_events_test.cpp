// What the host's documentation says of events that come beside the work, page by page.
#include "desk/base/host_event_tables.h"
#include "tests/unit/support/model_support.h"

namespace model_tests {
namespace {

/// Notes each event of an item, and says to those that can be cancelled what the test wants.
class ItemListener {
  public:
    ItemListener(const Object& item, std::initializer_list<TextView> events, bool cancels = false) {
        std::vector<automation::Handler> handlers;
        for (const TextView event : events) {
            handlers.push_back({event, [this, event, cancels](std::span<Value> arguments) {
                                    told.push_back(automation::to_utf8(event));
                                    if (cancels) arguments.back() = true;
                                }});
        }
        sink_.connect(desk::events::item_10, item, std::move(handlers));
    }
    Told told;

  private:
    automation::Sink sink_;
};

class DocumentedEvents : public ModelTest {
  protected:
    using ModelTest::ModelTest;
    Folder drafts() const { return default_folder(folder_number::drafts); }
};

// "Read, Open: An item is opened in a folder. Open: A form is opened to compose an item":
// learn.microsoft.com/office/vba/outlook/how-to/using-visual-basic-to-customize-outlook-forms/about-the-order-of-events
TEST_F(DocumentedEvents, TellThatAnItemIsReadBeforeItOpens) {
    const Item mail = add_mail(u"One");
    const ItemListener old(mail, {u"Read", u"Open", u"Close"});
    mail.call(u"Display");
    mail.call(u"Display");
    EXPECT_EQ(old.told, (Told{"Read", "Open"})) << "once for each time that its window opens";
    constexpr std::int32_t discard = 1;
    mail.call(u"Close", {discard});
    mail.call(u"Display");
    EXPECT_EQ(old.told, (Told{"Read", "Open", "Close", "Read", "Open"}));

    const Item fresh = create(item_type::mail);
    const ItemListener listener(fresh, {u"Read", u"Open"});
    fresh.call(u"Display");
    EXPECT_EQ(listener.told, Told{"Open"});
}

// "Occurs when the user selects the Reply action for an item, or when the Reply method is called", and where
// it is cancelled "the reply operation is not completed and the new item is not displayed":
// learn.microsoft.com/office/vba/api/outlook.mailitem.reply(even), outlook.mailitem.replyall(even) and
// outlook.mailitem.forward(even)
TEST_F(DocumentedEvents, BringTheAnswerAndMayCancelIt) {
    const Item mail = world.deliver(acceptance::message());
    struct Case {
        TextView event, subject;
        std::int32_t button;  // the host's own
    };
    constexpr Case cases[] = {{u"Reply", u"RE: Delivery dates", 354},
                              {u"ReplyAll", u"RE: Delivery dates", 355},
                              {u"Forward", u"FW: Delivery dates", 356}};
    for (const Case& one : cases) {
        SCOPED_TRACE(shown(one.event));
        bool cancels = false;
        Object answer;
        automation::Sink sink;
        sink.connect(desk::events::item_9, mail, {{one.event, [&](std::span<Value> arguments) {
                                                       answer = arguments[0].to_object();
                                                       EXPECT_FALSE(arguments[1].to_boolean());
                                                       arguments[1] = cancels;
                                                   }}});
        const Object made = mail.call(one.event).to_object();
        EXPECT_EQ(made, answer);
        EXPECT_EQ(text(made, u"Subject"), one.subject);

        mail.call(u"Display");
        const Object bars = mail.get(u"GetInspector").to_object().get(u"CommandBars").to_object();
        automation::Request wish{.member = u"FindControl", .named = {{u"Id", one.button}}};
        const Object button = bars.invoke(wish).to_object();
        const auto windows = [&] { return integer(application.get(u"Inspectors").to_object(), u"Count"); };
        cancels = true;
        EXPECT_FALSE(mail.call(one.event).to_object());
        button.call(u"Execute");
        EXPECT_EQ(windows(), 1);
        cancels = false;
        button.call(u"Execute");
        EXPECT_EQ(windows(), 2);
        constexpr std::int32_t discard = 1;
        answer.call(u"Close", {discard});
    }
}

// It comes "just before an attachment is saved when an item is saved", not with SaveAsFile; where it is
// cancelled "the save operation is not completed":
// learn.microsoft.com/office/vba/api/outlook.mailitem.beforeattachmentsave
TEST_F(DocumentedEvents, AskBeforeAnAttachmentIsSaved) {
    const Item mail = add_mail(u"Offer");
    const Text file = world.write_file("offer.txt", "twelve");
    {
        const ItemListener refusing(mail, {u"BeforeAttachmentSave"}, true);
        mail.Attachments().call(u"Add", {Value(file)});
        EXPECT_TRUE(refusing.told.empty());
        mail.Save();
        EXPECT_EQ(refusing.told.size(), 1U);
        EXPECT_FALSE(mail.get(u"Saved").to_boolean());
    }
    const ItemListener listener(mail, {u"Write", u"BeforeAttachmentSave"});
    mail.Save();
    EXPECT_EQ(listener.told, (Told{"Write", "BeforeAttachmentSave"}));
    mail.Attachments().Item(1).call(u"SaveAsFile", {Value(world.write_file("copy.txt", ""))});
    mail.Subject(u"The attachment is as it was");
    mail.Save();
    EXPECT_EQ(listener.told.size(), 3U) << "one more Write";
    mail.Attachments().call(u"Add", {Value(world.write_file("second.txt", "thirteen"))});
    mail.Save();
    EXPECT_EQ(listener.told.size(), 5U) << "Write, and the second attachment alone";
    EXPECT_EQ(mail.Attachments().Count(), 2);
}

// "Occurs just before Microsoft Outlook starts resolving names"; if cancelled, "the name resolution process
// is not completed". It does not come where a program "created and resolved a recipient":
// learn.microsoft.com/office/vba/api/outlook.mailitem.beforechecknames
TEST_F(DocumentedEvents, AskBeforeNamesAreChecked) {
    const auto written = [&](TextView to) {
        const Item mail = create(item_type::mail);
        mail.put(u"To", Value(to));
        return mail;
    };
    const Item mail = written(u"ann@n.example; bob@r.example");
    {
        const ItemListener refusing(mail, {u"BeforeCheckNames", u"Send"}, true);
        EXPECT_EQ(failure_of([&] { mail.call(u"Send"); }), result::fail);
        EXPECT_EQ(refusing.told, Told{"BeforeCheckNames"});
    }
    const ItemListener listener(mail, {u"Send", u"BeforeCheckNames", u"Write"});
    mail.call(u"Send");
    EXPECT_EQ(listener.told, (Told{"BeforeCheckNames", "Send", "Write"}));

    const Item resolved = written(u"ann@n.example");
    resolved.get(u"Recipients").to_object().call(u"ResolveAll");
    const ItemListener silent(resolved, {u"BeforeCheckNames", u"Send"});
    resolved.call(u"Send");
    EXPECT_EQ(silent.told, Told{"Send"});

    const Object answer = world.deliver(acceptance::message()).call(u"Reply").to_object();
    const ItemListener of_answer(answer, {u"BeforeCheckNames", u"Send"});
    answer.call(u"Send");
    EXPECT_EQ(of_answer.told, Told{"Send"}) << "whom the host has put there it knows";
}

// "In order for this event to fire ... an inspector must be open"; if it is cancelled, "Microsoft Outlook
// displays an error message. Therefore, you need to capture this event in your code":
// learn.microsoft.com/office/vba/api/outlook.mailitem.beforedelete
TEST_F(DocumentedEvents, AskBeforeAnOpenItemIsDeleted) {
    const Item mail = add_mail(u"One");
    mail.call(u"Display");
    {
        const ItemListener refusing(mail, {u"BeforeDelete"}, true);
        EXPECT_EQ(failure_of([&] { mail.call(u"Delete"); }), result::fail);
        EXPECT_EQ(inbox().Items().Count(), 1);
    }
    Text deleted;
    automation::Sink sink;
    sink.connect(desk::events::item_10, mail, {{u"BeforeDelete", [&](std::span<Value> arguments) {
                                                    deleted = Item(arguments[0].to_object()).Subject();
                                                }}});
    mail.call(u"Delete");
    EXPECT_EQ(deleted, u"One");
    EXPECT_EQ(inbox().Items().Count(), 0);

    const Item unseen = add_mail(u"Two");
    const ItemListener listener(unseen, {u"BeforeDelete"}, true);
    unseen.call(u"Delete");
    EXPECT_TRUE(listener.told.empty());
    EXPECT_EQ(inbox().Items().Count(), 0);
}

/// What the application tells through its latest event interface of mails that come and are loaded.
Told told_of_a_mail(const Text& host_version) {
    native::NativeWorld world({.host_version = host_version, .add_in = false});
    Told told;
    std::vector<Item> seen;
    automation::Sink sink;
    const auto name_space = world.name_space();
    sink.connect(desk::events::application_11, world.application(),
                 {{u"NewMail", [&](std::span<Value>) { told.emplace_back("NewMail"); }},
                  {u"NewMailEx",
                   [&](std::span<Value> arguments) {
                       const Object mail = name_space.call(u"GetItemFromID", {arguments[0]}).to_object();
                       told.push_back("NewMailEx " + automation::to_utf8(Item(mail).Subject()));
                   }},
                  {u"ItemLoad", [&](std::span<Value> arguments) {
                       const Item item(arguments[0].to_object());
                       EXPECT_EQ(item.Class(), 43);
                       EXPECT_NE(acceptance::failure_of([&] { item.Subject(); }), 0);
                       EXPECT_NE(acceptance::failure_of([&] { item.Save(); }), 0);
                       told.push_back("ItemLoad " + automation::to_utf8(item.MessageClass()));
                       seen.push_back(item);
                   }}});
    world.deliver(acceptance::message());
    world.settle();
    for (const Item& item : seen) EXPECT_EQ(item.Subject(), u"Delivery dates") << "afterwards it is there";
    return told;
}

// NewMailEx has come with version 11 and "fires once for every received item", with its id since version 12:
// learn.microsoft.com/office/vba/api/outlook.application.newmailex
// ItemLoad is of version 12: "an error occurs when calling any property other than Class or MessageClass":
// learn.microsoft.com/office/vba/api/outlook.application.itemload
TEST(DocumentedEventsOfVersions, ComeWhereTheVersionHasThem) {
    EXPECT_EQ(told_of_a_mail(u"9.0.0.3821"), Told{"NewMail"});
    EXPECT_EQ(told_of_a_mail(u"11.0.0.8000"), (Told{"NewMail", "NewMailEx Delivery dates"}));
    EXPECT_EQ(told_of_a_mail(u"16.0.0.0"),
              (Told{"NewMail", "ItemLoad IPM.Note", "NewMailEx Delivery dates"}));
}

}  // namespace
}  // namespace model_tests
