#include "desk/tools/mail/mail_reader.h"

#include <array>
#include <cstdlib>
#include <ctime>
#include <fstream>
#include <optional>

#include "desk/mail/item_json.h"
#include "desk/tools/mail/address_lists.h"
#include "desk/tools/mail/desk_fields.h"
#include "desk/tools/mail/encoded_words.h"
#include "desk/tools/mail/gmime_ownership.h"
#include "desk/tools/mail/mail_header.h"
#include "desk/tools/mail/mail_parts.h"
#include "desk/tools/mail/mail_shape.h"
#include "desk/tools/mail/mail_text.h"
#include "desk/tools/mail/message_class.h"

namespace desk::mail {
namespace {

using automation::Text;
using automation::TextView;

/// Text of one line, as a field of an item holds it.
Text one_line(const char* utf8) {
    Text text = automation::from_utf8(to_string(utf8));
    for (char16_t& unit : text) {
        if (unit < u' ') unit = u' ';
        // What ISO 8859-1 has here nobody writes; what Windows' western set has here mailers write under its
        // name.
        if (unit >= 0x80 && unit < 0xA0)
            unit = decode(std::string(1, static_cast<char>(unit)), "iso-8859-1").front();
    }
    return automation::trimmed(text);
}

/// What the parser found wrong so far, as far as it makes the mail unreadable.
struct Complaints {
    bool too_deep = false;
};

void note_warning(gint64, GMimeParserWarning warning, const gchar*, gpointer complaints) {
    auto& found = *static_cast<Complaints*>(complaints);
    found.too_deep |= warning == GMIME_CRIT_NESTING_OVERFLOW;
}

/// `charset` is tried for headers that are neither ASCII nor UTF-8; empty if none is known.
ParserOptions make_options(const std::string& charset, Complaints& complaints) {
    ParserOptions options(g_mime_parser_options_new());
    std::array<const char*, 4> charsets = {"utf-8", charset.c_str(), "windows-1252", nullptr};
    if (charset.empty()) charsets = {"utf-8", "windows-1252", nullptr, nullptr};
    g_mime_parser_options_set_fallback_charsets(options.get(), charsets.data());
    g_mime_parser_options_set_allow_addresses_without_domain(options.get(), true);
    g_mime_parser_options_set_warning_callback(options.get(), note_warning, &complaints);
    return options;
}

ObjectOf<GMimeMessage> parse(std::string_view bytes, GMimeParserOptions* options) {
    ObjectOf<GMimeStream> stream(g_mime_stream_mem_new_with_buffer(bytes.data(), bytes.size()));
    ObjectOf<GMimeParser> parser(g_mime_parser_new_with_stream(stream.get()));
    g_mime_parser_set_format(parser.get(), GMIME_FORMAT_MESSAGE);
    return ObjectOf<GMimeMessage>(g_mime_parser_construct_message(parser.get(), options));
}

/// The first year of the dates that an item can have.
constexpr int first_year = 1601;

/// Local time on the clock of a point in time; nothing for years that no mail is from.
std::optional<automation::Date> to_local(const DateTime& time) {
    if (!time || g_date_time_get_year(time.get()) < first_year || g_date_time_get_year(time.get()) > 4500)
        return std::nullopt;
    const std::time_t seconds = g_date_time_to_unix(time.get());
    std::tm clock{};
    if (!localtime_r(&seconds, &clock)) return std::nullopt;
    return automation::to_date({clock.tm_year + 1900, clock.tm_mon + 1, clock.tm_mday, clock.tm_hour,
                                clock.tm_min, clock.tm_sec == 60 ? 59 : clock.tm_sec});
}

std::optional<automation::Date> read_time(const std::string& written) {
    if (written.empty()) return std::nullopt;
    return to_local(DateTime(g_mime_utils_header_decode_date(written.c_str())));
}

/// A subject without the "Re: " and "FW: " of up to three letters in front of it.
TextView without_prefixes(TextView subject) {
    while (true) {
        const std::size_t colon = subject.substr(0, 5).find(u": ");
        if (colon == 0 || colon > 3 || subject.substr(0, colon).find(u' ') != Text::npos) return subject;
        subject.remove_prefix(colon + 2);
    }
}

/// Reads one message, that of the file or one inside another.
class MessageReader {
  public:
    /// `header_text` is the header as it came, or empty if only GMime's form of it is at hand.
    MessageReader(GMimeMessage* message, GMimeParserOptions* options, std::string_view header_text, int depth)
        : message_(message), options_(options), header_text_(header_text), depth_(depth) {}

    ItemData read() {
        mail_.message_class = u"IPM.Note";
        read_headers();
        read_sender();
        read_recipients();
        read_times();
        read_grades();
        read_content();
        apply_desk_fields(desk_fields(), mail_);
        return std::move(mail_);
    }

  private:
    GMimeObject* object() const { return reinterpret_cast<GMimeObject*>(message_); }
    std::string header(const char* name) const { return to_string(g_mime_object_get_header(object(), name)); }

    void read_headers() {
        if (header_text_.empty())
            header_text_ = to_string(CString(g_mime_object_get_headers(object(), nullptr)).get());
        mail_.fields[u"InternetHeaders"] = with_crlf(decode(header_text_, ""));
        const Text subject = one_line(g_mime_message_get_subject(message_));
        const Text topic = one_line(header("Thread-Topic").c_str());
        mail_.fields[u"Subject"] = subject;
        mail_.fields[u"ConversationTopic"] = topic.empty() ? Text(without_prefixes(subject)) : topic;
        const std::string id = to_string(g_mime_message_get_message_id(message_));
        if (!id.empty()) mail_.fields[u"InternetMessageId"] = automation::from_utf8("<" + id + ">");
        mail_.fields[u"UnRead"] = true;
        mail_.fields[u"Sent"] = true;
    }

    /// The people of an address list, those of its groups included.
    void append_people(InternetAddressList* list, std::int32_t kind, std::vector<Person>& people) const {
        for (int i = 0; list && i < internet_address_list_length(list); ++i) {
            InternetAddress* address = internet_address_list_get_address(list, i);
            if (INTERNET_ADDRESS_IS_GROUP(address)) {
                append_people(internet_address_group_get_members(INTERNET_ADDRESS_GROUP(address)), kind,
                              people);
                continue;
            }
            Person person;
            person.smtp_address =
                one_line(internet_address_mailbox_get_addr(INTERNET_ADDRESS_MAILBOX(address)));
            if (automation::to_utf8(person.smtp_address) == no_address) person.smtp_address.clear();
            person.name = one_line(internet_address_get_name(address));
            if (person.name.empty()) person.name = person.smtp_address;
            if (person.name.empty()) continue;
            person.address = person.smtp_address;
            person.address_type = u"SMTP";
            person.kind = kind;
            people.push_back(std::move(person));
        }
    }

    /// The people of all fields of a name.
    void append_people(const char* field, std::int32_t kind, std::vector<Person>& people) const {
        GMimeHeaderList* list = g_mime_object_get_header_list(object());
        for (int i = 0; i < g_mime_header_list_get_count(list); ++i) {
            GMimeHeader* each = g_mime_header_list_get_header_at(list, i);
            if (g_ascii_strcasecmp(g_mime_header_get_name(each), field) != 0) continue;
            const std::string written = with_angle_brackets(to_string(g_mime_header_get_raw_value(each)));
            const ObjectOf<InternetAddressList> found(internet_address_list_parse(options_, written.c_str()));
            append_people(found.get(), kind, people);
        }
    }

    static Text names_of(const std::vector<Person>& people, std::int32_t kind) {
        Text names;
        for (const Person& person : people) {
            if (person.kind != kind) continue;
            if (!names.empty()) names += u"; ";
            names += person.name;
        }
        return names;
    }

    void read_sender() {
        std::vector<Person> senders;
        append_people("From", 1, senders);
        const Person sender = senders.empty() ? Person() : senders.front();
        mail_.fields[u"SenderName"] = sender.name;
        mail_.fields[u"SenderEmailAddress"] = sender.address;
        mail_.fields[u"SenderEmailType"] = sender.address_type;
        mail_.fields[u"SenderSmtpAddress"] = sender.smtp_address;

        std::vector<Person> reply_to;
        append_people("Reply-To", 1, reply_to);
        mail_.fields[u"ReplyRecipientNames"] = names_of(reply_to, 1);
    }

    void read_recipients() {
        append_people("To", 1, mail_.recipients);
        append_people("Cc", 2, mail_.recipients);
        append_people("Bcc", 3, mail_.recipients);
        mail_.fields[u"To"] = names_of(mail_.recipients, 1);
        mail_.fields[u"CC"] = names_of(mail_.recipients, 2);
        mail_.fields[u"BCC"] = names_of(mail_.recipients, 3);
    }

    void read_times() {
        const auto sent = read_time(header("Date"));
        const std::string trace = header("Received");  // the topmost one, which the last server wrote
        const std::size_t stamp = trace.rfind(';');
        auto received = stamp == std::string::npos ? std::nullopt : read_time(trace.substr(stamp + 1));
        if (!received) received = sent;
        if (sent) mail_.fields[u"SentOn"] = *sent;
        if (received) mail_.fields[u"ReceivedTime"] = mail_.fields[u"CreationTime"] = *received;
    }

    struct Grade {
        const char* header;
        const char* word;  ///< what the header begins with
        std::int32_t value;
    };
    static std::optional<std::int32_t> grade_of(std::span<const Grade> grades, GMimeObject* object) {
        for (const Grade& grade : grades) {
            const std::string written = to_string(g_mime_object_get_header(object, grade.header));
            if (g_ascii_strncasecmp(written.c_str(), grade.word, std::string_view(grade.word).size()) == 0)
                return grade.value;
        }
        return std::nullopt;
    }

    void read_grades() {
        static constexpr std::array<Grade, 10> importances = {{{"Importance", "low", 0},
                                                               {"Importance", "normal", 1},
                                                               {"Importance", "high", 2},
                                                               {"X-Priority", "1", 2},
                                                               {"X-Priority", "2", 2},
                                                               {"X-Priority", "3", 1},
                                                               {"X-Priority", "4", 0},
                                                               {"X-Priority", "5", 0},
                                                               {"Priority", "urgent", 2},
                                                               {"Priority", "non-urgent", 0}}};
        static constexpr std::array<Grade, 4> sensitivities = {{{"Sensitivity", "personal", 1},
                                                                {"Sensitivity", "private", 2},
                                                                {"Sensitivity", "company-confidential", 3},
                                                                {"Sensitivity", "company confidential", 3}}};
        mail_.fields[u"Importance"] = grade_of(importances, object()).value_or(1);
        mail_.fields[u"Sensitivity"] = grade_of(sensitivities, object()).value_or(0);
    }

    void read_content() {
        GMimeObject* root = g_mime_message_get_mime_part(message_);
        if (!root) return;
        mail_.message_class = message_class_of(root);
        Content content = read_parts(root, [this](GMimeMessage* embedded) {
            if (depth_ + 1 >= nesting_limit)
                refuse("The mail has messages inside messages, nested too deeply.");
            return MessageReader(embedded, options_, {}, depth_ + 1).read();
        });
        mail_.fields[u"Body"] = std::move(content.text);
        if (!content.html.empty()) mail_.fields[u"HTMLBody"] = std::move(content.html);
        mail_.attachments = std::move(content.attachments);
    }

    std::vector<HeaderField> desk_fields() const {
        std::vector<HeaderField> fields;
        GMimeHeaderList* list = g_mime_object_get_header_list(object());
        for (int i = 0; i < g_mime_header_list_get_count(list); ++i) {
            GMimeHeader* each = g_mime_header_list_get_header_at(list, i);
            std::string name = to_string(g_mime_header_get_name(each));
            if (is_desk_field(name))
                fields.push_back({std::move(name), one_line(g_mime_header_get_value(each))});
        }
        return fields;
    }

    GMimeMessage* message_;
    GMimeParserOptions* options_;
    std::string header_text_;
    int depth_;
    ItemData mail_;
};

}  // namespace

ItemData read_message(std::string_view file_bytes) {
    start_library();
    const std::string bytes = mended_message(file_bytes);
    const std::string message_bytes = with_joined_words(checked_shape(bytes));
    Complaints complaints;
    ParserOptions options = make_options("", complaints);
    ObjectOf<GMimeMessage> message = parse(message_bytes, options.get());
    if (!message) refuse("The file is not a mail: it can't be parsed.");
    if (!is_utf8(bytes)) {
        // Mailers that write headers in bare 8-bit letters use the character set of their text.
        GMimeObject* root = g_mime_message_get_mime_part(message.get());
        options = make_options(root ? first_charset(root) : "", complaints);
        message = parse(message_bytes, options.get());
    }
    if (complaints.too_deep) refuse("The parts of the mail are nested too deeply.");
    return MessageReader(message.get(), options.get(), header_of(bytes), 0).read();
}

ItemData read_message_file(const std::filesystem::path& file) {
    const std::string name = "\"" + file.string() + "\"";
    std::error_code error;
    const auto status = std::filesystem::status(file, error);
    if (!std::filesystem::exists(status)) refuse("There is no file " + name + ".");
    if (std::filesystem::is_directory(status)) refuse(name + " is a folder, not a mail.");
    if (!std::filesystem::is_regular_file(status)) refuse(name + " is no file.");
    const std::uintmax_t size = std::filesystem::file_size(file, error);
    if (!error && size > largest_mail)
        refuse("The file " + name + " is larger than 50 MB, too large for a mail.");

    std::ifstream stream(file, std::ios::binary);
    const std::string bytes{std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
    if (error || !stream) refuse("The file " + name + " can't be read.");
    return read_message(bytes);
}

}  // namespace desk::mail
