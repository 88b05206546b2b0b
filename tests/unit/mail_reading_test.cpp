// How a message of the Internet becomes an item: times, people, bodies, and the desk's own fields.
#include <gtest/gtest.h>

#include <cstdlib>
#include <ctime>

#include "tests/unit/support/mail_support.h"

namespace {

using namespace mail_tests;

/// Sets the machine's time zone for a while.
class TimeZone {
  public:
    explicit TimeZone(const char* zone) {
        const char* before = std::getenv("TZ");
        if (before) before_ = before;
        had_ = before != nullptr;
        setenv("TZ", zone, 1);
        tzset();
    }
    TimeZone(const TimeZone&) = delete;
    TimeZone& operator=(const TimeZone&) = delete;
    ~TimeZone() {
        if (had_) {
            setenv("TZ", before_.c_str(), 1);
        } else {
            unsetenv("TZ");
        }
        tzset();
    }

  private:
    std::string before_;
    bool had_ = false;
};

constexpr std::string_view traced =
    "Received: from b.example by c.example; Tue, 03 Mar 2026 09:20:30 +0100\n"
    "Received: from a.example by b.example; Tue, 03 Mar 2026 09:16:00 +0100\n"
    "From: Ann <ann@one.example>\n"
    "Date: Tue, 03 Mar 2026 09:15:00 +0100\n"
    "\n"
    "Hi\n";

TEST(MailReading, GivesTimesOnTheClockOfTheMachine) {
    {
        const TimeZone zone("UTC0");
        const desk::ItemData mail = read(traced);
        EXPECT_EQ(field(mail, u"SentOn"), "2026-03-03 08:15:00");
        EXPECT_EQ(field(mail, u"ReceivedTime"), "2026-03-03 08:20:30");
    }
    const TimeZone zone("EST5");
    EXPECT_EQ(field(read(traced), u"SentOn"), "2026-03-03 03:15:00");
}

TEST(MailReading, TakesTheDateForTheTimeOfArrivalIfNothingElseTells) {
    const TimeZone zone("UTC0");
    const desk::ItemData mail = read("From: a@b.example\nDate: 3 Mar 2026 09:15 +0000\n\nHi\n");
    EXPECT_EQ(field(mail, u"ReceivedTime"), "2026-03-03 09:15:00");
    EXPECT_EQ(field(read("From: a@b.example\nDate: soon\n\nHi\n"), u"SentOn"), "(none)");
}

TEST(MailReading, LeavesTheSenderEmptyWithoutFrom) {
    const desk::ItemData mail = read("To: bob@one.example\nSubject: x\n\nHi\n");
    for (const automation::TextView name :
         {u"SenderName", u"SenderEmailAddress", u"SenderEmailType", u"SenderSmtpAddress"}) {
        EXPECT_EQ(field(mail, name), "") << automation::to_utf8(name);
    }
    EXPECT_EQ(field(mail, u"To"), "bob@one.example");
}

TEST(MailReading, PassesOverWhatMailboxesAndEditorsPutInFront) {
    EXPECT_EQ(field(read("From ann@one.example Tue Mar  3 09:15:00 2026\nSubject: x\n\nHi\n"), u"Subject"),
              "x");
    EXPECT_EQ(field(read("\xEF\xBB\xBFSubject: x\n\nHi\n"), u"Subject"), "x");
}

TEST(MailReading, FlattensGroupsAndSeveralLines) {
    const desk::ItemData mail = read(
        "To: Team: ann@one.example, Bob <bob@one.example>;, carl@one.example\nTo: dora@one.example\n"
        "Cc: undisclosed-recipients:;\n\nHi\n");
    EXPECT_EQ(field(mail, u"To"), "ann@one.example; Bob; carl@one.example; dora@one.example");
    EXPECT_EQ(mail.recipients.size(), 4U);
    EXPECT_EQ(field(mail, u"CC"), "");
}

struct SubjectCase {
    std::string written, subject, topic;
};
const SubjectCase subject_cases[] = {
    {"plain", "plain", "plain"},
    {"RE: Fw: twice", "RE: Fw: twice", "twice"},
    {"Note: stays", "Note: stays", "Note: stays"},
    {"folded\n into two", "folded into two", "folded into two"},
    {"=?utf-8?B?w6Q=?= =?utf-8?B?w7Y=?= =?utf-8?Q?=C3=BC?=", "äöü", "äöü"},
    {"=?iso-8859-1?Q?=80_5?=", "€ 5", "€ 5"},
    {"=?windows-1252?Q?=93a=94?= b", "“a” b", "“a” b"},
    {"\xE4 without a charset", "ä without a charset", "ä without a charset"},
    {"=?utf-8?B?broken", "=?utf-8?B?broken", "=?utf-8?B?broken"},
};

TEST(MailReading, DecodesSubjects) {
    for (const SubjectCase& each : subject_cases) {
        const desk::ItemData mail = read("From: a@b.example\nSubject: " + each.written + "\n\nHi\n");
        EXPECT_EQ(field(mail, u"Subject"), each.subject);
        EXPECT_EQ(field(mail, u"ConversationTopic"), each.topic);
    }
}

TEST(MailReading, UsesTheCharsetOfTheTextForBareLettersOfTheHeader) {
    const desk::ItemData mail = read(
        "From: a@b.example\nSubject: \xF0\xD2\xC9\xD7\xC5\xD4\nContent-Type: text/plain; "
        "charset=koi8-r\n\nHi\n");
    EXPECT_EQ(field(mail, u"Subject"), "Привет");
}

struct GradeCase {
    std::string header, importance, sensitivity;
};
const GradeCase grade_cases[] = {
    {"Importance: High", "2", "0"},
    {"Importance: low", "0", "0"},
    {"X-Priority: 1 (Highest)", "2", "0"},
    {"X-Priority: 5", "0", "0"},
    {"Priority: urgent", "2", "0"},
    {"Importance: low\nX-Priority: 1", "0", "0"},
    {"Sensitivity: Personal", "1", "1"},
    {"Sensitivity: private", "1", "2"},
    {"Sensitivity: Company-Confidential", "1", "3"},
};

TEST(MailReading, ReadsImportanceAndSensitivity) {
    for (const GradeCase& each : grade_cases) {
        const desk::ItemData mail = read("From: a@b.example\n" + each.header + "\n\nHi\n");
        EXPECT_EQ(field(mail, u"Importance"), each.importance) << each.header;
        EXPECT_EQ(field(mail, u"Sensitivity"), each.sensitivity) << each.header;
    }
}

TEST(MailReading, MakesReadableTextOfAMailThatIsOnlyHtml) {
    const desk::ItemData mail =
        read("From: a@b.example\nContent-Type: text/html\n\n<p>Hello&nbsp;<b>you</b></p>\n");
    EXPECT_EQ(field(mail, u"Body"), "Hello you");
    EXPECT_EQ(field(mail, u"HTMLBody"), "<p>Hello&nbsp;<b>you</b></p>\r\n");
}

TEST(MailReading, KeepsTheHeaderAsItCame) {
    const desk::ItemData mail =
        read("From: a@b.example\nX-Odd:   =?utf-8?B?w6Q=?= =?utf-8?B?w7Y=?=\n folded\n\nHi\n");
    EXPECT_EQ(field(mail, u"InternetHeaders"),
              "From: a@b.example\r\nX-Odd:   =?utf-8?B?w6Q=?= =?utf-8?B?w7Y=?=\r\n folded\r\n");
}

std::string with_attachment(const std::string& header) {
    return "From: a@b.example\nContent-Type: multipart/mixed; boundary=x\n\n--x\nContent-Type: "
           "text/plain\n\nHi\n--x\n" +
           header + "\n\ndata\n--x--\n";
}

struct NameCase {
    std::string header, file_name;
};
const NameCase name_cases[] = {
    {"Content-Type: text/plain; name=a.txt", "a.txt"},
    {"Content-Disposition: attachment; filename=\"..\\\\..\\\\b.exe\"", "b.exe"},
    {"Content-Disposition: attachment; filename=\"/etc/c\"", "c"},
    {"Content-Disposition: attachment; filename=\"what?.txt\"", "what_.txt"},
    {"Content-Disposition: attachment; filename*=utf-8''%C3%A4.txt", "ä.txt"},
    {"Content-Disposition: attachment; filename=\"=?utf-8?Q?=C3=A4.txt?=\"", "ä.txt"},
    {"Content-Disposition: attachment", "ATT00001.txt"},
    {"Content-Type: image/png", "ATT00001.png"},
    {"Content-Type: application/x-odd", "ATT00001.dat"},
};

TEST(MailReading, NamesAttachmentsAsFilesAreNamed) {
    for (const NameCase& each : name_cases) {
        const desk::ItemData mail = read(with_attachment(each.header));
        ASSERT_EQ(mail.attachments.size(), 1U) << each.header;
        EXPECT_EQ(automation::to_utf8(mail.attachments[0].file_name), each.file_name);
        EXPECT_EQ(mail.attachments[0].content, "data");
        EXPECT_EQ(field(mail, u"Body"), "Hi");
    }
}

std::string report_of(const std::string& type, const std::string& words) {
    return "Content-Type: multipart/report; boundary=x\n\n--x\n\nHi\n--x\nContent-Type: message/" + type +
           "\n\nReporting-UA: x\n\n" + words + "\n--x--\n";
}

struct MailClassCase {
    std::string mail;
    automation::TextView message_class;
};
const MailClassCase mail_class_cases[] = {
    {"Content-Type: text/plain\n\nHi\n", u"IPM.Note"},
    {"\nHi\n", u"IPM.Note"},
    {report_of("delivery-status", "Action: failed"), u"REPORT.IPM.Note.NDR"},
    {report_of("delivery-status", "action: Delivered"), u"REPORT.IPM.Note.DR"},
    {report_of("delivery-status", "Action: relayed"), u"REPORT.IPM.Note.DR"},
    {report_of("delivery-status", "Action: delayed"), u"IPM.Note"},
    {report_of("disposition-notification", "Disposition: manual-action/MDN-sent-manually; displayed"),
     u"REPORT.IPM.Note.IPNRN"},
    {report_of("disposition-notification", "Disposition: manual-action/MDN-sent-manually; deleted"),
     u"REPORT.IPM.Note.IPNNRN"},
    {"Content-Type: multipart/signed; protocol=\"application/pkcs7-signature\"; boundary=x\n\n--x\n\nHi\n"
     "--x\nContent-Type: application/pkcs7-signature\n\ns\n--x--\n",
     u"IPM.Note.SMIME.MultipartSigned"},
    {"Content-Type: application/pkcs7-mime; smime-type=enveloped-data; name=smime.p7m\n\ne\n",
     u"IPM.Note.SMIME"},
    {"Content-Type: application/x-pkcs7-mime; name=smime.p7m\n\ne\n", u"IPM.Note.SMIME"},
    {"Content-Type: multipart/alternative; boundary=x\n\n--x\n\nHi\n--x\nContent-Type: text/calendar; "
     "method=request\n\nc\n--x--\n",
     u"IPM.Schedule.Meeting.Request"},
    {"Content-Type: text/calendar; method=CANCEL\n\nc\n", u"IPM.Schedule.Meeting.Canceled"},
    {"Content-Type: text/calendar\n\nc\n", u"IPM.Note"},
    // a calendar that is attached is a file
    {"Content-Type: multipart/mixed; boundary=x\n\n--x\n\nHi\n--x\nContent-Type: text/calendar; "
     "method=REQUEST\n\nc\n--x--\n",
     u"IPM.Note"},
};

TEST(MailReading, TellsReportsSignedMailsAndMeetingsFromMails) {
    for (const MailClassCase& each : mail_class_cases) {
        EXPECT_EQ(read("From: a@b.example\n" + each.mail).message_class, each.message_class) << each.mail;
    }
}

struct DeskCase {
    std::string header, type, address;
};
const DeskCase sender_cases[] = {
    {"X-Desk-Sender: EX /o=Example/cn=ann", "EX", "/o=Example/cn=ann"},
    {"x-desk-sender: EX /o=Example Ltd/cn=ann lee", "EX", "/o=Example Ltd/cn=ann lee"},
    {"X-Desk-Sender: SMTP -", "SMTP", ""},
    {"X-Desk-Sender: - -", "", ""},
};

TEST(DeskFields, ReplaceTheNativeAddressOfTheSender) {
    for (const DeskCase& each : sender_cases) {
        const desk::ItemData mail = read(each.header + "\nFrom: Ann <ann@one.example>\n\nHi\n");
        EXPECT_EQ(field(mail, u"SenderEmailType"), each.type) << each.header;
        EXPECT_EQ(field(mail, u"SenderEmailAddress"), each.address) << each.header;
        EXPECT_EQ(field(mail, u"SenderSmtpAddress"), "ann@one.example");
        EXPECT_EQ(field(mail, u"SenderName"), "Ann");
    }
}

TEST(DeskFields, ReplaceTheNativeAddressOfARecipient) {
    const desk::ItemData mail = read(
        "To: bob@one.example, carl@one.example\nCc: Bob <BOB@one.example>\n"
        "X-Desk-Recipient: bob@one.example EX /o=Example/cn=bob\n\nHi\n");
    ASSERT_EQ(mail.recipients.size(), 3U);
    EXPECT_EQ(mail.recipients[0].address, u"/o=Example/cn=bob");
    EXPECT_EQ(mail.recipients[0].address_type, u"EX");
    EXPECT_EQ(mail.recipients[0].smtp_address, u"bob@one.example");
    EXPECT_EQ(mail.recipients[1].address, u"carl@one.example");
    EXPECT_EQ(mail.recipients[2].address, u"/o=Example/cn=bob");
}

TEST(DeskFields, SetSensitivityAndClass) {
    const desk::ItemData mail =
        read("From: a@b.example\nX-Desk-Sensitivity: 3\nX-Desk-Class: REPORT.IPM.Note.NDR\n\nHi\n");
    EXPECT_EQ(field(mail, u"Sensitivity"), "3");
    EXPECT_EQ(mail.message_class, u"REPORT.IPM.Note.NDR");
}

}  // namespace
