// What is no mail, and the sentence that says so.
#include <gtest/gtest.h>

#include "desk/mail/message.h"
#include "tests/unit/support/mail_support.h"

namespace {

using namespace mail_tests;

struct ErrorCase {
    std::string text, sentence;
};
const std::string malformed = "The field X-Desk-";
const ErrorCase error_cases[] = {
    {"", "The file is empty."},
    {"\xEF\xBB\xBF", "The file is empty."},
    {"Hello, I am a letter.\nNothing more.\n", "The file is not a mail: it does not begin with a header."},
    {"Hello", "The file is not a mail: it does not begin with a header."},
    {" \n\n", "The file is not a mail: it does not begin with a header."},
    {std::string("\x7F"
                 "ELF\0\0",
                 6),
     "The file is not a mail: its beginning is binary."},
    {"From: a@b.example\nX-Desk-Sender: EX\n\nHi\n",
     malformed + "Sender of the mail is malformed: it takes an address type and an address."},
    {"From: a@b.example\nX-Desk-Sender:\n\nHi\n",
     malformed + "Sender of the mail is malformed: it takes an address type and an address."},
    {"To: a@b.example\nX-Desk-Recipient: c@d.example EX /o=x\n\nHi\n",
     malformed + "Recipient of the mail is malformed: it takes the address of one of the mail's recipients, "
                 "an address type "
                 "and an address."},
    {"To: a@b.example\nX-Desk-Recipient: a@b.example EX\n\nHi\n",
     malformed + "Recipient of the mail is malformed: it takes the address of one of the mail's recipients, "
                 "an address type "
                 "and an address."},
    {"From: a@b.example\nX-Desk-Sensitivity: 4\n\nHi\n",
     malformed + "Sensitivity of the mail is malformed: it takes a number from 0 to 3."},
    {"From: a@b.example\nX-Desk-Sensitivity: private\n\nHi\n",
     malformed + "Sensitivity of the mail is malformed: it takes a number from 0 to 3."},
    {"From: a@b.example\nX-Desk-Class: a/b\n\nHi\n",
     malformed + "Class of the mail is malformed: it takes a message class."},
    {"From: a@b.example\nX-Desk-Colour: red\n\nHi\n",
     "The mail has the field X-Desk-Colour, which the desk does not know."},
    {"From: a@b.example\nX-Desk-Class: IPM.Note\nX-Desk-Class: IPM.Note\n\nHi\n",
     "The mail has the field X-Desk-Class twice."},
};

TEST(MailErrors, AreOneClearSentence) {
    for (const ErrorCase& each : error_cases) EXPECT_EQ(refusal(each.text), each.sentence) << each.text;
}

std::string refusal_of_file(const std::filesystem::path& file) {
    try {
        desk::mail::read_message_file(file);
        return {};
    } catch (const automation::Failure& failure) {
        return failure.what();
    }
}

TEST(MailErrors, TellOfFilesThatAreNoMails) {
    const std::filesystem::path missing =
        std::filesystem::temp_directory_path() / "tarnwell no such mail.eml";
    EXPECT_EQ(refusal_of_file(missing), "There is no file \"" + missing.string() + "\".");
    EXPECT_EQ(refusal_of_file(sample_mails()),
              "\"" + sample_mails().string() + "\" is a folder, not a mail.");
    EXPECT_EQ(refusal_of_file("/dev/null"), "\"/dev/null\" is no file.");

    const TemporaryFile empty("tarnwell empty mail.eml");
    std::ofstream(empty.path()).close();
    EXPECT_EQ(refusal_of_file(empty.path()), "The file is empty.");

    const TemporaryFile huge("tarnwell huge mail.eml");
    std::ofstream(huge.path()) << "From: a@b.example\r\n\r\n";
    std::filesystem::resize_file(huge.path(), desk::mail::largest_mail + 1);
    EXPECT_EQ(refusal_of_file(huge.path()),
              "The file \"" + huge.path().string() + "\" is larger than 50 MB, too large for a mail.");
}

TEST(MailErrors, MessagesInsideMessagesHaveALimit) {
    std::string text = "From: a@b.example\nSubject: inmost\n\nHi\n";
    for (int i = 0; i < 20; ++i) text = "From: a@b.example\nContent-Type: message/rfc822\n\n" + text;
    EXPECT_EQ(refusal(text), "");
    for (int i = 0; i < 20; ++i) text = "From: a@b.example\nContent-Type: message/rfc822\n\n" + text;
    EXPECT_EQ(refusal(text), "The mail has messages inside messages, nested too deeply.");
}

TEST(MailErrors, PartsInsidePartsHaveALimit) {
    std::string head = "From: a@b.example\n", tail;
    for (int i = 0; i < 3000; ++i) {
        const std::string boundary = "b" + std::to_string(i);
        head += "Content-Type: multipart/mixed; boundary=" + boundary + "\n\n--" + boundary + "\n";
        tail = "\n--" + boundary + "--\n" + tail;
    }
    EXPECT_EQ(refusal(head + "\nHi\n" + tail), "The parts of the mail are nested too deeply.");
}

}  // namespace
