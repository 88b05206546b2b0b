// Damages the sample mails in a fixed random order: the mail reader gives an item whose JSON brings it back,
// or one sentence, and nothing else. The one argument is the number of rounds.
#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <random>
#include <string>
#include <vector>

#include "desk/mail/message.h"
#include "desk/tools/mail_reader.h"

namespace {

constexpr int default_rounds = 3000;
constexpr std::uint32_t seed = 20260303;

std::vector<std::string> read_samples() {
    std::vector<std::filesystem::path> files;
    for (const auto& entry : std::filesystem::directory_iterator(TARNWELL_DATA_FOLDER "/sample/mails")) {
        files.push_back(entry.path());
    }
    std::ranges::sort(files);
    std::vector<std::string> mails;
    for (const auto& file : files) {
        std::ifstream stream(file, std::ios::binary);
        mails.emplace_back(std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>());
    }
    return mails;
}

/// Pieces on which readers of mails stumble.
const std::vector<std::string>& pieces() {
    static const std::vector<std::string> all = {"\r\n",
                                                 "\n",
                                                 "\r\n\r\n",
                                                 "--",
                                                 "=?utf-8?B?",
                                                 "=?",
                                                 "?=",
                                                 "=?utf-8?Q?=",
                                                 ";",
                                                 "\"",
                                                 "<",
                                                 ">",
                                                 "(",
                                                 ")",
                                                 ":;",
                                                 "\\",
                                                 "=",
                                                 "==",
                                                 std::string(1, '\0'),
                                                 "\xFF\xFE",
                                                 "\xC3",
                                                 "%",
                                                 "*0*=utf-8''%",
                                                 "boundary=",
                                                 "Content-Type: multipart/mixed; boundary=",
                                                 "Content-Type: message/rfc822\r\n\r\n",
                                                 "Content-Transfer-Encoding: base64\r\n",
                                                 "charset=utf-16\r\n",
                                                 "charset=utf-7\r\n",
                                                 "X-Desk-Sender: ",
                                                 "X-Desk-Recipient: a@b.example ",
                                                 "Date: Tue, 99 Foo 99999 99:99:99 +9999\r\n",
                                                 "&#x",
                                                 "<a href=",
                                                 "<!--",
                                                 "From: ",
                                                 "To: Group: ",
                                                 std::string(2000, 'a'),
                                                 std::string(200, '(')};
    return all;
}

class Damage {
  public:
    explicit Damage(std::vector<std::string> mails) : mails_(std::move(mails)), random_(seed) {}

    std::string next() {
        std::string mail = mails_[below(mails_.size())];
        for (std::size_t count = 1 + below(8); count > 0 && !mail.empty(); --count) damage(mail);
        return mail;
    }

  private:
    std::size_t below(std::size_t limit) { return random_() % limit; }

    void damage(std::string& mail) {
        const std::size_t at = below(mail.size());
        const std::size_t length = std::min(below(60), mail.size() - at);
        switch (below(7)) {
            case 0:
                mail[at] = static_cast<char>(random_());
                break;
            case 1:
                mail[at] = static_cast<char>(mail[at] ^ (1 << below(8)));
                break;
            case 2:
                mail.erase(at, length);
                break;
            case 3:
                mail.insert(below(mail.size()), mail.substr(at, length));
                break;
            case 4:
                mail.insert(at, pieces()[below(pieces().size())]);
                break;
            case 5: {
                const std::string& other = mails_[below(mails_.size())];
                mail.replace(at, length, other.substr(below(other.size()), 200));
                break;
            }
            default:
                if (below(4) == 0) mail.resize(at);
        }
    }

    std::vector<std::string> mails_;
    std::mt19937 random_;
};

/// What is wrong with the reader's answer to a mail; empty if nothing is.
std::string complaint(const std::string& mail, int& read) {
    try {
        const desk::ItemData item = desk::mail::read_message(mail);
        ++read;
        const desk::ItemData back = desk::mail::from_json(desk::mail::to_json(item));
        return back.fields.size() == item.fields.size() && back.attachments.size() == item.attachments.size()
                   ? ""
                   : "the JSON does not bring the mail back";
    } catch (const host::Failure& failure) {
        const std::string sentence = failure.what();
        return sentence.ends_with('.') && !sentence.starts_with("The mail reader's answer")
                   ? ""
                   : "no sentence: " + sentence;
    } catch (const std::exception& exception) {
        return std::string("another exception: ") + exception.what();
    }
}

}  // namespace

int main(int count, char** arguments) {
    const int rounds = count > 1 ? std::atoi(arguments[1]) : default_rounds;
    Damage damage(read_samples());
    int read = 0;
    for (int round = 0; round < rounds; ++round) {
        const std::string mail = damage.next();
        const std::string wrong = complaint(mail, read);
        if (wrong.empty()) continue;
        std::cerr << "Round " << round << ": " << wrong << "\n" << mail << "\n";
        return 1;
    }
    std::cout << rounds << " damaged mails: " << read << " were read, " << rounds - read
              << " were refused.\n";
    return read > 0 && read < rounds ? 0 : 1;
}
