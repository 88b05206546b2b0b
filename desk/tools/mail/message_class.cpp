#include "desk/tools/mail/message_class.h"

#include <algorithm>
#include <array>
#include <functional>
#include <string>
#include <string_view>

#include "desk/tools/mail/gmime_ownership.h"
#include "desk/tools/mail/mail_parts.h"

namespace desk::mail {
namespace {

using automation::Text;
using automation::TextView;

struct ClassRow {
    const char *type, *subtype;
    const char *parameter, *value;  ///< that the type must have; null if none is needed
    std::string_view words;         ///< that stand in a line of the part; empty if none need
    TextView message_class;
};

/// Of a whole mail.
constexpr std::array<ClassRow, 3> whole_mails = {{
    {"multipart", "signed", nullptr, nullptr, "", u"IPM.Note.SMIME.MultipartSigned"},
    {"application", "pkcs7-mime", nullptr, nullptr, "", u"IPM.Note.SMIME"},
    {"application", "x-pkcs7-mime", nullptr, nullptr, "", u"IPM.Note.SMIME"},
}};

/// Of the parts of a report, which say what became of a mail.
constexpr std::array<ClassRow, 6> report_parts = {{
    {"message", "delivery-status", nullptr, nullptr, "action: failed", u"REPORT.IPM.Note.NDR"},
    {"message", "delivery-status", nullptr, nullptr, "action: delivered", u"REPORT.IPM.Note.DR"},
    {"message", "delivery-status", nullptr, nullptr, "action: relayed", u"REPORT.IPM.Note.DR"},
    {"message", "delivery-status", nullptr, nullptr, "action: expanded", u"REPORT.IPM.Note.DR"},
    {"message", "disposition-notification", nullptr, nullptr, "displayed", u"REPORT.IPM.Note.IPNRN"},
    {"message", "disposition-notification", nullptr, nullptr, "deleted", u"REPORT.IPM.Note.IPNNRN"},
}};

/// Of a calendar's part that stands for the whole mail.
constexpr std::array<ClassRow, 2> calendar_parts = {{
    {"text", "calendar", "method", "REQUEST", "", u"IPM.Schedule.Meeting.Request"},
    {"text", "calendar", "method", "CANCEL", "", u"IPM.Schedule.Meeting.Canceled"},
}};

bool has_type(GMimeObject* part, const char* type, const char* subtype) {
    return g_mime_content_type_is_type(g_mime_object_get_content_type(part), type, subtype);
}

/// The text of a part in lower case.
std::string low_text_of(GMimeObject* part) {
    if (!g_type_check_instance_is_a(&part->parent_object.g_type_instance, GMIME_TYPE_PART)) return {};
    std::string text = content_of(part);
    std::ranges::transform(text, text.begin(), g_ascii_tolower);
    return text;
}

bool fits(const ClassRow& row, GMimeObject* part) {
    if (!has_type(part, row.type, row.subtype)) return false;
    if (row.parameter) {
        const std::string value = to_string(g_mime_object_get_content_type_parameter(part, row.parameter));
        if (g_ascii_strcasecmp(value.c_str(), row.value) != 0) return false;
    }
    return row.words.empty() || low_text_of(part).find(row.words) != std::string::npos;
}

/// The class that the first of the rows gives that fits; empty if none does.
template <std::size_t count>
Text class_by(const std::array<ClassRow, count>& rows, GMimeObject* part) {
    const auto row = std::ranges::find_if(rows, [part](const ClassRow& each) { return fits(each, part); });
    return row == rows.end() ? Text() : Text(row->message_class);
}

/// The first class that a part of a multipart has; empty if none has.
Text class_among(GMimeObject* multipart, const std::function<Text(GMimeObject*)>& class_of) {
    auto* parts = reinterpret_cast<GMimeMultipart*>(multipart);
    Text found;
    for (int i = 0; found.empty() && i < g_mime_multipart_get_count(parts); ++i)
        found = class_of(g_mime_multipart_get_part(parts, i));
    return found;
}

/// The class of a calendar's part, alone or as one form of the mail's words, with files behind it or without.
Text calendar_class(GMimeObject* part) {
    if (has_type(part, "multipart", "alternative")) return class_among(part, calendar_class);
    if (has_type(part, "multipart", "mixed")) {
        auto* parts = reinterpret_cast<GMimeMultipart*>(part);
        return g_mime_multipart_get_count(parts) ? calendar_class(g_mime_multipart_get_part(parts, 0))
                                                 : Text();
    }
    return class_by(calendar_parts, part);
}

}  // namespace

Text message_class_of(GMimeObject* root) {
    Text found = class_by(whole_mails, root);
    if (found.empty() && has_type(root, "multipart", "report"))
        found = class_among(root, [](GMimeObject* part) { return class_by(report_parts, part); });
    if (found.empty()) found = calendar_class(root);
    return found.empty() ? Text(u"IPM.Note") : found;
}

}  // namespace desk::mail
