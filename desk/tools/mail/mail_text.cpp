#include "desk/tools/mail/mail_text.h"

#include <gmime/gmime.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <optional>

namespace desk::mail {

void start_library() {
    static const bool started = (g_mime_init(), true);
    static_cast<void>(started);
}

namespace {

constexpr std::string_view replacement = "\xEF\xBF\xBD";  // U+FFFD in UTF-8

constexpr std::size_t longest_piece = 4096;  // bytes; longer than any character

/// A conversion to UTF-8 that is closed with its owner.
class Conversion {
  public:
    explicit Conversion(const std::string& charset) : handle_(g_mime_iconv_open("UTF-8", charset.c_str())) {}
    Conversion(const Conversion&) = delete;
    Conversion& operator=(const Conversion&) = delete;
    ~Conversion() {
        if (is_open()) g_mime_iconv_close(handle_);
    }

    bool is_open() const { return handle_ != reinterpret_cast<iconv_t>(-1); }

    std::string run(std::string_view bytes) {
        std::string utf8;
        char* in = const_cast<char*>(bytes.data());  // iconv's interface; it reads only
        std::size_t left = bytes.size();
        while (left > 0) {
            // not all at once: a sanitizer looks at all that the converter is given, at each call
            const std::size_t given = std::min(left, longest_piece);
            std::size_t rest = given;
            const bool converted = step(&in, &rest, utf8);
            left -= given - rest;
            const int error = errno;
            if (converted || error == E2BIG) continue;
            if (error == EINVAL && rest < std::min(left, given))
                continue;  // the piece ends inside a character
            utf8 += replacement;
            if (error == EINVAL && rest == left) break;  // the bytes do
            ++in;
            --left;
        }
        while (!step(nullptr, nullptr, utf8) && errno == E2BIG) {
        }
        return utf8;
    }

  private:
    bool step(char** in, std::size_t* left, std::string& utf8) {
        std::array<char, 4096> buffer;
        char* out = buffer.data();
        std::size_t room = buffer.size();
        const std::size_t outcome = iconv(handle_, in, left, &out, &room);
        const int error = errno;
        utf8.append(buffer.data(), buffer.size() - room);
        errno = error;
        return outcome != static_cast<std::size_t>(-1);
    }

    iconv_t handle_;
};

std::optional<std::string> to_utf8(std::string_view bytes, const std::string& charset) {
    Conversion conversion(charset);
    if (!conversion.is_open()) return std::nullopt;
    return conversion.run(bytes);
}

/// What a charset's name is taken for. Mailers write "iso-8859-1" for Windows' western set, which holds it.
constexpr std::string_view western = "windows-1252";
constexpr std::array<std::array<std::string_view, 2>, 6> other_names = {{
    {"iso-8859-1", western},
    {"latin1", western},
    {"us-ascii", ""},
    {"ascii", ""},
    {"unknown-8bit", ""},
    {"x-unknown", ""},
}};

std::string meant(std::string_view charset) {
    const std::string name(charset);
    for (const auto& [written, taken_for] : other_names) {
        if (g_ascii_strcasecmp(name.c_str(), written.data()) == 0) return std::string(taken_for);
    }
    return name;
}

}  // namespace

bool is_utf8(std::string_view bytes) {
    // GLib takes a NUL for the end, which it is not in a text.
    while (true) {
        const std::size_t end = std::min(bytes.find('\0'), bytes.size());
        if (!g_utf8_validate(bytes.data(), static_cast<gssize>(end), nullptr)) return false;
        if (end == bytes.size()) return true;
        bytes.remove_prefix(end + 1);
    }
}

automation::Text decode(std::string_view bytes, std::string_view charset) {
    start_library();
    std::string name = meant(charset);
    if (name.empty()) name = is_utf8(bytes) ? "utf-8" : western;
    if (g_ascii_strcasecmp(name.c_str(), "utf-8") == 0) return automation::from_utf8(bytes);
    if (const auto converted = to_utf8(bytes, name)) return automation::from_utf8(*converted);
    return decode(bytes, "");  // nobody knows that set
}

automation::Text with_crlf(automation::TextView text) {
    automation::Text lines;
    lines.reserve(text.size() + text.size() / 32);
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] != u'\r' && text[i] != u'\n') {
            lines += text[i];
            continue;
        }
        if (text[i] == u'\r' && i + 1 < text.size() && text[i + 1] == u'\n') ++i;
        lines += u"\r\n";
    }
    return lines;
}

}  // namespace desk::mail
