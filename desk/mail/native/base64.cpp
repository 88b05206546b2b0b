// Base64 by GLib, on which the mail reader's library stands.
#include "desk/mail/base64.h"

#include <glib.h>

#include <memory>

namespace desk::mail {
namespace {

template <class T>
using Owned = std::unique_ptr<T, decltype(&g_free)>;

}  // namespace

std::string to_base64(std::string_view bytes) {
    const Owned<char> text(g_base64_encode(reinterpret_cast<const guchar*>(bytes.data()), bytes.size()),
                           g_free);
    return text.get();
}

std::optional<std::string> from_base64(std::string_view text) {
    gsize size = 0;
    const Owned<guchar> decoded(g_base64_decode(std::string(text).c_str(), &size), g_free);
    std::string bytes(reinterpret_cast<const char*>(decoded.get()), size);
    if (to_base64(bytes) != text) return std::nullopt;  // what is no letter was passed over
    return bytes;
}

}  // namespace desk::mail
