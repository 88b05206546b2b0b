#include "desk/outlook/item_file.h"

#include <filesystem>
#include <fstream>
#include <iterator>

#include "desk/outlook/item_kinds.h"

namespace desk {

using automation::Failure;
using automation::Text;
namespace result = automation::result;

namespace {

constexpr std::string_view file_mark = "desk message 1\n";

std::filesystem::path file_path(const Text& path) { return std::filesystem::path(path); }

}  // namespace

std::string read_file(const Text& path) {
    std::ifstream file(file_path(path), std::ios::binary);
    std::string bytes{std::istreambuf_iterator<char>(file), {}};
    if (!file) throw Failure(result::file_not_found, u"The file \"" + path + u"\" can't be read.");
    return bytes;
}

void write_file(const Text& path, std::string_view bytes) {
    std::ofstream file(file_path(path), std::ios::binary | std::ios::trunc);
    file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    file.close();
    if (!file) throw Failure(result::access_denied, u"The file \"" + path + u"\" can't be written.");
}

std::string message_file(const ItemData& item) { return std::string(file_mark) + write_item(item); }

ItemData read_message_file(const Text& path) {
    const std::string bytes = read_file(path);
    if (!bytes.starts_with(file_mark)) {
        throw Failure(result::invalid_argument, u"The file \"" + path + u"\" is not a message file.");
    }
    return read_item(std::string_view(bytes).substr(file_mark.size()));
}

void save_item_file(const ItemData& item, const Text& path, std::int32_t type) {
    if (type == item_file_message) return write_file(path, message_file(item));
    if (type != item_file_text)
        throw Failure(result::invalid_argument, u"Items are saved as messages (3) or text (0).");
    Text text;
    for (const automation::TextView field : {u"From", u"SentOn", u"To", u"CC", u"Subject"}) {
        const automation::TextView source = field == u"From" ? automation::TextView(u"SenderName") : field;
        const auto found = item.fields.find(source);
        if (found != item.fields.end()) text += Text(field) + u":\t" + found->second.to_text() + u"\r\n";
    }
    if (const auto body = item.fields.find(u"Body"); body != item.fields.end()) {
        text += u"\r\n" + body->second.to_text() + u"\r\n";
    }
    write_file(path, automation::to_utf8(text));
}

}  // namespace desk
