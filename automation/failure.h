// What a failing call throws: the number and the text of the failure, as Automation reports them.
#pragma once

#include <cstdint>
#include <exception>
#include <string>

#include "automation/text.h"

namespace automation {

/// Result codes that the product itself raises or looks at. Values: the platform's winerror.h.
namespace result {
constexpr std::int32_t code(std::uint32_t value) { return static_cast<std::int32_t>(value); }
inline constexpr std::int32_t fail = code(0x80004005);                 // E_FAIL
inline constexpr std::int32_t not_implemented = code(0x80004001);      // E_NOTIMPL
inline constexpr std::int32_t no_interface = code(0x80004002);         // E_NOINTERFACE
inline constexpr std::int32_t access_denied = code(0x80070005);        // E_ACCESSDENIED
inline constexpr std::int32_t file_not_found = code(0x80070002);       // HRESULT of ERROR_FILE_NOT_FOUND
inline constexpr std::int32_t invalid_argument = code(0x80070057);     // E_INVALIDARG
inline constexpr std::int32_t member_not_found = code(0x80020003);     // DISP_E_MEMBERNOTFOUND
inline constexpr std::int32_t parameter_not_found = code(0x80020004);  // DISP_E_PARAMNOTFOUND
inline constexpr std::int32_t type_mismatch = code(0x80020005);        // DISP_E_TYPEMISMATCH
inline constexpr std::int32_t unknown_name = code(0x80020006);         // DISP_E_UNKNOWNNAME
inline constexpr std::int32_t no_named_arguments = code(0x80020007);   // DISP_E_NONAMEDARGS
inline constexpr std::int32_t exception = code(0x80020009);            // DISP_E_EXCEPTION
inline constexpr std::int32_t overflow = code(0x8002000A);             // DISP_E_OVERFLOW
inline constexpr std::int32_t bad_index = code(0x8002000B);            // DISP_E_BADINDEX
inline constexpr std::int32_t bad_count = code(0x8002000E);            // DISP_E_BADPARAMCOUNT
inline constexpr std::int32_t no_such_class = code(0x80040154);        // REGDB_E_CLASSNOTREG
inline constexpr std::int32_t bad_prog_id = code(0x800401F3);          // CO_E_CLASSSTRING
inline constexpr std::int32_t not_found = code(0x8004010F);            // MAPI_E_NOT_FOUND
inline constexpr std::int32_t changed_meanwhile = code(0x80040109);    // MAPI_E_OBJECT_CHANGED
inline constexpr std::int32_t object_deleted = code(0x8004010A);       // MAPI_E_OBJECT_DELETED
inline constexpr std::int32_t no_connection = code(0x80040200);        // CONNECT_E_NOCONNECTION
inline constexpr std::int32_t object_required = code(0x800A01A8);      // the script engines' error 424
inline constexpr std::int32_t object_not_set = code(0x800A005B);       // the script engines' error 91
}  // namespace result

/// A failed call. `what()` is the description in UTF-8.
class Failure : public std::exception {
  public:
    explicit Failure(std::int32_t number, Text description = {});

    std::int32_t number() const noexcept { return number_; }
    const Text& description() const noexcept { return description_; }
    const char* what() const noexcept override { return utf8_.c_str(); }

  private:
    std::int32_t number_;
    Text description_;
    std::string utf8_;
};

}  // namespace automation
