// Mails of any bytes: an item whose JSON brings it back, or one sentence that says what is wrong.
#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "desk/mail/message.h"
#include "desk/tools/mail/mail_reader.h"
#include "fuzz/hostile_mails.h"
#include "fuzz/targets.h"

namespace {

/// Pieces on which readers of mails stumble, each at home in a small mail.
constexpr const char* stumbling_blocks[] = {
    "From: =?utf-8?B?w6Q=?= =?utf-8?B?w7Y=?= =?x?Q?=FF?= <a@b.example>\nSubject: =?utf-8?B?=?=\n\nHi\n",
    "To: Group: a@b.example, \"x\\\" <c@d.example>;, (comment (nested)) e@f.example, <>\n\nHi\n",
    "From: a@b.example\nDate: Tue, 99 Foo 99999 99:99:99 +9999\nReceived: x; 1 Jan 0000 00:00\n\nHi\n",
    "From: a@b.example\nContent-Type: text/plain; charset=utf-16\n\n\xFF\xFE\x00\xD8\n",
    "From: a@b.example\nContent-Type: text/plain; charset=utf-7\n\n+AOQ-+\n",
    "From: a@b.example\nContent-Type: text/html; charset=iso-2022-jp\n\n<a "
    "href='http://x'>&#x1F600;<!--<pre>\x1B$B$\"\n",
    "From: a@b.example\nContent-Type: message/rfc822\n\nFrom: c@d.example\nX-Desk-Class: IPM.Note\n\nHi\n",
    "From: a@b.example\nContent-Type: multipart/alternative; boundary=x\n\n--x\nContent-Type: "
    "multipart/related; boundary=y\n\n"
    "--y\nContent-ID: <i>\nContent-Type: image/png; name*0*=utf-8''%C3; name*1*=%A4\n\nx\n--y--\n--x--\n",
    "From: a@b.example\nContent-Transfer-Encoding: x-uuencode\n\nbegin 644 a\n#0V%T\n`\nend\n",
    "To: b@c.example\nX-Desk-Sender: - -\nX-Desk-Recipient: b@c.example EX /o=x\nX-Desk-Sensitivity: "
    "2\n\nHi\n",
};

}  // namespace

fuzz::Seeds fuzz::mail_seeds() {
    std::vector<std::string> mails(std::begin(stumbling_blocks), std::end(stumbling_blocks));
    constexpr std::size_t small = 2000;  // bytes; what they do at their full size, a test of its own shows
    for (const HostileMail& each : hostile_mails) mails.push_back(each.of_size(small));
    mails.push_back(mail_of_pictures(small / 2, 20));
    mails.push_back(mail_of_ends(small, small / 8));
    std::vector<std::filesystem::path> files;
    for (const auto& entry : std::filesystem::directory_iterator(TARNWELL_DATA_FOLDER "/sample/mails")) {
        files.push_back(entry.path());
    }
    std::ranges::sort(files);
    for (const auto& file : files) {
        std::ifstream stream(file, std::ios::binary);
        mails.emplace_back(std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>());
    }
    return mails;
}

bool fuzz::try_mail(std::string_view input) {
    desk::ItemData item;
    try {
        item = desk::mail::read_message(input);
    } catch (const automation::Failure& failure) {
        require(std::string_view(failure.what()).ends_with('.'), "a mail is refused without a sentence");
        return false;
    }
    const desk::ItemData back = desk::mail::from_json(desk::mail::to_json(item));
    require(back.fields.size() == item.fields.size(), "the JSON loses a field");
    require(back.recipients == item.recipients, "the JSON changes a recipient");
    require(back.attachments.size() == item.attachments.size(), "the JSON loses an attachment");
    return true;
}
