#include "desk/tools/mail/mail_parts.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <unordered_map>

#include "desk/tools/mail/gmime_ownership.h"
#include "desk/tools/mail/html_text.h"
#include "desk/tools/mail/mail_text.h"

namespace desk::mail {
namespace {

using automation::Text;
using automation::TextView;

// GMime's own type tests are macros; these are the same as functions.
bool is_a(GMimeObject* object, GType type) {
    return g_type_check_instance_is_a(&object->parent_object.g_type_instance, type);
}

bool is_type(GMimeObject* part, const char* type, const char* subtype) {
    return g_mime_content_type_is_type(g_mime_object_get_content_type(part), type, subtype);
}

/// Whether a part says "Content-Type: text" and no more.
bool is_bare_text(GMimeObject* part) {
    const std::string type = to_string(g_mime_object_get_header(part, "Content-Type"));
    return g_ascii_strcasecmp(type.substr(0, type.find_first_of("; \t\r\n")).c_str(), "text") == 0;
}

bool has_disposition(GMimeObject* part, const char* disposition) {
    const char* found = g_mime_object_get_disposition(part);
    return found && g_ascii_strcasecmp(found, disposition) == 0;
}

std::string charset_of(GMimeObject* part) {
    return to_string(g_mime_object_get_content_type_parameter(part, "charset"));
}

/// The ending of a file whose name the mail does not give.
const char* extension_of(GMimeObject* part) {
    struct Row {
        const char *type, *subtype, *extension;
    };
    static constexpr std::array<Row, 12> rows = {{
        {"text", "plain", ".txt"},
        {"text", "html", ".htm"},
        {"text", "calendar", ".ics"},
        {"text", "*", ".txt"},
        {"image", "png", ".png"},
        {"image", "jpeg", ".jpg"},
        {"image", "gif", ".gif"},
        {"application", "pdf", ".pdf"},
        {"application", "zip", ".zip"},
        {"message", "rfc822", ".eml"},
        {"message", "*", ".txt"},
        {"*", "*", ".dat"},
    }};
    const auto row =
        std::ranges::find_if(rows, [&](const Row& each) { return is_type(part, each.type, each.subtype); });
    return row == rows.end() ? ".dat" : row->extension;
}

/// A name that a file of the system may have: the last piece of a path, without the characters that names
/// lack.
Text file_name_of(std::string_view written) {
    Text name = automation::from_utf8(written);
    name.erase(0, name.find_last_of(u"/\\") + 1);
    for (char16_t& unit : name) {
        if (unit < u' ' || TextView(u"<>:\"|?*").find(unit) != TextView::npos) unit = u'_';
    }
    return automation::trimmed(name);
}

std::string bytes_of(GMimeStream* memory) {
    GByteArray* array = g_mime_stream_mem_get_byte_array(reinterpret_cast<GMimeStreamMem*>(memory));
    return std::string(reinterpret_cast<const char*>(array->data), array->len);
}

/// The bytes of a part as they stand in the mail.
std::string raw_content(GMimeDataWrapper* content) {
    GMimeStream* stream = g_mime_data_wrapper_get_stream(content);
    ObjectOf<GMimeStream> memory(g_mime_stream_mem_new());
    g_mime_stream_reset(stream);
    g_mime_stream_write_to_stream(stream, memory.get());
    g_mime_stream_reset(stream);
    return bytes_of(memory.get());
}

/// The bytes of base64 up to its padding, or up to where it is cut short. What is no letter is passed over.
std::string from_cut_base64(std::string_view raw) {
    std::string letters;
    letters.reserve(raw.size() + 2);
    for (const char c : raw) {
        if (c == '=' && letters.size() % 4 > 1) break;
        if (g_ascii_isalnum(c) || c == '+' || c == '/') letters += c;
    }
    if (letters.size() % 4 == 1) letters.pop_back();  // six bits are no byte
    letters.append((4 - letters.size() % 4) % 4, '=');
    if (letters.empty()) return {};
    gsize size = 0;
    g_base64_decode_inplace(letters.data(), &size);
    letters.resize(size);
    return letters;
}

/// The bytes of uuencoded lines between "begin" and "end". A line tells how many bytes it holds; the blanks
/// at its end, which stand for zeros, may have been taken off on the way.
std::string from_uuencode(std::string_view raw) {
    std::string bytes;
    bool begun = false;
    while (!raw.empty()) {
        std::string_view line = raw.substr(0, raw.find('\n'));
        raw.remove_prefix(std::min(line.size() + 1, raw.size()));
        line = line.substr(0, line.find_last_not_of('\r') + 1);
        if (!begun) {
            begun = line.starts_with("begin ");
            continue;
        }
        if (line == "end") break;
        const auto six_bits = [&](std::size_t at) {
            return at < line.size() ? (static_cast<unsigned>(line[at]) - ' ') & 0x3FU : 0U;
        };
        const std::size_t count = six_bits(0);
        for (std::size_t byte = 0; byte < count; ++byte) {
            const std::size_t group = 1 + byte / 3 * 4, place = byte % 3;
            const unsigned pair = six_bits(group + place) << 6U | six_bits(group + place + 1);
            bytes += static_cast<char>(pair >> (4 - 2 * place) & 0xFFU);
        }
    }
    return bytes;
}

}  // namespace

std::string content_of(GMimeObject* object) {
    GMimeDataWrapper* content = g_mime_part_get_content(reinterpret_cast<GMimePart*>(object));
    if (!content) return {};
    const GMimeContentEncoding encoding = g_mime_data_wrapper_get_encoding(content);
    if (encoding == GMIME_CONTENT_ENCODING_BASE64) return from_cut_base64(raw_content(content));
    if (encoding == GMIME_CONTENT_ENCODING_UUENCODE) return from_uuencode(raw_content(content));
    ObjectOf<GMimeStream> memory(g_mime_stream_mem_new());
    g_mime_data_wrapper_write_to_stream(content, memory.get());
    return bytes_of(memory.get());
}

namespace {

std::string file_name_parameter(GMimeObject* object) {
    return to_string(g_mime_part_get_filename(reinterpret_cast<GMimePart*>(object)));
}

/// A piece of the body in one form or in both.
struct Piece {
    Text text;
    Text html;
};

/// A picture that stands in the body, behind so many of its pieces.
struct Inline {
    std::size_t attachment;
    std::size_t pieces;
    Text content_id;
};

/// Where a body says that a picture stands: "[cid:...]" and "[image: ...]". Found once, since a mail may have
/// a long body and thousands of pictures.
class Marks {
  public:
    explicit Marks(TextView body) {
        for (std::size_t at = body.find(u'['); at != TextView::npos; at = body.find(u'[', at + 1)) {
            const TextView mark = body.substr(at + 1, longest);
            if (!mark.starts_with(u"cid:") && !mark.starts_with(u"image: ")) continue;
            std::size_t end = 0;
            for (int closing = 0; closing < most_closings; ++closing) {  // a name may have brackets itself
                end = mark.find(u']', end + 1);
                if (end == TextView::npos) break;
                places_.try_emplace(mark.substr(0, end), at);
            }
        }
    }

    /// The first one; `npos` if the body has none.
    std::size_t place_of(TextView mark) const {
        const auto found = places_.find(mark);
        return found == places_.end() ? TextView::npos : found->second;
    }

  private:
    static constexpr std::size_t longest = 256;
    static constexpr int most_closings = 3;
    std::unordered_map<TextView, std::size_t> places_;  ///< of what stands between the brackets
};

class PartReader {
  public:
    explicit PartReader(const ReadEmbedded& read_embedded) : read_embedded_(read_embedded) {}

    void read(GMimeObject* part) {
        if (is_a(part, GMIME_TYPE_MULTIPART)) {
            read_multipart(reinterpret_cast<GMimeMultipart*>(part),
                           is_type(part, "multipart", "alternative"));
        } else if (is_a(part, GMIME_TYPE_MESSAGE_PART)) {
            read_message(reinterpret_cast<GMimeMessagePart*>(part));
        } else if (is_a(part, GMIME_TYPE_PART)) {
            read_leaf(part);
        }
    }

    Content take() {
        Content content;
        const bool has_html =
            std::ranges::any_of(pieces_, [](const Piece& piece) { return !piece.html.empty(); });
        std::vector<std::size_t> ends = {0};
        for (const Piece& piece : pieces_) {
            if (!content.text.empty() && !content.text.ends_with(u'\n')) content.text += u"\r\n";
            content.text += piece.text.empty() ? html_to_text(piece.html) : piece.text;
            ends.push_back(content.text.size());
            if (has_html) content.html += piece.html.empty() ? as_html(piece.text) : piece.html;
        }
        const Marks marks(content.text);
        for (const Inline& picture : inlines_) {
            AttachmentData& attachment = attachments_[picture.attachment];
            const std::size_t place = place_of(picture, attachment.display_name, marks);
            attachment.position = static_cast<std::int32_t>(1 + std::min(place, ends[picture.pieces]));
        }
        content.attachments = std::move(attachments_);
        return content;
    }

  private:
    void read_multipart(GMimeMultipart* multipart, bool alternative) {
        const int count = g_mime_multipart_get_count(multipart);
        if (count == 0) {
            // without what separates its parts, all of it stands in front of them
            const char* all = g_mime_multipart_get_prologue(multipart);
            pieces_.push_back({with_crlf(decode(to_string(all), "")), {}});
            return;
        }
        if (!alternative) {
            for (int i = 0; i < count; ++i) read(g_mime_multipart_get_part(multipart, i));
            return;
        }
        // The same words in several forms: the first plain text and the last HTML make one piece.
        Piece merged;
        const std::size_t piece = pieces_.size() + 1;
        for (int i = 0; i < count; ++i) {
            PartReader form(read_embedded_);
            form.read(g_mime_multipart_get_part(multipart, i));
            for (Piece& each : form.pieces_) {
                if (merged.text.empty()) merged.text = std::move(each.text);
                if (!each.html.empty()) merged.html = std::move(each.html);
            }
            for (Inline& each : form.inlines_) {
                inlines_.push_back(
                    {each.attachment + attachments_.size(), piece, std::move(each.content_id)});
            }
            std::ranges::move(form.attachments_, std::back_inserter(attachments_));
        }
        pieces_.push_back(std::move(merged));
    }

    void read_message(GMimeMessagePart* part) {
        GMimeMessage* message = g_mime_message_part_get_message(part);
        if (message) attach_item(read_embedded_(message));
    }

    void attach_item(ItemData item) {
        AttachmentData attachment;
        attachment.type = 5;
        const auto subject = item.fields.find(u"Subject");
        if (subject != item.fields.end()) attachment.display_name = subject->second.to_text();
        attachment.item = std::make_shared<const ItemData>(std::move(item));
        attachments_.push_back(std::move(attachment));
    }

    void read_leaf(GMimeObject* part) {
        std::string content = content_of(part);
        const bool shown = !has_disposition(part, "attachment") && file_name_parameter(part).empty();
        const bool html = is_type(part, "text", "html");
        if (shown && (html || is_type(part, "text", "plain") || is_bare_text(part))) {
            Text text = with_crlf(decode(content, charset_of(part)));
            if (html) {
                pieces_.push_back({{}, std::move(text)});
            } else {
                pieces_.push_back({std::move(text), {}});
            }
            return;
        }
        AttachmentData attachment;
        attachment.display_name = attachment.file_name = name_of(part);
        attachment.content = std::move(content);
        const char* id = g_mime_object_get_content_id(part);
        if (has_disposition(part, "inline") || (id && !has_disposition(part, "attachment"))) {
            inlines_.push_back({attachments_.size(), pieces_.size(), automation::from_utf8(to_string(id))});
        }
        attachments_.push_back(std::move(attachment));
    }

    Text name_of(GMimeObject* part) const {
        if (Text name = file_name_of(file_name_parameter(part)); !name.empty()) return name;
        std::array<char, 16> number{};
        std::snprintf(number.data(), number.size(), "ATT%05u",
                      static_cast<unsigned>(attachments_.size() + 1) % 100000);
        return automation::from_utf8(std::string(number.data()) + extension_of(part));
    }

    /// Where the plain text itself marks the picture, as mailers do; else behind all of it.
    static std::size_t place_of(const Inline& picture, const Text& name, const Marks& marks) {
        std::size_t place = Text::npos;
        if (!picture.content_id.empty()) place = marks.place_of(u"cid:" + picture.content_id);
        if (place == Text::npos) place = marks.place_of(u"image: " + name);
        return place;
    }

    static Text as_html(const Text& text) {
        Text page = u"<pre>";
        page.reserve(text.size() + text.size() / 16 + 16);
        for (const char16_t unit : text) {
            if (unit == u'&') {
                page += u"&amp;";
            } else if (unit == u'<') {
                page += u"&lt;";
            } else if (unit == u'>') {
                page += u"&gt;";
            } else {
                page += unit;
            }
        }
        return page += u"</pre>";
    }

    const ReadEmbedded& read_embedded_;
    std::vector<Piece> pieces_;
    std::vector<Inline> inlines_;
    std::vector<AttachmentData> attachments_;
};

}  // namespace

Content read_parts(GMimeObject* root, const ReadEmbedded& read_embedded) {
    PartReader reader(read_embedded);
    reader.read(root);
    return reader.take();
}

std::string first_charset(GMimeObject* root) {
    if (is_a(root, GMIME_TYPE_MULTIPART)) {
        auto* multipart = reinterpret_cast<GMimeMultipart*>(root);
        for (int i = 0; i < g_mime_multipart_get_count(multipart); ++i) {
            std::string found = first_charset(g_mime_multipart_get_part(multipart, i));
            if (!found.empty()) return found;
        }
        return {};
    }
    return is_type(root, "text", "*") ? charset_of(root) : std::string();
}

}  // namespace desk::mail
