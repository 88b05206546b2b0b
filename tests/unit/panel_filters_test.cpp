// The filter texts of the panel's search: each alone, and those that whole searches send.
#include "addin/searchpanel/panel_filters.h"

#include "tests/native/native_world.h"
#include "tests/world/search_panel.h"

namespace addin_tests {
namespace {

using acceptance::Lines;
using addin::records::FilterForm;
using addin::records::key_filter;
using automation::Text;
using automation::TextView;
using host::outlook::Item;
using native::NativeWorld;

constexpr FilterForm like = FilterForm::like, phrase = FilterForm::phrase;

// "#" stands for the address of the property set
std::string written(std::string text) {
    const std::string address =
        "http://schemas.microsoft.com/mapi/string/{00020329-0000-0000-C000-000000000046}/";
    for (std::size_t at = text.find('#'); at != std::string::npos; at = text.find('#', at + address.size())) {
        text.replace(at, 1, address);
    }
    return text;
}

TEST(PanelFilters, HaveTwoForms) {
    namespace panel = addin::searchpanel;
    struct Case {
        Text built;
        const char* expected;
    };
    const Case cases[] = {
        {panel::drop_down_filter(phrase, u"IPM.Post.X"),
         R"(@SQL=("#RecordType" ci_phrasematch 'Folder Drop Down' AND "#MessageClass" ci_phrasematch 'IPM.Post.X'))"},
        {panel::drop_down_filter(like, u"IPM.Post.X"),
         R"(@SQL=("#RecordType" Like 'Folder Drop Down' AND "#MessageClass" Like 'IPM.Post.X'))"},
        {key_filter(phrase, u"ContactID", u"C-1", u"North Mill"),
         R"(@SQL=("#ContactID" ci_phrasematch 'C-1' AND "#Account%20Name" ci_phrasematch 'North Mill'))"},
        {key_filter(like, u"ContactID", u"C-1", u"North Mill"), R"(@SQL=("#ContactID" Like 'C-1'))"},
        {key_filter(phrase, u"AccountID", u"A-1", u"North Mill"),
         R"(@SQL=("#AccountID" ci_phrasematch 'A-1' AND "#Account%20Name" ci_phrasematch 'North Mill'))"},
        {key_filter(like, u"AccountID", u"A-1", u"North Mill"), R"(@SQL=("#AccountID" Like 'A-1'))"},
        {panel::definition_filter(phrase, u"Contacts"),
         R"(@SQL=("#RecordType" ci_phrasematch 'List Definition' AND "urn:schemas:httpmail:subject" ci_phrasematch 'Contacts'))"},
        {panel::definition_filter(like, u"Contacts"),
         R"(@SQL=("#RecordType" Like 'List Definition' AND "urn:schemas:httpmail:subject" Like 'Contacts'))"},
        {key_filter(phrase, u"Account LocationID", u"A-1", u"North Mill"),
         R"(@SQL=("#Account%20LocationID" ci_phrasematch 'A-1' AND "#Account%20Name" ci_phrasematch 'North Mill'))"},
        {key_filter(like, u"Account LocationID", u"A-1", u"North Mill"),
         R"(@SQL=("#Account%20LocationID" Like 'A-1'))"},
        {key_filter(phrase, u"Inquiry ID", u"I-1", u"North Mill"),
         R"(@SQL=("#Inquiry%20ID" ci_phrasematch 'I-1' AND "#Account%20Name" ci_phrasematch 'North Mill'))"},
        {key_filter(like, u"Inquiry ID", u"I-1", u"North Mill"), R"(@SQL=("#Inquiry%20ID" Like 'I-1'))"},
        {key_filter(like, u"", u"", u""), R"(@SQL=("#" Like ''))"},
        {key_filter(like, u"ContactID", u"50% 'off'", u""), R"(@SQL=("#ContactID" Like '50% 'off''))"},
    };
    for (const Case& one : cases) EXPECT_EQ(automation::to_utf8(one.built), written(one.expected));
}

/// A world with an account that has an apostrophe in its name, and a contact of it.
struct Searched {
    NativeWorld world;
    Item account, contact;

    explicit Searched(bool phrases) : world({.instant_search = phrases}) {
        if (phrases) acceptance::search_in_phrases(world);
        acceptance::install_panel(world);
        account = acceptance::add_full_account(world, u"O'Malley's");
        contact = acceptance::add_full_contact(world, u"O'Malley's");
    }

    /// The filters that a search sends, without the repeats of the walk.
    Lines filters_of(const Item& item) {
        Lines sent;
        world.boundary().before_request = [&](const std::string& member, const automation::Request& request) {
            if (member != "Items.Restrict") return;
            const std::string filter = automation::to_utf8(request.arguments.at(0).to_text());
            if (sent.empty() || sent.back() != filter) sent.push_back(filter);
        };
        world.connect().call(u"ShowItemsMenu", {automation::Value(item)});
        world.boundary().before_request = nullptr;
        return sent;
    }
};

Lines all_written(Lines texts) {
    for (std::string& text : texts) text = written(text);
    return texts;
}

TEST(PanelFilters, OfASearchInPhrasesNameKeyAndCompany) {
    Searched searched(true);
    EXPECT_EQ(
        searched.filters_of(searched.account),
        all_written(
            {R"(@SQL=("#RecordType" ci_phrasematch 'Folder Drop Down' AND "#MessageClass" ci_phrasematch 'IPM.Post.Tarnwell_2000'))",
             R"(@SQL=("#AccountID" ci_phrasematch 'A-100' AND "#Account%20Name" ci_phrasematch 'O'Malley's'))",
             R"(@SQL=("#RecordType" ci_phrasematch 'List Definition' AND "urn:schemas:httpmail:subject" ci_phrasematch 'Accounts by id'))",
             R"(@SQL=("#Account%20LocationID" ci_phrasematch 'A-100' AND "#Account%20Name" ci_phrasematch 'O''Malley''s'))",
             R"(@SQL=("#AccountID" ci_phrasematch 'A-100' AND "#Account%20Name" ci_phrasematch 'O''Malley''s'))"}));
    EXPECT_EQ(
        searched.filters_of(searched.contact),
        all_written(
            {R"(@SQL=("#RecordType" ci_phrasematch 'Folder Drop Down' AND "#MessageClass" ci_phrasematch 'IPM.Contact.Account Contact'))",
             R"(@SQL=("#ContactID" ci_phrasematch 'C-200' AND "#Account%20Name" ci_phrasematch 'O''Malley''s'))",
             R"(@SQL=("#RecordType" ci_phrasematch 'List Definition' AND "urn:schemas:httpmail:subject" ci_phrasematch 'Contacts by id'))",
             R"(@SQL=("#Account%20LocationID" ci_phrasematch 'C-200' AND "#Account%20Name" ci_phrasematch 'O'Malley's'))",
             R"(@SQL=("#ContactID" ci_phrasematch 'C-200' AND "#Account%20Name" ci_phrasematch 'O'Malley's'))"}));
}

TEST(PanelFilters, NameTheCompanyOfTheAccountThatIsFoundAndNotOfTheRecord) {
    Searched searched(true);
    acceptance::add_full_account(searched.world, u"North Mill Ltd", u"A-300");
    // one that was made before the account got its whole name
    const Item record =
        acceptance::add_record(searched.world.account_profiles(), u"IPM.Post.Tarnwell_2000", u"Old",
                               {{u"AccountID", u"A-300"}, {u"Account Name", u"North Mill"}});
    const Lines sent = searched.filters_of(record);
    ASSERT_EQ(sent.size(), 5U);
    EXPECT_TRUE(sent[1].ends_with("ci_phrasematch 'North Mill')")) << sent[1];
    EXPECT_TRUE(sent[3].ends_with("ci_phrasematch 'North Mill Ltd')")) << sent[3];
    EXPECT_TRUE(sent[4].ends_with("ci_phrasematch 'North Mill Ltd')")) << sent[4];
}

TEST(PanelFilters, OfAPlainSearchNameTheKeyAlone) {
    Searched searched(false);
    EXPECT_EQ(
        searched.filters_of(searched.account),
        all_written(
            {R"(@SQL=("#RecordType" Like 'Folder Drop Down' AND "#MessageClass" Like 'IPM.Post.Tarnwell_2000'))",
             R"(@SQL=("#AccountID" Like 'A-100'))",
             R"(@SQL=("#RecordType" Like 'List Definition' AND "urn:schemas:httpmail:subject" Like 'Accounts by id'))",
             R"(@SQL=("#Account%20LocationID" Like 'A-100'))", R"(@SQL=("#AccountID" Like 'A-100'))"}));
    for (const TextView setting : {u"", u"0", u"yes", u"11"}) {
        searched.world.option(u"EnableDesktopSearch", setting);
        for (const std::string& filter : searched.filters_of(searched.contact)) {
            EXPECT_EQ(filter.find("ci_phrasematch"), std::string::npos) << filter;
        }
    }
}

}  // namespace
}  // namespace addin_tests
