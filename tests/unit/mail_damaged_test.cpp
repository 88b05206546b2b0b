// What a mail shows that is damaged, or written in ways in which no mail should be.
#include <gtest/gtest.h>

#include <algorithm>

#include "tests/unit/support/mail_support.h"

namespace {

using namespace mail_tests;

const std::string two_parts = "Content-Type: multipart/mixed; boundary=x\n\n--x\n\nHi\n";

struct DamagedCase {
    std::string text, subject, body;
};
const DamagedCase damaged_cases[] = {
    {"From: a@b.example\nSubject: s\n" + two_parts, "s", "Hi\r\n"},
    {"Subject: s\nContent-Type: multipart/mixed\n\nHi\n", "s", "Hi\r\n"},
    {"Subject: s\nContent-Type: multipart/mixed; boundary=y\n\n--x\n\nHi\n", "s", "--x\r\n\r\nHi\r\n"},
    {"Subject: s\nContent-Transfer-Encoding: base64\n\nSGFsbG8hISEhISE\n", "s", "Hallo!!!!!!"},
    {"Subject: s\nContent-Transfer-Encoding: base64\n\nSGFsbG8hISEhI\n", "s", "Hallo!!!!"},
    {"Subject: s\nContent-Transfer-Encoding: base64\n\nSGFsbG8=\n-- \nThe list's footer\n", "s", "Hallo"},
    {"From: a@b.example\nSubject: s", "s", ""},
    {"From: a@b.example\nSubject: s\n", "s", ""},
    {"X-Colour: red\n\nHi\n", "", "Hi\r\n"},
    {"Subject: s\nHi there\n\nHi\n", "s", "Hi there\r\n\r\nHi\r\n"},
    {"Subject: s\nHi there\nNote: it is late\n\nHi\n", "s", "Hi there\r\nNote: it is late\r\n\r\nHi\r\n"},
    {"From: a@b.example\nno field\nSubject: s\n\nHi\n", "s", "Hi\r\n"},
    {"\n\nFrom: a@b.example\nSubject: s\n\nHi\n", "s", "Hi\r\n"},
    {"  From: a@b.example\nSubject: s\n\nHi\n", "s", "Hi\r\n"},
    {"Subject: s\nContent-Type: text/plain\nContent-Type: text/html\n\n<b>Hi</b>\n", "s", "<b>Hi</b>\r\n"},
    {"Subject: s\nContent-Type: text/html\nContent-Type: text/plain\n\n<b>Hi</b>\n", "s", "Hi"},
    {"Subject: s\nContent-Type: text\n\nHi\n", "s", "Hi\r\n"},
    {std::string("Subject: s\0\n\nHi\n", 16), "s", "Hi\r\n"},
};

TEST(DamagedMails, ShowWhatCanBeRead) {
    for (const DamagedCase& each : damaged_cases) {
        SCOPED_TRACE(each.text);
        ASSERT_EQ(refusal(each.text), "");
        const desk::ItemData mail = read(each.text);
        EXPECT_EQ(field(mail, u"Subject"), each.subject);
        EXPECT_EQ(field(mail, u"Body"), each.body);
        EXPECT_TRUE(mail.attachments.empty());
    }
}

// Wherever a mail of several parts is cut off, what stands before is read.
TEST(DamagedMails, AreReadUpToThePlaceAtWhichTheyAreCutOff) {
    for (const char* name :
         {"09-mixed-alternative-png.eml", "16-forwarded-message.eml", "22-unknown-delivery-report.eml"}) {
        const std::string whole = bytes_of(sample_mails() / name);
        const std::size_t header = whole.find("\r\n\r\n");
        const desk::ItemData uncut = desk::mail::read_message(whole);
        for (std::size_t size = whole.find(':') + 1; size < whole.size(); ++size) {
            SCOPED_TRACE(std::string(name) + " cut off at " + std::to_string(size));
            desk::ItemData mail;
            ASSERT_NO_THROW(mail = desk::mail::read_message(std::string_view(whole).substr(0, size)));
            if (size < header) continue;
            ASSERT_EQ(field(mail, u"Subject"), field(uncut, u"Subject"));
            ASSERT_LE(mail.attachments.size(), uncut.attachments.size());
        }
    }
}

struct PeopleCase {
    std::string written, people;
};
const PeopleCase people_cases[] = {
    {"Ann Lee ann@one.example", "Ann Lee <ann@one.example>"},
    {"\"Lee, Ann\" ann@one.example, bob@one.example",
     "Lee, Ann <ann@one.example>, bob@one.example <bob@one.example>"},
    {"Ann\n Lee ann@one.example", "Ann Lee <ann@one.example>"},
    {"=?utf-8?Q?J=C3=BCrgen?= j@one.example", "Jürgen <j@one.example>"},
    {"ann@one.example bob@two.example",
     "ann@one.example <ann@one.example>, bob@two.example <bob@two.example>"},
    {"Ann Lee", "Ann Lee <>"},
    {"Bob <bob@one.example>, Ann Lee, dora@one.example",
     "Bob <bob@one.example>, Ann Lee <>, dora@one.example <dora@one.example>"},
    {"ann@one.example (Ann Lee)", "Ann Lee <ann@one.example>"},
    {"Team: ann@one.example, Bob <bob@one.example>;",
     "ann@one.example <ann@one.example>, Bob <bob@one.example>"},
    {"J\xC3\xBCrgen =?utf-8?Q?=C3=9C?= <j@one.example>", "Jürgen Ü <j@one.example>"},
    {"=?iso-8859-1?Q?G\xFCnter?= <g@one.example>", "Günter <g@one.example>"},
    {"=?iso-8859-1?Q?G\xFCnter?= J\xFCrgen <g@one.example>", "Günter Jürgen <g@one.example>"},
};

TEST(DamagedMails, TellNamesFromAddresses) {
    for (const PeopleCase& each : people_cases) {
        const desk::ItemData mail = read("To: " + each.written + "\n\nHi\n");
        std::string people;
        for (const desk::Person& person : mail.recipients) {
            people += (people.empty() ? "" : ", ") + automation::to_utf8(person.name) + " <" +
                      automation::to_utf8(person.smtp_address) + ">";
        }
        EXPECT_EQ(people, each.people) << each.written;
    }
}

const DamagedCase letter_cases[] = {
    {"=?utf-8?Q?Gr=C3=BC=C3=9Fe?= an J\xC3\xBCrgen", "Grüße an Jürgen", ""},
    {"=?iso-8859-1?Q?G\xFCnter?= J\xFCrgen =?utf-8?Q?=C3=BC?=", "Günter Jürgen ü", ""},
    {"=?utf-8?Q?G\xC3\xBCnter_=C3=BC?=", "Günter ü", ""},
    {"=?iso-8859-1?Q?=3D=3Futf-8=3FQ=3FA=3F=3D?=", "=?utf-8?Q?A?=", ""},
};

TEST(DamagedMails, HaveTheirBareLettersDecodedOnce) {
    for (const DamagedCase& each : letter_cases) {
        EXPECT_EQ(field(read("From: a@b.example\nSubject: " + each.text + "\n\nHi\n"), u"Subject"),
                  each.subject);
    }
}

TEST(DamagedMails, MayBeFromTheTimeBefore1970) {
    EXPECT_EQ(field(read("From: a@b.example\nDate: Mon, 14 Jul 1969 10:00:00 +0000\n\nHi\n"), u"SentOn")
                  .substr(0, 10),
              "1969-07-14");
}

TEST(DamagedMails, KeepTheBytesOfUuencodedFilesWhoseBlanksWereStripped) {
    // a line of three bytes and one of six zeros, of which each is a blank
    const desk::ItemData mail = read(
        "From: a@b.example\nContent-Type: application/octet-stream; name=a.bin\n"
        "Content-Transfer-Encoding: x-uuencode\n\nbegin 644 a.bin\n#86)C\n&\n#86)C\n`\nend\n");
    ASSERT_EQ(mail.attachments.size(), 1U);
    EXPECT_EQ(mail.attachments[0].content, std::string("abc\0\0\0\0\0\0abc", 12));
}

// The line end before a boundary is the boundary's, whichever of both forms it and its line have.
TEST(DamagedMails, KeepTheBytesOfFilesBetweenUnevenLineEnds) {
    for (const std::string content : {"a\r\nb", "a\nb", "a\nb\n", "a\r\nb\r\n", "", "a"}) {
        for (const char* before : {"\n", "\r\n"}) {
            for (const char* behind : {"\n", "\r\n", ""}) {
                const desk::ItemData mail = desk::mail::read_message(
                    "From: a@b.example\r\nContent-Type: multipart/mixed; boundary=x\r\n\r\n--x\r\n"
                    "Content-Type: text/plain; name=a.txt\r\nContent-Transfer-Encoding: 7bit\r\n\r\n" +
                    content + before + "--x--" + behind);
                ASSERT_EQ(mail.attachments.size(), 1U);
                EXPECT_EQ(mail.attachments[0].content, content);
            }
        }
    }
}

}  // namespace
