// Base64 by the system's own cryptography.
#include "desk/mail/base64.h"

#include <windows.h>

#include <wincrypt.h>

#include <new>

namespace desk::mail {

std::string to_base64(std::string_view bytes) {
    if (bytes.empty()) return {};
    constexpr DWORD form = CRYPT_STRING_BASE64 | CRYPT_STRING_NOCRLF;
    const auto* data = reinterpret_cast<const BYTE*>(bytes.data());
    const auto length = static_cast<DWORD>(bytes.size());
    DWORD size = 0;
    if (!CryptBinaryToStringA(data, length, form, nullptr, &size)) throw std::bad_alloc();
    std::string text(size, '\0');
    if (!CryptBinaryToStringA(data, length, form, text.data(), &size)) throw std::bad_alloc();
    text.resize(size);  // without the end mark, which the first answer counts
    return text;
}

std::optional<std::string> from_base64(std::string_view text) {
    if (text.empty()) return std::string();  // a length of 0 would ask the system to look for the text's end
    const auto length = static_cast<DWORD>(text.size());
    DWORD size = 0;
    const auto decode = [&](BYTE* bytes) {
        return CryptStringToBinaryA(text.data(), length, CRYPT_STRING_BASE64, bytes, &size, nullptr, nullptr);
    };
    if (!decode(nullptr)) return std::nullopt;
    std::string bytes(size, '\0');
    if (!decode(reinterpret_cast<BYTE*>(bytes.data()))) return std::nullopt;
    bytes.resize(size);
    if (to_base64(bytes) != text) return std::nullopt;  // what is no letter was passed over
    return bytes;
}

}  // namespace desk::mail
