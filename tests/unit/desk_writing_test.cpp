// What the desk makes of what a person writes into a mail: who it is for, and the original that an answer
// bears.
#include "desk/outlook/item.h"
#include "desk/outlook/quoted_mail.h"
#include "desk/outlook/written_people.h"
#include "tests/unit/support/model_support.h"

namespace model_tests {
namespace {

TEST(Addresses, AreToldFromWhatCanBeNone) {
    struct Case {
        Text text;
        bool can_be;
    };
    const Case cases[] = {
        {u"ann@one.example", true},
        {u"siobhan.o'brien@omalleys.example", true},
        {u"a+b_c-d@mail.one.example", true},
        {u"ann@mailhost", true},
        {u"j\u00f6rg@m\u00fchle.example", true},
        {u"", false},
        {u"ann", false},
        {u"ann@", false},
        {u"@one.example", false},
        {u"ann@@one.example", false},
        {u"ann@one@example", false},
        {u"ann lee@one.example", false},
        {u"ann@one..example", false},
        {u"ann@one.example.", false},
        {u".ann@one.example", false},
        {u"ann.@one.example", false},
        {u"an..n@one.example", false},
        {u"ann@-one.example", false},
        {u"ann@one_two.example", false},
        {u"ann@one.example,ben@one.example", false},
        {u"ann@" + Text(64, u'x') + u".example", false},
        {Text(65, u'x') + u"@one.example", false},
    };
    for (const Case& one : cases) {
        EXPECT_EQ(desk::can_be_address(one.text), one.can_be) << automation::to_utf8(one.text);
    }
}

class Writing : public ModelTest {
  protected:
    /// The sentence that refuses a mail to these people.
    Text refusal(TextView people) const {
        const Item mail = create(item_type::mail);
        mail.put(u"To", Value(people));
        return desk::unreachable(std::dynamic_pointer_cast<desk::Item>(mail.target())->data());
    }
    const desk::ItemData& data_of(const Object& item) const {
        return std::dynamic_pointer_cast<desk::Item>(item.target())->data();
    }
};

TEST_F(Writing, RefusesByNameWhoCannotBeReached) {
    const Item contact = default_folder(folder_number::contacts).Items().Add(u"IPM.Contact");
    contact.put(u"FullName", u"Ann Lee");
    contact.put(u"Email1Address", u"ann@one.example");
    contact.Save();
    EXPECT_EQ(refusal(u"ben@one.example; Ann Lee; Cid <cid@one.example>"), u"");
    EXPECT_EQ(refusal(u"ben@one.example; Dan"),
              u"\"Dan\" is neither an address nor the full name of a contact.");
    EXPECT_EQ(refusal(u"Ann Lee; ben@; Dan"), u"\"ben@\" can't be an address.");
    EXPECT_EQ(refusal(u"Ben <ben@@one.example>"), u"\"ben@@one.example\" can't be an address.");
    EXPECT_EQ(refusal(u"/o=One/cn=ann"),
              u"\"/o=One/cn=ann\" is neither an address nor the full name of a contact.");
}

TEST_F(Writing, TellsTheButtonSendAndNoScript) {
    const Item mail = create(item_type::mail);
    mail.put(u"To", u"nobody@@one.example");
    mail.call(u"Display");
    const Object send = application.get(u"ActiveInspector")
                            .to_object()
                            .get(u"CommandBars")
                            .to_object()
                            .call(u"Item", {u"Standard"})
                            .to_object()
                            .get(u"Controls")
                            .to_object()
                            .call(u"Item", {u"Send"})
                            .to_object();
    desk.call(u"Answer", {u"Outlook", u"\"nobody@@one.example\" can't", 1});
    send.call(u"Execute");
    EXPECT_EQ(integer(desk.get(u"Messages").to_object(), u"Count"), 1);
    EXPECT_EQ(integer(application.Inspectors(), u"Count"), 1) << "it stays open";
    mail.call(u"Send");
    EXPECT_EQ(default_folder(folder_number::sent).Items().Count(), 1);
}

TEST_F(Writing, KeepsTheAddressesOfThoseWhoStandInALine) {
    const Item answer(world.deliver(acceptance::message()).call(u"Reply").to_object());
    const Text line = desk::written_line(data_of(answer), 1);
    EXPECT_EQ(line, u"Ann Lee <ann.lee@northmill.example>");
    answer.put(u"To", Value(line + u"; Ben <ben@one.example>; cid@one.example; "));
    EXPECT_EQ(text(answer, u"To"), u"Ann Lee; Ben; cid@one.example");
    EXPECT_EQ(desk::written_line(data_of(answer), 1), line + u"; Ben <ben@one.example>; cid@one.example");
    EXPECT_EQ(desk::unreachable(data_of(answer)), u"");
}

TEST_F(Writing, QuotesTheOriginalInAnAnswer) {
    const Item mail = world.deliver(acceptance::message({.subject = "Delivery dates", .body = "On Monday."}));
    for (const TextView how : {u"Reply", u"ReplyAll", u"Forward"}) {
        const Item answer(mail.call(how).to_object());
        const Text body = text(answer, u"Body");
        EXPECT_TRUE(body.starts_with(
            u"\r\n\r\n-----Original Message-----\r\nFrom: Ann Lee <ann.lee@northmill.example>\r\nSent: "))
            << automation::to_utf8(body);
        EXPECT_NE(body.find(u"\r\nSubject: Delivery dates\r\n\r\nOn Monday."), Text::npos)
            << automation::to_utf8(body);
    }
}

TEST(Subjects, AreMarkedOnce) {
    const std::tuple<TextView, TextView, TextView> cases[] = {{u"RE: ", u"Offer", u"RE: Offer"},
                                                              {u"RE: ", u"Re: Offer", u"Re: Offer"},
                                                              {u"FW: ", u"RE: Offer", u"FW: RE: Offer"},
                                                              {u"RE: ", u"", u"RE: "},
                                                              {u"RE: ", u"R", u"RE: R"}};
    for (const auto& [mark, subject, marked] : cases) EXPECT_EQ(desk::marked_subject(mark, subject), marked);
}

TEST(AnswersToAll, GoToEverybodyOnceAndNotToTheUser) {
    const auto person = [](TextView name) {
        desk::Person made;
        made.name = Text(name);
        made.smtp_address = made.address = Text(name) + u"@one.example";
        made.address_type = u"SMTP";
        return made;
    };
    desk::ItemData mail;
    for (const TextView name : {u"ben", u"ann", u"user", u"cid", u"Ben"})
        mail.recipients.push_back(person(name));
    const std::vector<desk::Person> others = desk::others_of(mail, person(u"ann"), u"user@one.example");
    ASSERT_EQ(others.size(), 2U);
    EXPECT_EQ(others[0].name, u"ben");
    EXPECT_EQ(others[1].name, u"cid");
}

}  // namespace
}  // namespace model_tests
