// The rows of the Search Panel: what is asked for them, how they are sorted, and which mails open together.
#include <algorithm>

#include "tests/world/note_dialog.h"
#include "tests/world/search_panel.h"

namespace acceptance {
namespace {

using automation::Value;
using host::outlook::Item;

class PanelRows : public Acceptance {
  protected:
    void TearDown() override { panel_.reset(); }

    World& made(const WorldSetup& setup = {}) {
        panel_.reset();
        World& made = with(setup);
        if (setup.instant_search) search_in_phrases(made);
        install_panel(made);
        panel_ = std::make_unique<SearchPanel>(made);
        return made;
    }
    SearchPanel& panel() { return *panel_; }

  private:
    std::unique_ptr<SearchPanel> panel_;
};

TEST_F(PanelRows, AreAskedForInWordsByTheOptionAlone) {
    for (const bool in_words : {false, true}) {
        SCOPED_TRACE(in_words);
        World& same = made({.instant_search = true});
        same.option(u"EnableDesktopSearch", in_words ? u"1" : u"0");
        const Item account = add_full_account(same);
        add_note(same, u"A note", {{u"AccountID", u"A-100"}, {u"Account Name", u"North Mill Ltd"}});
        const std::size_t before = texts_of(same, u"Filters").size();
        panel().open_new(account);
        EXPECT_EQ(panel().column(2), (Lines{"North Mill Ltd", "A note"}));
        const Lines filters = texts_of(same, u"Filters", before);
        EXPECT_GT(filters.size(), 5U) << "one for each folder";
        const auto has_words = [](const std::string& filter) {
            return filter.find("ci_") != std::string::npos;
        };
        EXPECT_EQ(std::ranges::any_of(filters, has_words), in_words);
    }
}

TEST_F(PanelRows, AreSortedByTheTextsOfTheirDates) {
    World& same = made();
    const Item contact = add_full_contact(same);
    for (const char* const received : {"Wed, 24 Dec 2025 09:15:00 +0000", "Mon, 9 Mar 2026 09:15:00 +0000",
                                       "Fri, 9 Oct 2026 09:15:00 +0000"}) {
        const Item mail =
            same.deliver(message({.more = std::string("Received: by mx.example; ") + received + "\n"}));
        const Item moved(mail.call(u"Move", {Value(same.below(u"Notes"))}).to_object());
        moved.UserProperties().Add(u"ContactID", 1, false).value(u"C-200");
        moved.Save();
    }
    constexpr int created = 4;
    panel().open_new(contact);
    Lines by_date = panel().column(created), by_text = by_date;
    ASSERT_EQ(by_date.size(), 4U);
    std::rotate(by_date.begin(), by_date.begin() + 1, by_date.end());  // the contact was made last
    std::ranges::sort(by_text);
    ASSERT_NE(by_text, by_date);
    panel().click_column(created);
    EXPECT_EQ(panel().column(created), by_text);
    panel().click_column(created);
    std::ranges::reverse(by_text);
    EXPECT_EQ(panel().column(created), by_text);
}

TEST_F(PanelRows, OfAMailAndItsReplyOpenBothForTheirSubjectAndSender) {
    World& same = made({.instant_search = true});
    const Item account = add_full_account(same);
    const std::string subject = "About North Mill Ltd";
    const auto deliver = [&](const MailPlan& plan) { return shown(same.deliver(message(plan)).EntryID()); };
    const std::string mail = deliver({.subject = subject});
    const std::string reply = deliver({.subject = subject, .more = "In-Reply-To: <1@northmill.example>\n"});
    // the host's filters leave "RE: " away in what they look at, and not in what they look for
    // ("Filtering Items Using a String Comparison"); somebody else's answer is not among them
    const std::string renamed =
        deliver({.subject = "RE: " + subject, .more = "In-Reply-To: <1@northmill.example>\n"});
    const std::string answer = deliver({.from = "Zoe <zoe@quill.example>", .subject = subject});
    panel().open_new(account);
    const auto opened_by = [&](std::string_view row_subject, std::string_view sender, std::size_t count) {
        const Lines subjects = panel().column(2), senders = panel().column(3);
        std::int32_t row = 1;
        while (subjects.at(static_cast<std::size_t>(row) - 1) != row_subject ||
               senders.at(static_cast<std::size_t>(row) - 1) != sender) {
            ++row;
        }
        const std::int32_t before = same.displayed();
        panel().select(row);
        panel().double_click();
        EXPECT_TRUE(
            same.wait_until([&] { return same.displayed() >= before + static_cast<std::int32_t>(count); }));
        same.settle();
        Lines ids = same.ids_displayed_since(before);
        for (const Item& item : same.displayed_since(before)) item.Close(host::outlook::discard_changes);
        return ids;
    };
    EXPECT_EQ(opened_by(subject, "Ann Lee", 3), (Lines{mail, reply, renamed}));
    EXPECT_EQ(opened_by("RE: " + subject, "Ann Lee", 1), Lines{renamed});
    EXPECT_EQ(opened_by(subject, "Zoe", 1), Lines{answer});
    EXPECT_EQ(count_messages(same), 0);
}

}  // namespace
}  // namespace acceptance
