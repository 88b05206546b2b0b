// The JSON in which a mail comes to the desk.
#include <gtest/gtest.h>

#include <random>

#include "automation/object.h"
#include "desk/mail/item_json.h"
#include "desk/mail/message.h"
#include "tests/unit/support/mail_support.h"

namespace {

using namespace mail_tests;
using desk::mail::error_to_json;
using desk::mail::from_json;
using desk::mail::to_json;

std::string sentence_of(std::string_view json) {
    try {
        from_json(json);
        return {};
    } catch (const automation::Failure& failure) {
        return failure.what();
    }
}

TEST(MailJson, BringsEachSampleMailBackAsItWas) {
    for (const auto& entry : std::filesystem::directory_iterator(sample_mails())) {
        const desk::ItemData mail = desk::mail::read_message_file(entry.path());
        EXPECT_EQ(from_json(to_json(mail)), mail) << entry.path();
    }
}

TEST(MailJson, BringsEachKindOfValueBack) {
    desk::ItemData item;
    item.message_class = u"IPM.Note";
    item.fields = {{u"Text", u"\u00e4 \"quoted\" \r\n\t"},
                   {u"Yes", true},
                   {u"No", false},
                   {u"Whole", -7},
                   {u"Number", 2.0},
                   {u"Date", automation::Date{46084.385416666664}},
                   {u"Nothing", {}}};
    item.user_properties = {
        {u"Type", 1, u"Letter"}, {u"Activity Date", 5, automation::Date{2}}, {u"Team", 1, {}}};
    item.recipients = {{u"Bob", u"/o=Example/cn=bob", u"EX", u"", 3, false}};
    desk::AttachmentData file;
    file.display_name = file.file_name = u"a.bin";
    file.position = 12;
    for (int i = 0; i < 256; ++i) file.content += static_cast<char>(i);
    desk::AttachmentData embedded;
    embedded.type = 5;
    embedded.item = std::make_shared<const desk::ItemData>(item);
    item.attachments = {file, embedded};
    EXPECT_EQ(from_json(to_json(item)), item);
}

TEST(MailJson, RefusesAnItemWithAnObject) {
    desk::ItemData item;
    item.message_class = u"IPM.Note";
    item.fields[u"Odd"] = automation::Value(automation::Object());
    EXPECT_THROW(to_json(item), automation::Failure);
}

TEST(MailJson, HandsOnTheSentenceOfAnError) {
    EXPECT_EQ(sentence_of(error_to_json("The file is empty.")), "The file is empty.");
    EXPECT_EQ(sentence_of(error_to_json("Not \xFF UTF-8.")), "Not \xEF\xBF\xBD UTF-8.");
}

struct JsonCase {
    std::string json, sentence;
};
const std::string wrong = "The mail reader's answer is wrong: ";
const JsonCase json_cases[] = {
    {"", "The mail reader's answer is not JSON."},
    {"{\"item\": {\"class\": \"IPM.No", "The mail reader's answer is not JSON."},
    {"[1]", "The mail reader's answer is not an object."},
    {"{}", "The mail reader's answer holds neither an item nor an error."},
    {"{\"error\": 5}", "The mail reader's answer is an error without a sentence."},
    {"{\"item\": 5}", wrong + "an item is not an object."},
    {"{\"item\": {}}", wrong + "an item has no class."},
    {"{\"item\": {\"class\": 5}}", wrong + "\"class\" of an item is not a text."},
    {"{\"item\": {\"class\": \"x\", \"fields\": []}}", wrong + "the fields of an item are not an object."},
    {"{\"item\": {\"class\": \"x\", \"fields\": {\"a\": [1]}}}",
     wrong + "the field a has a value that is no text, number, date, true or false."},
    {"{\"item\": {\"class\": \"x\", \"fields\": {\"a\": {\"date\": \"soon\"}}}}",
     wrong + "the field a has a value that is no text, number, date, true or false."},
    {"{\"item\": {\"class\": \"x\", \"fields\": {\"a\": 5000000000}}}",
     wrong + "the field a is not a whole number of 32 bits."},
    {"{\"item\": {\"class\": \"x\", \"recipients\": {}}}",
     wrong + "\"recipients\" of an item is not a list."},
    {"{\"item\": {\"class\": \"x\", \"recipients\": [{\"kind\": \"To\"}]}}",
     wrong + "\"kind\" of a recipient is not a whole number of 32 bits."},
    {"{\"item\": {\"class\": \"x\", \"recipients\": [{\"resolved\": 1}]}}",
     wrong + "\"resolved\" of a recipient is not true or false."},
    {"{\"item\": {\"class\": \"x\", \"attachments\": [{}]}}", wrong + "an attachment has no content."},
    {"{\"item\": {\"class\": \"x\", \"attachments\": [{\"base64\": \"a\"}]}}",
     wrong + "the content of an attachment is not base64."},
    {"{\"item\": {\"class\": \"x\", \"attachments\": [{\"item\": []}]}}",
     wrong + "an item is not an object."},
};

TEST(MailJson, RefusesWhatIsNoSuchJson) {
    for (const JsonCase& each : json_cases) EXPECT_EQ(sentence_of(each.json), each.sentence) << each.json;
}

TEST(MailJson, RefusesEndlessNesting) {
    std::string json = "{\"class\": \"x\"}";
    for (int i = 0; i < 40; ++i) json = "{\"class\": \"x\", \"attachments\": [{\"item\": " + json + "}]}";
    EXPECT_EQ(sentence_of("{\"item\": " + json + "}"),
              wrong + "items are embedded in each other too deeply.");
    EXPECT_EQ(sentence_of(std::string(200000, '[')), "The mail reader's answer is not JSON.");
}

TEST(MailJson, TakesAnyDamageForAnItemOrASentence) {
    const std::string whole =
        to_json(desk::mail::read_message_file(sample_mails() / "16-forwarded-message.eml"));
    std::mt19937 random(1);
    for (int round = 0; round < 500; ++round) {
        std::string damaged = whole;
        for (int i = 0; i < 3; ++i) damaged[random() % damaged.size()] = static_cast<char>(random());
        try {
            EXPECT_FALSE(from_json(damaged).message_class.empty());
        } catch (const automation::Failure& failure) {
            EXPECT_GT(std::string(failure.what()).size(), 10U);
        }
    }
}

}  // namespace
