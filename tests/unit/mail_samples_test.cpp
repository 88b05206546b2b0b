// The sample mails, as twenty-five mailers wrote them.
#include <gtest/gtest.h>

#include <algorithm>
#include <set>

#include "tests/unit/support/mail_support.h"

namespace {

using namespace mail_tests;

struct SampleCase {
    std::string file;
    std::string subject;
    std::string sender;      ///< name <type address>
    std::string recipients;  ///< kind name <address>, ...
    std::string
        attachments;  ///< name and size, or what is embedded in brackets, and the position if it has one
};
const std::vector<SampleCase> sample_cases = {
    {"01-outlook-express-apostrophe.eml", "Loaves per hour, line 3",
     "Siobhán O'Brien <SMTP siobhan.o'brien@omalleys.example>", "1 Tom Prior <tom.prior@haldenmarsh.example>",
     ""},
    {"02-utf8-flowed-b-subject.eml", "Provkörning av etikettmaskinen – förslag på datum",
     "Jonas Lindqvist <SMTP jonas@lindqvist-knacke.example>", "1 Tom Prior <tom.prior@haldenmarsh.example>",
     ""},
    {"03-mixed-pdf-third-address.eml", "Purchase order HV-20317",
     "Rachel Tannenbaum <SMTP rachel.tannenbaum@imports.example>",
     "1 Tom Prior <tom.prior@haldenmarsh.example>", "HV-20317.pdf 598 @85"},
    {"04-webmail-search-string.eml", "Probeflaschen für die Verkostung",
     "Helga Brandt <SMTP helga.brandt@postfach.example>",
     "1 tom.prior@haldenmarsh.example <tom.prior@haldenmarsh.example>", ""},
    {"05-exchange-sender.eml", "Depot survey on the 19th",
     "Tulloch, Graham <EX /o=Example/ou=Northgate/cn=Recipients/cn=gtulloch>",
     "1 Tom Prior <tom.prior@haldenmarsh.example>, 2 Fenwick, Moira "
     "<moira.fenwick@northgate-logistics.example>",
     ""},
    {"06-reply-with-copies.eml", "Re: RE: Loaves per hour, line 3",
     "Patrick O'Malley <SMTP patrick.o'malley@omalleys.example>",
     "1 Tom Prior <tom.prior@haldenmarsh.example>, 1 Halden, Ingrid <ingrid.halden@haldenmarsh.example>, 1 "
     "service@haldenmarsh.example <service@haldenmarsh.example>, 2 Siobhán O'Brien "
     "<siobhan.o'brien@omalleys.example>, 2 bills@omalleys.example <bills@omalleys.example>, 2 Nuala Keane "
     "<nuala@omalleys.example>",
     ""},
    {"07-latin2-quoted-printable.eml", "Etikety na ležák – změna",
     "Jiří Dvořák <SMTP jiri.dvorak@dvorak-pivovar.example>", "1 Tom Prior <tom.prior@haldenmarsh.example>",
     ""},
    {"08-koi8-base64.eml", "Этикетки для паприки",
     "Ольга Петренко <SMTP olga.petrenko@meridianspice.example>",
     "1 Tom Prior <tom.prior@haldenmarsh.example>", ""},
    {"09-mixed-alternative-png.eml", "Étiquette abîmée (photo)",
     "François Lemaître <SMTP francois.lemaitre@cafelumiere.example>",
     "1 Tom Prior <tom.prior@haldenmarsh.example>", "etiquette.png 4276"},
    {"10-raw-8-bit-header.eml", "Smør i 250 g: nye mål", "Søren Dalgaard <SMTP soren@dalgaard.example>",
     "1 Tom Prior <tom.prior@haldenmarsh.example>", ""},
    {"11-related-inline-image.eml", "Checkweigher handover: open points",
     "Hannah Weatherby <SMTP hannah.weatherby@bellweather.example>",
     "1 Tom Prior <tom.prior@haldenmarsh.example>", "rejects.png 4276 @53"},
    {"12-long-headers-spreadsheet.eml",
     "Antwort: Preisliste Frühjahr 2026 für Rollen und Farbbänder, mit der Bitte um Bestätigung bis "
     "Monatsende",
     "Uwe Baumann <SMTP u.baumann@baumann-feinkost.example>",
     "1 Tom Prior <tom.prior@haldenmarsh.example>, 2 einkauf@baumann-feinkost.example "
     "<einkauf@baumann-feinkost.example>",
     "Mengen Frühjahr 2026 – Rollen und Bänder.xlsx 543"},
    {"13-unknown-encoded-file-name.eml", "Zamówienie 118/2026 – prośba o potwierdzenie",
     "Sklep Łączka <SMTP biuro@sklep-etykiet.example>",
     "1 Przedstawiciel handlowy <tom.prior@haldenmarsh.example>", "zamówienie.txt 61"},
    {"14-shared-address.eml", "Langoustine boxes", "Kestrel Bay office <SMTP office@kestrelbay.example>",
     "1 tom.prior@haldenmarsh.example <tom.prior@haldenmarsh.example>", ""},
    {"15-exchange-recipients.eml", "FW: Pallet labelling station: three quotations to compare",
     "Fenwick, Moira <EX /o=Example/ou=Northgate/cn=Recipients/cn=mfenwick>",
     "1 Prior, Tom </o=Example/ou=Halden/cn=Recipients/cn=tprior>, 1 Sara Whitcombe "
     "</o=Example/ou=Halden/cn=Recipients/cn=swhitcombe>, 2 depot@northgate-logistics.example "
     "<depot@northgate-logistics.example>, 3 Tulloch, Graham <graham.tulloch@northgate-logistics.example>",
     ""},
    {"16-forwarded-message.eml", "Fwd: New label format from April",
     "Deborah Whitaker <SMTP deborah@whitakerpet.example>", "1 Tom Prior <tom.prior@haldenmarsh.example>",
     "New label format from April – action needed [format.txt 30]"},
    {"17-private.eml", "Una pregunta personal", "Lucía Núñez <SMTP lucia.nunez@iberiaconservas.example>",
     "1 Tom Prior <tom.prior@haldenmarsh.example>", ""},
    {"18-unknown-newsletter.eml", "Hall plan is out ✓ 312 exhibitors",
     "Packaging Fair News <SMTP news@fairnews.example>",
     "1 tom.prior@haldenmarsh.example <tom.prior@haldenmarsh.example>", ""},
    {"19-without-to-line.eml", "Holiday closing of the packing hall",
     "Anil Deshpande <SMTP anil.deshpande@stonebridge.example>", "", ""},
    {"20-other-class.eml", "Order form 2026-77", "Patrick O'Malley <SMTP pat@omalleys.example>",
     "1 Tom Prior <tom.prior@haldenmarsh.example>", ""},
    {"21-unknown-private-mark.eml", "A position that may interest you",
     "Vera Lund, Talent Bridge <SMTP vera.lund@talentbridge.example>",
     "1 Tom Prior <tom.prior@haldenmarsh.example>", ""},
    {"22-unknown-delivery-report.eml", "Undelivered Mail Returned to Sender",
     "Mail Delivery System <SMTP MAILER-DAEMON@mx1.haldenmarsh.example>",
     "1 tom.prior@haldenmarsh.example <tom.prior@haldenmarsh.example>",
     "ATT00001.txt 181, Egg tray labels []"},
    {"23-unknown-winmail.eml", "Second-hand sealer", "Dora Oldham <SMTP dora.oldham@oldmill.example>",
     "1 'Tom Prior' <tom.prior@haldenmarsh.example>", "winmail.dat 68"},
    {"24-contact-without-account.eml",
     "Artwork for the anniversary labels: second draft, with the gold edge, without the ribbon, and in the "
     "two sizes that we spoke about on the telephone last Thursday",
     "Piers Hallam <SMTP piers@hallam-design.example>",
     "1 tom.prior@haldenmarsh.example <tom.prior@haldenmarsh.example>, 1 Tom Prior "
     "<tom.prior@haldenmarsh.example>",
     "label small.png 990, label large.png 4276, ATT00003.pdf 593"},
    {"25-lead-text-attachment.eml", "Honiggläser: Mengen",
     "Katrin Schäfer <SMTP katrin@schaefer-imkerei.example>",
     "1 Tom Prior <tom.prior@haldenmarsh.example>, 2 Jürgen Schäfer <juergen@schaefer-imkerei.example>",
     "mengen.csv 69"},
};

std::string described_sender(const desk::ItemData& mail) {
    return field(mail, u"SenderName") + " <" + field(mail, u"SenderEmailType") + " " +
           field(mail, u"SenderEmailAddress") + ">";
}

void append(std::string& list, const std::string& entry) { list += (list.empty() ? "" : ", ") + entry; }

std::string described_recipients(const desk::ItemData& mail) {
    std::string list;
    for (const desk::Person& person : mail.recipients) {
        append(list, std::to_string(person.kind) + " " + automation::to_utf8(person.name) + " <" +
                         automation::to_utf8(person.address) + ">");
    }
    return list;
}

std::string described_attachments(const desk::ItemData& mail) {
    std::string list;
    for (const desk::AttachmentData& attachment : mail.attachments) {
        std::string entry = automation::to_utf8(attachment.display_name) + " ";
        entry += attachment.item ? "[" + described_attachments(*attachment.item) + "]"
                                 : std::to_string(attachment.content.size());
        if (attachment.position) entry += " @" + std::to_string(attachment.position);
        append(list, entry);
    }
    return list;
}

TEST(SampleMails, AreReadWithSubjectPeopleAndAttachments) {
    for (const SampleCase& expected : sample_cases) {
        SCOPED_TRACE(expected.file);
        const desk::ItemData mail = desk::mail::read_message_file(sample_mails() / expected.file);
        EXPECT_EQ(field(mail, u"Subject"), expected.subject);
        EXPECT_EQ(described_sender(mail), expected.sender);
        EXPECT_EQ(described_recipients(mail), expected.recipients);
        EXPECT_EQ(described_attachments(mail), expected.attachments);
    }
}

TEST(SampleMails, AreAllInTheTable) {
    std::set<std::string> files, named;
    for (const auto& entry : std::filesystem::directory_iterator(sample_mails())) {
        files.insert(entry.path().filename().string());
    }
    for (const SampleCase& each : sample_cases) named.insert(each.file);
    EXPECT_EQ(files, named);
    EXPECT_EQ(files.size(), 25U);
}

TEST(SampleMails, HaveBodiesWhoseLinesEndInCrLf) {
    for (const SampleCase& each : sample_cases) {
        SCOPED_TRACE(each.file);
        const std::string body = field(desk::mail::read_message_file(sample_mails() / each.file), u"Body");
        EXPECT_GT(body.size(), 20U);
        EXPECT_EQ(std::ranges::count(body, '\n'), std::ranges::count(body, '\r'));
        EXPECT_EQ(body.find("\xEF\xBF\xBD"), std::string::npos) << "a letter was lost";
    }
}

struct Detail {
    std::string file;
    automation::TextView field;
    std::string value;
};
const std::vector<Detail> details = {
    {"02-utf8-flowed-b-subject.eml", u"To", "Tom Prior"},
    {"05-exchange-sender.eml", u"SenderSmtpAddress", "graham.tulloch@northgate-logistics.example"},
    {"05-exchange-sender.eml", u"CC", "Fenwick, Moira"},
    {"06-reply-with-copies.eml", u"To", "Tom Prior; Halden, Ingrid; service@haldenmarsh.example"},
    {"06-reply-with-copies.eml", u"CC", "Siobhán O'Brien; bills@omalleys.example; Nuala Keane"},
    {"06-reply-with-copies.eml", u"ConversationTopic", "Loaves per hour, line 3"},
    {"06-reply-with-copies.eml", u"ReplyRecipientNames", "O'Malley's Bakehouse"},
    {"06-reply-with-copies.eml", u"InternetMessageId", "<20260303110231.GA2114@omalleys.example>"},
    {"08-koi8-base64.eml", u"Importance", "2"},
    {"08-koi8-base64.eml", u"Body",
     "Здравствуйте, Том!\r\n\r\nПрошу прислать цену на 40 000 этикеток для молотой паприки "
     "(русский и английский текст).\r\n\r\nС уважением,\r\nОльга Петренко\r\n"},
    {"10-raw-8-bit-header.eml", u"Body",
     "Kære Tom,\r\n\r\nlåget er nu 74 x 98 mm. Etiketten må gerne være 2 mm mindre.\r\n\r\nHilsen Søren\r\n"},
    {"13-unknown-encoded-file-name.eml", u"UnRead", "True"},
    {"15-exchange-recipients.eml", u"BCC", "Tulloch, Graham"},
    {"15-exchange-recipients.eml", u"Importance", "2"},
    {"15-exchange-recipients.eml", u"Body",
     "Quotations\r\n\r\nBoth,\r\n\r\nyours is the second cheapest. Can you do better on the scanner?\r\n\r\n"
     "Supplier\tPrice\r\nA\t€ 21.900\r\nHalden & Marsh\t€ 22.400\r\n* delivery in May\r\n* training "
     "included\r\n\r\n"
     "Moira\r\nSee the gate plan <http://www.northgate-logistics.example/gates>"},
    {"17-private.eml", u"Sensitivity", "2"},
    {"19-without-to-line.eml", u"To", ""},
    {"20-other-class.eml", u"Sensitivity", "0"},
    {"21-unknown-private-mark.eml", u"Sensitivity", "2"},
    {"21-unknown-private-mark.eml", u"Importance", "0"},
    {"21-unknown-private-mark.eml", u"Sent", "True"},
    {"23-unknown-winmail.eml", u"Body",
     "Do you still buy used sealers? Ours is “as good as new” – asking price £ 900.\r\n\r\nDora Oldham\r\n"},
};

TEST(SampleMails, HaveTheFieldsOfAnItem) {
    for (const Detail& detail : details) {
        SCOPED_TRACE(detail.file + " " + automation::to_utf8(detail.field));
        EXPECT_EQ(field(desk::mail::read_message_file(sample_mails() / detail.file), detail.field),
                  detail.value);
    }
}

TEST(SampleMails, AreMailsButTheDeliveryReportAndTheOneThatSaysOtherwise) {
    for (const SampleCase& each : sample_cases) {
        automation::TextView expected = u"IPM.Note";
        if (each.file.starts_with("20-")) expected = u"IPM.Note.Other";
        if (each.file.starts_with("22-")) expected = u"REPORT.IPM.Note.NDR";
        const desk::ItemData mail = desk::mail::read_message_file(sample_mails() / each.file);
        EXPECT_EQ(mail.message_class, expected) << each.file;
    }
}

TEST(SampleMails, KeepTheBytesOfAttachments) {
    const desk::ItemData mail = desk::mail::read_message_file(sample_mails() / "25-lead-text-attachment.eml");
    ASSERT_EQ(mail.attachments.size(), 1U);
    EXPECT_EQ(mail.attachments[0].content,
              "Artikel;Menge\r\nHonigglas 250 g;4000\r\nHonigglas 500 g;2500\r\nGeb\xFChr;1\r\n");
    const desk::ItemData photo =
        desk::mail::read_message_file(sample_mails() / "09-mixed-alternative-png.eml");
    ASSERT_EQ(photo.attachments.size(), 1U);
    EXPECT_TRUE(photo.attachments[0].content.starts_with("\x89PNG\r\n\x1A\n"));
}

TEST(SampleMails, EmbedAForwardedMessageWhole) {
    const desk::ItemData mail = desk::mail::read_message_file(sample_mails() / "16-forwarded-message.eml");
    ASSERT_EQ(mail.attachments.size(), 1U);
    EXPECT_EQ(mail.attachments[0].type, 5);
    ASSERT_TRUE(mail.attachments[0].item);
    const desk::ItemData& inner = *mail.attachments[0].item;
    EXPECT_EQ(inner.message_class, u"IPM.Note");
    EXPECT_EQ(field(inner, u"SenderName"), "Pallet Pool");
    EXPECT_EQ(field(inner, u"Body"), "From April on, pallets without the new label are sent back.\r\n");
    ASSERT_EQ(inner.attachments.size(), 1U);
    EXPECT_EQ(inner.attachments[0].content, "A5, two bar codes, SSCC below.");
}

}  // namespace
